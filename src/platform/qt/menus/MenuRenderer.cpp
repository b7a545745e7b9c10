#include "platform/qt/menus/MenuRenderer.h"

#include "platform/drawing/DisplayText.h"
#include "platform/drawing/MenuText.h"
#include "presentation/MenuAlignment.h"

#include <QKeyEvent>
#include <QTimer>

#include <utility>

Q_DECLARE_METATYPE(corvane::MenuItem)

namespace corvane::qt {

namespace {

/// Makes a menu that is taller than the screen scroll instead of breaking into columns.
class ScrollableMenuStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override {
        return hint == SH_Menu_Scrollable
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

QKeySequence keySequence(const MenuItem &item) {
    return item.commandKey.empty()
               ? QKeySequence()
               : QKeySequence(QStringLiteral("Ctrl+") + QString::fromStdString(item.commandKey));
}

/// What an item does, without its appearance.
MenuItem behaviour(const MenuItem &item) {
    return {.title = {},
            .action = item.action,
            .commandKey = item.commandKey,
            .representedObject = item.representedObject};
}

/// Removes the action from its menu; deleted later, because it may be the one being triggered.
void discard(QMenu &menu, QAction &action) {
    menu.removeAction(&action);
    if (auto *submenu = action.menu()) {
        submenu->deleteLater();
    }
    action.deleteLater();
}

} // namespace

/// A menu whose items' keys work while it is open, and only then.
class MenuRenderer::PopupMenu : public QMenu {
  public:
    PopupMenu(MenuRenderer &renderer, QWidget *parent) : QMenu(parent), renderer_(renderer) {
        setStyle(renderer.style_.get());
        setToolTipsVisible(true);
    }

  protected:
    void keyPressEvent(QKeyEvent *event) override {
        if (auto *action = actionFor(QKeySequence(event->keyCombination()))) {
            closeAll();
            action->trigger();
            return;
        }
        QMenu::keyPressEvent(event);
    }

    void changeEvent(QEvent *event) override {
        QMenu::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && renderer_.menu_.get() == this) {
            renderer_.tintImages(*this, renderer_.shown_.items);
        }
    }

  private:
    QAction *actionFor(const QKeySequence &keys) const {
        for (auto *action : renderer_.menu_->actions()) {
            if (action->isEnabled() && !keys.isEmpty() &&
                keySequence(action->data().value<MenuItem>()) == keys) {
                return action;
            }
        }
        return nullptr;
    }

    void closeAll() {
        close();
        renderer_.menu_->close();
    }

    MenuRenderer &renderer_;
};

MenuRenderer::MenuRenderer(drawing::SymbolImages &symbols,
                           std::function<void(const MenuCommand &)> perform)
    : symbols_(symbols),
      perform_(std::move(perform)),
      style_(std::make_unique<ScrollableMenuStyle>()),
      menu_(std::make_unique<PopupMenu>(*this, nullptr)) {
    QObject::connect(menu_.get(), &QMenu::aboutToShow, menu_.get(), [this] { update(); });
}

MenuRenderer::~MenuRenderer() = default;

QMenu &MenuRenderer::menu() {
    update();
    return *menu_;
}

void MenuRenderer::setMenu(const Menu &menu) {
    newest_ = menu;
    if (menu_->isVisible()) {
        update();
    }
}

void MenuRenderer::update() {
    const auto before = std::exchange(shown_, newest_);
    patch(*menu_, before.items, shown_.items);
}

void MenuRenderer::patch(QMenu &menu, const std::vector<MenuItem> &from,
                         const std::vector<MenuItem> &to) {
    const auto alignment = alignMenu(from, to);
    const auto actions = menu.actions();
    const auto gap = static_cast<qsizetype>(alignment.leading);
    const auto gapEnd = gap + static_cast<qsizetype>(alignment.removed);
    for (auto index = gap; index < gapEnd; ++index) {
        discard(menu, *actions[index]);
    }
    auto *behindGap = gapEnd < actions.size() ? actions[gapEnd] : nullptr;
    for (std::size_t index = 0; index < to.size(); ++index) {
        if (index < alignment.leading) {
            patch(*actions[static_cast<qsizetype>(index)], &from[index], to[index]);
        } else if (index < alignment.leading + alignment.inserted) {
            auto *action = makeAction(menu);
            patch(*action, nullptr, to[index]);
            menu.insertAction(behindGap, action);
        } else {
            const auto old = index - alignment.inserted + alignment.removed;
            patch(*actions[static_cast<qsizetype>(old)], &from[old], to[index]);
        }
    }
}

QAction *MenuRenderer::makeAction(QMenu &menu) {
    auto *action = new QAction(&menu); // NOLINT(cppcoreguidelines-owning-memory): the menu owns it
    QObject::connect(action, &QAction::triggered, action, [this, action] { choose(*action); });
    return action;
}

void MenuRenderer::patch(QAction &action, const MenuItem *from, const MenuItem &to) {
    if (from && *from == to) {
        return;
    }
    action.setSeparator(to.isSeparator);
    const auto whole = drawing::menuText(to);
    const auto fitted = drawing::fittedToScreens(whole);
    action.setText(drawing::popupText(fitted));
    action.setToolTip(fitted.label == whole.label ? QString() : drawing::toolTipText(whole.label));
    action.setEnabled(to.isEnabled);
    action.setCheckable(to.isOn);
    action.setChecked(to.isOn);
    if (!from || from->image != to.image) {
        action.setIcon(icon(to));
    }
    patchSubmenu(action, from, to);
    action.setData(QVariant::fromValue(behaviour(to)));
}

void MenuRenderer::patchSubmenu(QAction &action, const MenuItem *from, const MenuItem &to) {
    if (!to.submenu) {
        return;
    }
    if (!action.menu()) {
        auto *parent = qobject_cast<QWidget *>(action.parent());
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the parent menu owns it
        action.setMenu(new PopupMenu(*this, parent));
    }
    static const std::vector<MenuItem> empty;
    patch(*action.menu(), from && from->submenu ? *from->submenu : empty, *to.submenu);
}

QIcon MenuRenderer::icon(const MenuItem &item) {
    return item.image ? symbols_.icon(item.image->name, menu_->palette(), QPalette::Text,
                                      QPalette::HighlightedText)
                      : QIcon();
}

void MenuRenderer::tintImages(QMenu &menu, const std::vector<MenuItem> &items) {
    const auto actions = menu.actions();
    for (std::size_t index = 0; index < items.size(); ++index) {
        auto &action = *actions[static_cast<qsizetype>(index)];
        const auto &item = items[index];
        action.setIcon(icon(item));
        if (item.submenu) {
            tintImages(*action.menu(), *item.submenu);
        }
    }
}

void MenuRenderer::choose(QAction &action) {
    // QAction toggles the check mark; it follows the menu value alone.
    action.setChecked(action.isCheckable());
    const auto item = action.data().value<MenuItem>();
    if (item.action == ActionID::none) {
        return;
    }
    QTimer::singleShot(0, menu_.get(), [perform = perform_, item] {
        perform({item.action, item.representedObject});
    });
}

} // namespace corvane::qt
