// The profiles file.

#include "Fuzzing.h"
#include "model/Json.h"

using namespace corvane;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto store = decodeProfileStore(fuzz::textOf(data, size));
    if (!store) {
        require(!store.error().description.empty(), "a failure has a reason");
        return 0;
    }
    const auto text = encodeProfileStore(*store);
    require(text.has_value(), "what was read can be written");
    require(decodeProfileStore(*text) == *store, "what was written is read as the same");
    return 0;
}
