#include "RecorderBackEnd.h"

namespace corvane::contract {

std::vector<BackEndKind> backEndKinds() {
    return {{.name = "Recorder", .make = RecorderBackEnd::make}};
}

} // namespace corvane::contract
