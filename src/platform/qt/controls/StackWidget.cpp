#include "platform/qt/controls/StackWidget.h"

#include "platform/drawing/SymbolImages.h"
#include "platform/qt/controls/ViewStyling.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): a widget owns those inside it

namespace corvane::qt {

namespace {

int pixels(double length) { return static_cast<int>(std::lround(length)); }

Qt::Alignment qtAlignment(Alignment alignment) {
    switch (alignment) {
    case Alignment::leading:
        return Qt::AlignLeft;
    case Alignment::center:
        return Qt::AlignCenter;
    case Alignment::trailing:
        return Qt::AlignRight;
    case Alignment::top:
        return Qt::AlignTop;
    }
    return {};
}

/// Across the axis of the stack.
Qt::Alignment alignmentAcross(const Stack &stack) {
    return qtAlignment(stack.alignment) &
           (stack.axis == Axis::vertical ? Qt::AlignHorizontal_Mask : Qt::AlignVertical_Mask);
}

/// The view without what the box around it shows.
View bare(const View &view) {
    View content = view;
    content.padding = {};
    content.width.reset();
    content.minHeight.reset();
    content.fullWidth.reset();
    content.background.reset();
    content.identity.clear();
    return content;
}

Stack boxed(const View &view) { return {.children = {bare(view)}}; }

} // namespace

StackWidget::StackWidget(drawing::SymbolImages &symbols)
    : symbols_(symbols),
      frame_(new QHBoxLayout(this)),
      content_(new QVBoxLayout) {
    frame_->setSpacing(0);
    frame_->setContentsMargins(0, 0, 0, 0);
    frame_->addStretch();
    frame_->addLayout(content_);
    frame_->addStretch();
}

void StackWidget::render(const View &view, Rendering rendering) {
    renderFrame(view);
    if (const auto *stack = std::get_if<Stack>(&view.content)) {
        renderStack(*stack, rendering);
    } else {
        renderStack(boxed(view), rendering);
    }
    align(view);
}

void StackWidget::renderStack(const Stack &stack, Rendering rendering) {
    content_->setDirection(stack.axis == Axis::vertical ? QBoxLayout::TopToBottom
                                                        : QBoxLayout::LeftToRight);
    // QBoxLayout lays out anew even for an unchanged value.
    if (content_->spacing() != pixels(stack.spacing)) {
        content_->setSpacing(pixels(stack.spacing));
    }
    children_ = matchChildren(stack.children);
    for (std::size_t index = 0; index < children_.size(); ++index) {
        children_[index].widget->render(stack.children[index], rendering);
    }
    arrange(stack);
}

void StackWidget::renderFrame(const View &view) {
    const Insets &padding = view.padding;
    frame_->setContentsMargins(pixels(padding.leading), pixels(padding.top),
                               pixels(padding.trailing), pixels(padding.bottom));
    // On a change only, because the window replaces the width of the outermost view.
    if (width_ != view.width) {
        width_ = view.width;
        setMinimumWidth(width_ ? pixels(*width_) : 0);
        setMaximumWidth(width_ ? pixels(*width_) : QWIDGETSIZE_MAX);
    }
    setMinimumHeight(pixels(view.minHeight.value_or(0)));
    // A view with a minimum height has its content centred in it.
    const Qt::Alignment alignment = view.minHeight ? Qt::AlignVCenter : Qt::Alignment();
    if (content_->alignment() != alignment) {
        frame_->setAlignment(content_, alignment);
    }
    setAccessibleName(QString::fromStdString(view.accessibilityLabel));
    if (background_ != view.background) {
        background_ = view.background;
        update();
    }
}

/// Reuses for each view the child of its kind, else makes a new one, and removes the rest.
std::vector<StackWidget::Child> StackWidget::matchChildren(const std::vector<View> &children) {
    std::vector<WidgetKind> formerKinds;
    std::vector<WidgetKind> nextKinds;
    std::ranges::transform(children_, std::back_inserter(formerKinds), &Child::kind);
    std::ranges::transform(children, std::back_inserter(nextKinds), kindOf);
    const auto matches = views::matched(formerKinds, nextKinds);
    std::vector<Child> former = std::exchange(children_, {});
    std::vector<Child> next;
    for (std::size_t index = 0; index < children.size(); ++index) {
        if (const auto match = matches[index]) {
            ViewWidget *widget = std::exchange(former[*match].widget, nullptr);
            next.push_back({nextKinds[index], widget, false});
        } else {
            next.push_back({nextKinds[index], makeViewWidget(children[index], symbols_), true});
            next.back().widget->widget().setParent(this);
        }
    }
    for (const Child &child : former) {
        if (child.widget) {
            retire(*child.widget);
        }
    }
    return next;
}

/// Deleted later, because one of its handlers may be running.
void StackWidget::retire(ViewWidget &child) {
    child.widget().hide();
    child.widget().deleteLater();
}

void StackWidget::arrange(const Stack &stack) {
    std::vector<Place> places;
    contentFills_ = false;
    for (std::size_t index = 0; index < children_.size(); ++index) {
        const bool fills = fillsWidth(stack.children[index]);
        contentFills_ = contentFills_ || fills;
        const bool fillsAcross = fills && stack.axis == Axis::vertical;
        places.push_back({&children_[index].widget->widget(),
                          fills && stack.axis == Axis::horizontal ? 1 : 0,
                          fillsAcross ? Qt::Alignment() : alignmentAcross(stack)});
    }
    if (places == places_) {
        return;
    }
    places_ = std::move(places);
    while (QLayoutItem *item = content_->takeAt(0)) {
        delete item;
    }
    for (const Place &place : places_) {
        content_->addWidget(place.widget, place.stretch, place.alignment);
    }
    orderChildren();
}

/// Puts the children into the order in which the Tab key and screen readers visit them.
void StackWidget::orderChildren() {
    for (Child &child : children_) {
        child.widget->widget().raise();
        if (std::exchange(child.isNew, false)) {
            child.widget->widget().show();
        }
    }
}

void StackWidget::align(const View &view) {
    // Without a frame of its own the stack is as wide as its content, and fills nothing.
    const bool fills = contentFills_ || !view.fullWidth;
    const bool spaceBefore = !fills && *view.fullWidth != Alignment::leading;
    const bool spaceAfter = !fills && *view.fullWidth != Alignment::trailing;
    frame_->setStretch(0, spaceBefore ? 1 : 0);
    frame_->setStretch(1, fills ? 1 : 0);
    frame_->setStretch(2, spaceAfter ? 1 : 0);
}

QAccessible::Role StackWidget::accessibleRole() const {
    return accessibleName().isEmpty() ? QAccessible::LayeredPane : QAccessible::Grouping;
}

void StackWidget::paintEvent(QPaintEvent *) {
    if (!background_) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColour(background_->fill, palette()));
    const bool isCapsule = background_->shape == BackgroundShape::capsule;
    const double radius = isCapsule ? height() / 2.0 : background_->cornerRadius;
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
