#pragma once

#include "platform/Alerts.h"
#include "platform/qt/OwnWindows.h"

#include <QDialog>

#include <cstddef>
#include <string>
#include <utility>

class QBoxLayout;
class QLineEdit;

namespace corvane::qt {

/// The window of one alert. Main thread.
class AlertDialog : public QDialog {
  public:
    AlertDialog(const Alert &alert, OwnWindows ownWindows);

    /// How the user answered; the last button until then.
    AlertResponse response() const;

  protected:
    void showEvent(QShowEvent *event) override;

  private:
    QBoxLayout *makeTexts(const Alert &alert);
    QBoxLayout *makeButtons(const Alert &alert);
    void addField(QBoxLayout &layout, const AlertField &field, const std::string &description);

    const OwnWindows ownWindows_;
    std::size_t chosen_;
    QLineEdit *field_ = nullptr;
};

/// Alerts as dialogs above all windows on every workspace. Closing one, Escape and the end of the
/// program answer with the last button.
class Alerts : public platform::Alerts {
  public:
    explicit Alerts(OwnWindows ownWindows) : ownWindows_(std::move(ownWindows)) {}

    AlertResponse runModal(const Alert &alert) override;

  private:
    const OwnWindows ownWindows_;
};

} // namespace corvane::qt
