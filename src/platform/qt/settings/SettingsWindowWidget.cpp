#include "platform/qt/settings/SettingsWindowWidget.h"

#include "platform/qt/controls/ButtonWidget.h"
#include "platform/qt/settings/FocusKeeper.h"
#include "platform/qt/settings/ToolbarWidget.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

/// Height left free on the screen for the window's frame and a margin.
constexpr int heightBesideContent = 72;

int heightFor(QWidget &widget, int width) {
    const int height = widget.heightForWidth(width);
    return height < 0 ? widget.sizeHint().height() : height;
}

} // namespace

SettingsWindowWidget::SettingsWindowWidget(
    const SettingsWindow &window, std::shared_ptr<drawing::SymbolImages> symbols,
    const std::function<void(const std::string &)> &toolbarItemSelected)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      width_(static_cast<int>(std::lround(window.width))),
      symbols_(std::move(symbols)),
      toolbar_(new ToolbarWidget(window.toolbar, *symbols_, toolbarItemSelected)),
      scrollArea_(new QScrollArea) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QString::fromStdString(window.title));
    scrollArea_->setWidgetResizable(true);
    scrollArea_->setFrameShape(QFrame::NoFrame);
    scrollArea_->setFocusPolicy(Qt::NoFocus);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(toolbar_);
    rows->addWidget(scrollArea_);
    addShortcuts();
}

void SettingsWindowWidget::addShortcuts() {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, &SettingsWindowWidget::performDefaultAction);
    }
    for (const QKeySequence &keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
    }
}

/// Without a default action, Return presses the focused button.
void SettingsWindowWidget::performDefaultAction() {
    for (QPushButton *button : findChildren<QPushButton *>()) {
        const auto *candidate = dynamic_cast<ButtonWidget *>(button);
        if (candidate && candidate->isDefaultAction() && candidate->isVisible()) {
            button->click();
            return;
        }
    }
    if (auto *button = qobject_cast<QAbstractButton *>(focusWidget())) {
        button->click();
    }
}

void SettingsWindowWidget::renderContent(const View &view, Rendering rendering) {
    const FocusKeeper focus(*this);
    if (!content_ || kindOf(view) != contentKind_) {
        replaceContent(view);
    }
    content_->render(view, rendering);
    // The window already has this width, and a scroll bar may take part of it.
    content_->widget().setMinimumWidth(0);
    content_->widget().setMaximumWidth(QWIDGETSIZE_MAX);
    orderFocus();
    focus.restore();
    fitToContent();
}

/// The old content is deleted later, because one of its handlers may be running.
void SettingsWindowWidget::replaceContent(const View &view) {
    if (QWidget *former = scrollArea_->takeWidget()) {
        former->removeEventFilter(this);
        former->hide();
        former->deleteLater();
    }
    content_ = makeViewWidget(view, *symbols_);
    contentKind_ = kindOf(view);
    content_->widget().installEventFilter(this);
    scrollArea_->setWidget(&content_->widget());
    content_->widget().setAutoFillBackground(false);
    content_->widget().show();
}

/// Makes the Tab key follow the visual order.
void SettingsWindowWidget::orderFocus() {
    QWidget *former = nullptr;
    for (QWidget *stop : tabStops(*this)) {
        if (former) {
            setTabOrder(former, stop);
        }
        former = stop;
    }
}

void SettingsWindowWidget::fitToContent() {
    if (!content_) {
        return;
    }
    QWidget &content = content_->widget();
    const int contentWidth = std::max(width_, content.minimumSizeHint().width());
    const int wanted = toolbar_->sizeHint().height() + heightFor(content, contentWidth);
    const QRect available = screen()->availableGeometry();
    const int height = std::min(wanted, available.height() - heightBesideContent);
    scrollArea_->setHorizontalScrollBarPolicy(
        contentWidth > available.width() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    scrollArea_->setVerticalScrollBarPolicy(wanted > height ? Qt::ScrollBarAlwaysOn
                                                            : Qt::ScrollBarAlwaysOff);
    setFixedSize(std::min(contentWidth, available.width()), height);
    if (isVisible()) {
        keepWithin(available);
    }
}

/// A window that grows may reach beyond the lower edge of the screen.
void SettingsWindowWidget::keepWithin(const QRect &available) {
    const QRect frame = frameGeometry();
    const int excess = frame.bottom() - available.bottom();
    if (excess > 0) {
        move(frame.x(), std::max(available.top(), frame.y() - excess));
    }
}

void SettingsWindowWidget::moveToCentre() {
    const QScreen *pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect available = (pointed ? pointed : screen())->availableGeometry();
    move(available.center() - QPoint(width() / 2, height() / 2));
}

bool SettingsWindowWidget::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::LayoutRequest) {
        fitToContent();
    }
    return QWidget::eventFilter(watched, event);
}

void SettingsWindowWidget::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    fitToContent();
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
