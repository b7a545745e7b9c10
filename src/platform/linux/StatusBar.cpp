#include "platform/linux/StatusBar.h"

#include "platform/linux/StatusItem.h"

#include <utility>

namespace corvane::linux {

std::unique_ptr<platform::StatusItem>
StatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    return std::make_unique<StatusItem>(events_, std::move(perform));
}

} // namespace corvane::linux
