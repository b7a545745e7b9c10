#include "LinuxBackEnd.h"

#include "EventLoop.h"
#include "RecorderBackEnd.h"

namespace corvane::contract {

bool LinuxBackEnd::turnUntil(const std::function<bool()> &condition) {
    return contract::turnUntil(condition);
}

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make},
            {.name = "Linux", .make = LinuxBackEnd::make}};
}

} // namespace corvane::contract
