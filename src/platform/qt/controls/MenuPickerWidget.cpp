#include "platform/qt/controls/MenuPickerWidget.h"

#include "platform/qt/controls/ViewStyling.h"

#include <QPointer>
#include <QWheelEvent>

namespace corvane::qt {

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
        // Only the view says which one is chosen.
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
    // As its name, screen readers of this desktop are given the chosen entry.
    setAccessibleDescription(accessibleName());
}

/// A wheel that turns over the window by chance changes nothing.
void MenuPickerWidget::wheelEvent(QWheelEvent *event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace corvane::qt
