#include "platform/qt/settings/SettingsWindows.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/settings/SettingsWindowWidget.h"
#include "platform/qt/settings/ToolbarWidget.h"

#include <QThread>

#include <utility>

namespace corvane::qt {

namespace {

/// One of the widget's own handlers may be deleting it: then it is deleted later. Until then it is
/// disabled, so that not even a screen reader can use it.
struct WidgetDeleter {
    void operator()(QWidget *widget) const {
        widget->hide();
        widget->setEnabled(false);
        if (QThread::currentThread()->loopLevel() > 0) {
            widget->deleteLater();
        } else {
            delete widget; // NOLINT(cppcoreguidelines-owning-memory): no other owner
        }
    }
};

class NativeSettingsWindow : public platform::NativeSettingsWindow {
  public:
    NativeSettingsWindow(const OwnWindows &ownWindows, const SettingsWindow &window,
                         std::shared_ptr<drawing::SymbolImages> symbols,
                         std::function<void(const std::string &)> toolbarItemSelected)
        : ownWindows_(ownWindows),
          widget_(new SettingsWindowWidget(window, std::move(symbols),
                                           std::move(toolbarItemSelected))) {}

    bool isVisible() const override { return widget_->isVisible(); }

    void makeKeyAndOrderFront() override {
        if (widget_->isMinimized()) {
            widget_->showNormal();
        }
        if (!widget_->isVisible()) {
            widget_->toolbar().focusSelectedItem();
            widget_->show();
        }
        ownWindows_.bringToFront(*widget_);
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
    const OwnWindows ownWindows_;
    const std::unique_ptr<SettingsWindowWidget, WidgetDeleter> widget_;
};

} // namespace

SettingsWindows::SettingsWindows(OwnWindows ownWindows)
    : ownWindows_(std::move(ownWindows)),
      symbols_(std::make_shared<drawing::SymbolImages>()) {
    installAccessibleRoles();
}

std::unique_ptr<platform::NativeSettingsWindow>
SettingsWindows::create(const SettingsWindow &window,
                        std::function<void(const std::string &identifier)> toolbarItemSelected) {
    return std::make_unique<NativeSettingsWindow>(ownWindows_, window, symbols_,
                                                  toolbarItemSelected);
}

} // namespace corvane::qt
