#pragma once

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/controls/ViewWidget.h"
#include "presentation/SettingsWindow.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QScrollArea;

namespace corvane::qt {

class ToolbarWidget;

/// The settings window: the toolbar above the content, which has its natural height and scrolls
/// where the screen is too low for it.
class SettingsWindowWidget : public QWidget, public AccessibleRole {
  public:
    SettingsWindowWidget(
        const SettingsWindow &window, std::shared_ptr<drawing::SymbolImages> symbols,
        const std::function<void(const std::string &identifier)> &toolbarItemSelected);

    ToolbarWidget &toolbar() { return *toolbar_; }

    void renderContent(const View &view, Rendering rendering);
    void moveToCentre();

    QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    void addShortcuts();
    void performDefaultAction();
    void replaceContent(const View &view);
    void orderFocus();
    void fitToContent();
    void keepWithin(const QRect &available);

    const int width_;
    std::shared_ptr<drawing::SymbolImages> symbols_;
    ToolbarWidget *toolbar_;
    QScrollArea *scrollArea_;
    ViewWidget *content_ = nullptr;
    WidgetKind contentKind_;
};

} // namespace corvane::qt
