#include "platform/qt/alerts/AccessibilityGuideWindow.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::qt {

namespace {

constexpr int textWidth = 420;

QLabel *textLabel(const std::string &text) {
    auto *label = new QLabel(QString::fromStdString(text)); // NOLINT: its window owns it
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel *headingLabel(const std::string &text) {
    QLabel *label = textLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

/// The layout, and with it the dialog, owns every part.
void fill(QDialog &dialog, const AccessibilityGuide &guide) {
    dialog.setWindowTitle(QString::fromStdString(guide.title));
    auto *layout = new QVBoxLayout(&dialog); // NOLINT
    auto *buttons = new QDialogButtonBox;    // NOLINT
    QPushButton *close =
        buttons->addButton(QString::fromStdString(guide.closeButton), QDialogButtonBox::AcceptRole);
    QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(headingLabel(guide.heading));
    for (const std::string &paragraph : guide.paragraphs) {
        layout->addWidget(textLabel(paragraph));
    }
    layout->addWidget(buttons);
}

} // namespace

AccessibilityGuideWindow::~AccessibilityGuideWindow() { close(); }

void AccessibilityGuideWindow::show(const AccessibilityGuide &guide,
                                    std::function<void()> confirmed) {
    close();
    dialog_ = new QDialog; // NOLINT
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    fill(*dialog_, guide);
    if (confirmed) {
        QObject::connect(dialog_, &QDialog::accepted, std::move(confirmed));
    }
    dialog_->show();
    ownWindows_.bringToFront(*dialog_);
}

void AccessibilityGuideWindow::close() {
    delete dialog_; // NOLINT: no other owner
}

} // namespace corvane::qt
