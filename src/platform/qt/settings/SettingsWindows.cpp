#include "platform/qt/settings/SettingsWindows.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/settings/SettingsWindowWidget.h"
#include "platform/qt/settings/ToolbarWidget.h"
#include "platform/x11/windows/WindowActivation.h"

#include <QThread>

#include <utility>

namespace corvane::qt {

namespace {

/// It may be one of the widget's own handlers that ends it: then it goes when that is done.
struct WidgetEnd {
    void operator()(QWidget *widget) const {
        widget->hide();
        if (QThread::currentThread()->loopLevel() > 0) {
            widget->deleteLater();
        } else {
            delete widget; // NOLINT(cppcoreguidelines-owning-memory): nobody else does
        }
    }
};

class LinuxSettingsWindow : public platform::NativeSettingsWindow {
  public:
    LinuxSettingsWindow(const SettingsWindow &window,
                        std::shared_ptr<drawing::SymbolImages> symbols,
                        std::function<void(const std::string &)> toolbarItemSelected)
        : alive_(std::make_shared<bool>(true)),
          widget_(new SettingsWindowWidget(
              window, std::move(symbols),
              [held = std::weak_ptr(alive_),
               report = std::move(toolbarItemSelected)](const std::string &identifier) {
                  if (!held.expired()) {
                      report(identifier);
                  }
              })) {}

    bool isVisible() const override { return widget_->isVisible(); }

    void makeKeyAndOrderFront() override {
        if (widget_->isMinimized()) {
            widget_->showNormal();
        }
        if (!widget_->isVisible()) {
            widget_->toolbar().focusSelectedItem();
            widget_->show();
        }
        x11::activateIgnoringOthers(*widget_);
    }

    void orderOut() override { widget_->hide(); }
    void center() override { widget_->moveToCentre(); }

    void setTitle(const std::string &title) override {
        widget_->setWindowTitle(QString::fromStdString(title));
    }

    void setSelectedToolbarItem(const std::string &identifier) override {
        widget_->toolbar().setSelectedItem(identifier);
    }

    void setContent(const View &content) override {
        widget_->renderContent(content, Rendering::discardsTyping);
    }

    void updateContent(const View &content) override {
        widget_->renderContent(content, Rendering::keepsTyping);
    }

  private:
    const std::shared_ptr<bool> alive_;
    const std::unique_ptr<SettingsWindowWidget, WidgetEnd> widget_;
};

} // namespace

SettingsWindows::SettingsWindows() : symbols_(std::make_shared<drawing::SymbolImages>()) {
    installAccessibleRoles();
}

std::unique_ptr<platform::NativeSettingsWindow>
SettingsWindows::create(const SettingsWindow &window,
                        std::function<void(const std::string &identifier)> toolbarItemSelected) {
    return std::make_unique<LinuxSettingsWindow>(window, symbols_, std::move(toolbarItemSelected));
}

} // namespace corvane::qt
