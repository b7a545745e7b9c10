#pragma once

#include "platform/qt/controls/AccessibleRole.h"
#include "presentation/SettingsWindow.h"

#include <QAbstractButton>

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// One tab of a toolbar: an icon over a label.
class ToolbarButton : public QAbstractButton, public AccessibleRole {
  public:
    /// `symbols` outlives the button.
    ToolbarButton(const ToolbarItem &item, drawing::SymbolImages &symbols);

    void setSelected(bool isSelected);

    QAccessible::Role accessibleRole() const override { return QAccessible::PageTab; }
    bool isAccessiblySelected() const override { return isSelected_; }

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

  private:
    QFont labelFont() const;

    const ToolbarItem item_;
    drawing::SymbolImages &symbols_;
    bool isSelected_ = false;
    /// Only who uses the keyboard needs to see where it is.
    bool showsFocus_ = false;
};

} // namespace corvane::qt
