// What users type into fields, and the stored values and identifiers that menus give back.

#include "Fuzzing.h"
#include "model/ClickMode.h"
#include "model/TimeUnit.h"
#include "model/Uuid.h"
#include "presentation/WholeNumber.h"
#include "support/WhiteSpace.h"

#include <string>

using namespace corvane;
using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    if (const auto number = wholeNumber(text)) {
        require(wholeNumber(wholeNumberText(*number)) == number, "a number is read as written");
    }
    if (const auto uuid = Uuid::fromText(text)) {
        require(Uuid::fromText(uuid->text()) == uuid, "an identifier is read as written");
    }
    if (const auto mode = clickModeFromStoredValue(text)) {
        require(storedValue(*mode) == text, "a mode is stored as read");
    }
    if (const auto unit = timeUnitFromStoredValue(text)) {
        require(storedValue(*unit) == text, "a unit is stored as read");
    }
    const std::string name = withoutBlanks(text);
    require(withoutBlanks(name) == name && text.contains(name), "a trimmed name stays");
    const std::string core = withoutWhiteSpace(text);
    require(withoutWhiteSpace(core) == core && name.contains(core), "a trimmed text stays");
    return 0;
}
