#include "platform/qt/alerts/Alerts.h"

#include "platform/drawing/DisplayText.h"
#include "platform/qt/controls/AccessibleRole.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSvgRenderer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

constexpr int margin = 22;
constexpr int columnSpacing = margin - 4;
constexpr int imageSize = 56;
constexpr int shortestLine = 280;
constexpr int longestLine = 400;
constexpr int leastButtonWidth = 88;
constexpr int buttonPadding = 14;
/// In characters; a longer text is cut, because a screen has no room for it.
constexpr qsizetype longestText = 600;

void paint(QPainter &painter, const QString &drawing, const QRectF &frame) {
    QSvgRenderer renderer(drawing);
    renderer.render(&painter, frame);
}

/// The application icon, with a warning badge on a warning that needs no input. `size` in points,
/// sharp on a screen with `ratio` pixels to the point.
QPixmap alertImage(const Alert &alert, int size, qreal ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(painter, QStringLiteral(":/AppIcon.svg"), QRectF(0, 0, size, size));
    if (alert.style == AlertStyle::warning && !alert.field) {
        const auto badge = size * 0.46;
        paint(painter, QStringLiteral(":/Warning.svg"),
              QRectF(size - badge, size - badge, badge, badge));
    }
    return pixmap;
}

/// A picture that screen readers leave out.
class DecorationLabel : public QLabel, public AccessibleRole {
  public:
    QAccessible::Role accessibleRole() const override { return QAccessible::LayeredPane; }
};

/// The width that a screen leaves for the texts beside the image.
int roomForTexts(const QScreen &screen) {
    constexpr int frame = 8;
    return screen.availableGeometry().width() - 2 * margin - imageSize - columnSpacing - frame;
}

/// As wide as its text on one line, within limits beyond which it wraps.
QLabel *makeLabel(const std::string &source, const QFont &font, int room) {
    const auto text = QString::fromStdString(source);
    auto *label =
        new QLabel(drawing::breakable(drawing::shortened(drawing::onOneLine(text), longestText)));
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setWordWrap(true);
    const auto natural = QFontMetrics(font).horizontalAdvance(label->text());
    label->setFixedWidth(std::min(std::clamp(natural + 2, shortestLine, longestLine), room));
    label->setAccessibleName(text);
    return label;
}

} // namespace

AlertDialog::AlertDialog(const Alert &alert, OwnWindows ownWindows)
    : QDialog(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                           Qt::WindowStaysOnTopHint | Qt::CustomizeWindowHint),
      ownWindows_(std::move(ownWindows)),
      chosen_(alert.buttons.empty() ? 0 : alert.buttons.size() - 1) {
    installAccessibleRoles();
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(drawing::onOneLine(QString::fromStdString(alert.messageText)));
    setAccessibleName(QString::fromStdString(alert.messageText));

    auto *image = new DecorationLabel;
    image->setPixmap(alertImage(alert, imageSize, devicePixelRatioF()));

    auto *columns = new QHBoxLayout;
    columns->setSpacing(columnSpacing);
    columns->addWidget(image, 0, Qt::AlignTop);
    columns->addLayout(makeTexts(alert), 1);

    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin - 4);
    rows->setSpacing(margin);
    rows->addLayout(columns);
    rows->addLayout(makeButtons(alert));
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

AlertResponse AlertDialog::response() const {
    return {.button = chosen_, .fieldText = field_ ? field_->text().toStdString() : std::string()};
}

QBoxLayout *AlertDialog::makeTexts(const Alert &alert) {
    auto messageFont = font();
    messageFont.setBold(true);
    messageFont.setPointSizeF(QFontInfo(messageFont).pointSizeF() * 1.1);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(6);
    const int room = roomForTexts(*screen());
    texts->addWidget(makeLabel(alert.messageText, messageFont, room));
    texts->addWidget(makeLabel(alert.informativeText, font(), room));
    if (alert.field) {
        addField(*texts, *alert.field, alert.informativeText);
    }
    texts->addStretch(1);
    return texts;
}

void AlertDialog::addField(QBoxLayout &layout, const AlertField &field,
                           const std::string &description) {
    field_ = new QLineEdit(QString::fromStdString(field.text));
    field_->setPlaceholderText(QString::fromStdString(field.placeholder));
    field_->setFixedSize(
        std::min(static_cast<int>(std::lround(field.size.width)), roomForTexts(*screen())),
        static_cast<int>(std::lround(field.size.height)));
    field_->setAccessibleName(QString::fromStdString(description));
    field_->selectAll();
    layout.addSpacing(6);
    layout.addWidget(field_);
}

QBoxLayout *AlertDialog::makeButtons(const Alert &alert) {
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    row->addStretch(1);
    for (std::size_t index = 0; index < alert.buttons.size(); ++index) {
        const auto title = QString::fromStdString(alert.buttons[index]);
        auto *button = new QPushButton(drawing::withoutMnemonic(title));
        button->setAccessibleName(title);
        button->setMinimumWidth(
            std::max(leastButtonWidth, fontMetrics().horizontalAdvance(title) + 2 * buttonPadding));
        button->setDefault(index == 0);
        connect(button, &QPushButton::clicked, this, [this, index] {
            chosen_ = index;
            accept();
        });
        row->addWidget(button);
        if (index == 0 && !field_) {
            button->setFocus();
        }
    }
    if (field_) {
        field_->setFocus();
    }
    return row;
}

void AlertDialog::showEvent(QShowEvent *event) {
    ownWindows_.showOnEveryWorkspace(winId());
    QDialog::showEvent(event);
    // The window is on the screen when this event has been handled.
    QTimer::singleShot(0, this, [this] { ownWindows_.bringToFront(*this); });
}

AlertResponse Alerts::runModal(const Alert &alert) {
    AlertDialog dialog(alert, ownWindows_);
    dialog.exec();
    return dialog.response();
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
