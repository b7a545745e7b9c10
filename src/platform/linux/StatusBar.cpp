#include "platform/linux/StatusBar.h"

#include "platform/linux/StatusItem.h"

#include <utility>

namespace corvane::x11 {

std::unique_ptr<platform::StatusItem>
LinuxStatusBar::createItem(std::function<void(const MenuCommand &)> perform) {
    return std::make_unique<LinuxStatusItem>(events_, std::move(perform));
}

} // namespace corvane::x11
