#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/controls/ViewWidget.h"

#include <QBoxLayout>
#include <QWidget>

#include <optional>
#include <vector>

namespace corvane::qt {

/// Shows a stack with its padding, frame and background. A padded or filled view of another kind is
/// shown as a stack of that view alone.
class StackWidget : public QWidget, public ViewWidget, public AccessibleRole {
  public:
    explicit StackWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    QAccessible::Role accessibleRole() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    struct Child {
        WidgetKind kind;
        ViewWidget *widget = nullptr;
        bool isNew = false;
    };
    /// A child's place in the layout.
    struct Place {
        QWidget *widget = nullptr;
        int stretch = 0;
        Qt::Alignment alignment{};

        bool operator==(const Place &) const = default;
    };

    void renderFrame(const View &view);
    void renderStack(const Stack &stack, Rendering rendering);
    std::vector<Child> matchChildren(const std::vector<View> &children);
    static void retire(ViewWidget &child);
    void arrange(const Stack &stack);
    void align(const View &view);
    void orderChildren();

    drawing::SymbolImages &symbols_;
    /// Has the padding and aligns the content in a wider frame.
    QBoxLayout *frame_;
    QBoxLayout *content_;
    std::vector<Child> children_;
    std::vector<Place> places_;
    std::optional<double> width_;
    std::optional<Background> background_;
    bool contentFills_ = false;
};

} // namespace corvane::qt
