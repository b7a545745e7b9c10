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

/// Shows a toolbar as a centred row of tabs.
class ToolbarWidget : public QWidget, public AccessibleRole {
  public:
    /// `chosen` receives the identifier of each tab that the user selects.
    ToolbarWidget(const Toolbar &toolbar, drawing::SymbolImages &symbols,
                  const std::function<void(const std::string &identifier)> &chosen);

    void setSelectedItem(const std::string &identifier);

    /// Gives the selected tab the keyboard focus.
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
