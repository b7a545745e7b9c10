#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/controls/ViewWidget.h"

#include <QAbstractButton>

namespace corvane::qt {

/// Shows a link: its label as a button.
class LinkWidget : public QAbstractButton, public ViewWidget, public AccessibleRole {
  public:
    explicit LinkWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    QAccessible::Role accessibleRole() const override { return QAccessible::Link; }
    QSize sizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    const Link &link() const { return std::get<Link>(view_.content); }
    void showLabel(Rendering rendering);
    void refreshColours();

    drawing::SymbolImages &symbols_;
    View view_{Link{}};
    WidgetKind labelKind_;
    ViewWidget *label_ = nullptr;
};

} // namespace corvane::qt
