#include "support/recorder/RecordedStatusItem.h"

#include <gtest/gtest.h>

namespace corvane::testing {

namespace {

const MenuItem *findItem(const std::vector<MenuItem> &items, const std::string &title) {
    for (const MenuItem &item : items) {
        if (item.title == title && !item.isSeparator) {
            return &item;
        }
        const MenuItem *inside = item.submenu ? findItem(*item.submenu, title) : nullptr;
        if (inside != nullptr) {
            return inside;
        }
    }
    return nullptr;
}

} // namespace

std::vector<std::string> RecordedStatusItem::titles() const {
    std::vector<std::string> result;
    if (menu) {
        for (const MenuItem &item : menu->items) {
            result.push_back(item.title);
        }
    }
    return result;
}

const MenuItem *RecordedStatusItem::find(const std::string &title) const {
    return menu ? findItem(menu->items, title) : nullptr;
}

void RecordedStatusItem::choose(const std::string &title) {
    const MenuItem *item = find(title);
    ASSERT_NE(item, nullptr) << "no menu item \"" << title << '"';
    ASSERT_TRUE(item->isEnabled && item->action != ActionID::none)
        << '"' << title << "\" cannot be chosen";
    perform({item->action, item->representedObject});
}

void RecordedStatusItem::perform(const MenuCommand &command) {
    // A copy: the command may destroy the item.
    const auto perform = perform_;
    ASSERT_TRUE(perform);
    perform(command);
}

} // namespace corvane::testing
