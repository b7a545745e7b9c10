// The settings file.

#include "Fuzzing.h"
#include "model/Json.h"

using namespace corvane;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto config = decodeConfig(fuzz::textOf(data, size));
    if (!config) {
        require(!config.error().description.empty(), "a failure has a reason");
        return 0;
    }
    require(config->clickInterval() > 0, "the interval is positive");
    require(!config->maxClicksLabel().empty(), "the limit has a label");
    require(!config->zoneRect || !config->zoneRect->sizeLabel().empty(), "the zone has a label");
    const auto text = encodeConfig(*config);
    require(text.has_value(), "what was read can be written");
    require(decodeConfig(*text) == *config, "what was written is read as the same");
    return 0;
}
