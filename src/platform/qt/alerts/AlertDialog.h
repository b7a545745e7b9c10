#pragma once

#include "platform/qt/OwnWindows.h"
#include "presentation/Alert.h"

#include <QDialog>

#include <string>

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

} // namespace corvane::qt
