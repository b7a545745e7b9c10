#include "platform/qt/controls/PickerWidgets.h"

#include "platform/drawing/DisplayText.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QEvent>
#include <QPointer>
#include <QRadioButton>
#include <QVBoxLayout>
#include <QWheelEvent>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

RadioGroupWidget::RadioGroupWidget() {
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(6);
}

void RadioGroupWidget::render(const View &view, Rendering) {
    view_ = view;
    while (buttons_.size() < picker().options.size()) {
        addButton();
    }
    while (buttons_.size() > picker().options.size()) {
        delete buttons_.back();
        buttons_.pop_back();
    }
    refresh();
}

void RadioGroupWidget::addButton() {
    auto *button = new QRadioButton(this);
    connect(button, &QRadioButton::clicked, this,
            [this, index = buttons_.size()] { choose(index); });
    layout()->addWidget(button);
    buttons_.push_back(button);
}

void RadioGroupWidget::choose(std::size_t index) {
    if (index == picker().selected) {
        return;
    }
    const QPointer<RadioGroupWidget> self(this);
    picker().changed(index);
    // The selection follows the view alone.
    if (self) {
        refresh();
    }
}

/// The Tab key reaches the selected button only, the arrow keys the others from there.
void RadioGroupWidget::check(std::size_t index) {
    if (index >= buttons_.size()) {
        return;
    }
    buttons_[index]->setChecked(true);
    for (QRadioButton *button : buttons_) {
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

bool RadioGroupWidget::event(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) {
        refresh();
    }
    return QWidget::event(event);
}

void RadioGroupWidget::refresh() {
    setAccessibleName(QString::fromStdString(view_.accessibilityLabel));
    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        const QString title = QString::fromStdString(picker().options[index]);
        buttons_[index]->setText(drawing::withoutMnemonic(title));
        buttons_[index]->setAccessibleName(title);
        buttons_[index]->setPalette(indicatorPalette());
    }
    check(picker().selected);
}

MenuPickerWidget::MenuPickerWidget() {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumHeight(controlHeight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QComboBox::activated, this, [this](int index) {
        const auto chosen = static_cast<std::size_t>(index);
        if (chosen == picker().selected) {
            return;
        }
        const QPointer<MenuPickerWidget> self(this);
        picker().changed(chosen);
        // The selection follows the view alone.
        if (self) {
            setCurrentIndex(static_cast<int>(picker().selected));
        }
    });
}

void MenuPickerWidget::render(const View &view, Rendering) {
    const bool isSame = view == view_;
    view_ = view;
    if (!isSame) {
        refresh();
    }
}

void MenuPickerWidget::refresh() {
    QStringList options;
    for (const std::string &option : picker().options) {
        options << QString::fromStdString(option);
    }
    QStringList present;
    for (int index = 0; index < count(); ++index) {
        present << itemText(index);
    }
    if (present != options) {
        clear();
        addItems(options);
    }
    setCurrentIndex(static_cast<int>(picker().selected));
    setAccessibleName(QString::fromStdString(view_.accessibilityLabel));
    // Qt's bridge to AT-SPI sends the selected entry instead of the name.
    setAccessibleDescription(accessibleName());
}

/// Scrolling the window must not change a picker that happens to be under the pointer.
void MenuPickerWidget::wheelEvent(QWheelEvent *event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
