#include "platform/linux/LinuxStatusBar.h"

#include "platform/linux/LinuxStatusItem.h"

#include <utility>

namespace corvane::platform {

std::unique_ptr<StatusItem>
LinuxStatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    return std::make_unique<LinuxStatusItem>(events_, std::move(perform));
}

} // namespace corvane::platform
