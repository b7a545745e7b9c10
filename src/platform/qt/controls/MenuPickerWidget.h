#pragma once

#include "platform/qt/controls/ViewWidget.h"

#include <QComboBox>

namespace corvane::qt {

/// Shows a picker as a menu that opens from the chosen entry.
class MenuPickerWidget : public QComboBox, public ViewWidget {
  public:
    MenuPickerWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

  protected:
    void wheelEvent(QWheelEvent *event) override;

  private:
    const Picker &picker() const { return std::get<Picker>(view_.content); }
    void refresh();

    View view_{Picker{}};
};

} // namespace corvane::qt
