#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QCheckBox>

namespace corvane::qt {

/// Shows a toggle.
class ToggleWidget : public QCheckBox, public ViewWidget {
  public:
    explicit ToggleWidget(drawing::SymbolImages &symbols);

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    bool event(QEvent *event) override;

  private:
    const Toggle &toggle() const { return std::get<Toggle>(view_.content); }
    void refresh();

    drawing::SymbolImages &symbols_;
    View view_{Toggle{}};
};

} // namespace corvane::qt
