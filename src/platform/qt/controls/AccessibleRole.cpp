#include "platform/qt/controls/AccessibleRole.h"

#include "platform/qt/controls/MenuButtonWidget.h"
#include "platform/qt/controls/StepperWidget.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

// NOLINTBEGIN(cppcoreguidelines-owning-memory): Qt owns the interfaces it is given

namespace corvane::qt {

namespace {

/// A widget with its own role; a button can be pressed.
class RoleInterface : public QAccessibleWidget {
  public:
    RoleInterface(QWidget *widget, const AccessibleRole &role)
        : QAccessibleWidget(widget, role.accessibleRole()),
          role_(role) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = role() == QAccessible::PageTab;
        state.selected = role_.isAccessiblySelected();
        return state;
    }

    QStringList actionNames() const override {
        return button() ? QStringList{pressAction(), setFocusAction()}
                        : QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override {
        if (button() && name == pressAction()) {
            button()->click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    QAbstractButton *button() const { return qobject_cast<QAbstractButton *>(object()); }

    const AccessibleRole &role_;
};

/// A button whose menu, while open, is its child.
class MenuButtonInterface : public RoleInterface {
  public:
    explicit MenuButtonInterface(MenuButtonWidget *button)
        : RoleInterface(button, *button),
          button_(button) {}

    QAccessible::State state() const override {
        QAccessible::State state = RoleInterface::state();
        state.hasPopup = true;
        return state;
    }

    int childCount() const override { return button_->shownMenu() ? 1 : 0; }

    QAccessibleInterface *child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(button_->shownMenu()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override {
        return child && child->object() == button_->shownMenu() ? 0 : -1;
    }

  private:
    MenuButtonWidget *button_;
};

/// A stepper as a number that can be set.
class StepperInterface : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit StepperInterface(StepperWidget *stepper)
        : QAccessibleWidget(stepper, QAccessible::SpinBox),
          stepper_(stepper) {}

    void *interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return qlonglong(stepper_->stepper().value); }
    QVariant minimumValue() const override { return qlonglong(stepper_->stepper().lowest); }
    QVariant maximumValue() const override { return qlonglong(stepper_->stepper().highest); }
    QVariant minimumStepSize() const override { return qlonglong(stepper_->stepper().step); }

    /// Moves towards the value; a stepper goes one step at a time.
    void setCurrentValue(const QVariant &value) override {
        const qlonglong now = stepper_->stepper().value;
        if (value.toLongLong() != now) {
            stepper_->step(value.toLongLong() > now);
        }
    }

    QStringList actionNames() const override {
        return {increaseAction(), decreaseAction(), setFocusAction()};
    }

    void doAction(const QString &name) override {
        if (name == increaseAction() || name == decreaseAction()) {
            stepper_->step(name == increaseAction());
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    StepperWidget *stepper_;
};

QAccessibleInterface *makeInterface(const QString &, QObject *object) {
    if (auto *stepper = dynamic_cast<StepperWidget *>(object)) {
        return new StepperInterface(stepper);
    }
    if (auto *button = dynamic_cast<MenuButtonWidget *>(object)) {
        return new MenuButtonInterface(button);
    }
    const auto *role = dynamic_cast<AccessibleRole *>(object);
    return role ? new RoleInterface(qobject_cast<QWidget *>(object), *role) : nullptr;
}

} // namespace

void installAccessibleRoles() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

} // namespace corvane::qt

// NOLINTEND(cppcoreguidelines-owning-memory)
