#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "platform/qt/controls/ViewWidget.h"

#include <QComboBox>
#include <QWidget>

#include <vector>

class QRadioButton;

namespace corvane::qt {

/// Shows a picker as radio buttons, one below the other.
class RadioGroupWidget : public QWidget, public ViewWidget, public AccessibleRole {
  public:
    RadioGroupWidget();

    QWidget &widget() override { return *this; }
    void render(const View &view, Rendering rendering) override;

    QAccessible::Role accessibleRole() const override { return QAccessible::Grouping; }

  protected:
    bool event(QEvent *event) override;

  private:
    const Picker &picker() const { return std::get<Picker>(view_.content); }
    void addButton();
    void choose(std::size_t index);
    void check(std::size_t index);
    void refresh();

    View view_{Picker{}};
    std::vector<QRadioButton *> buttons_;
};

/// Shows a picker as a menu that opens from the selected entry.
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
