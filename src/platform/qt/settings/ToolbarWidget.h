#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "presentation/SettingsWindow.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// Shows a toolbar: its tabs in a centred row.
class ToolbarWidget : public QWidget, public AccessibleRole {
  public:
    /// `chosen` receives the identifier of each tab the user chooses.
    ToolbarWidget(const Toolbar &toolbar, drawing::SymbolImages &symbols,
                  const std::function<void(const std::string &identifier)> &chosen);

    void setSelectedItem(const std::string &identifier);

    /// Gives the keyboard to the selected tab.
    void focusSelectedItem();

    QAccessible::Role accessibleRole() const override { return QAccessible::PageTabList; }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    class Button;

    bool moveFrom(const QObject *button, int key);

    std::vector<ToolbarItem> items_;
    std::vector<Button *> buttons_;
    std::string selectedItem_;
};

} // namespace corvane::qt
