// What other programs put into the properties of their windows, of the root window and of marks.

#include "Fuzzing.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/x11/click/PressedButtonValue.h"
#include "platform/x11/windows/WindowDescription.h"

#include <algorithm>
#include <array>

using namespace corvane::linux;
using namespace corvane::x11;
using corvane::fuzz::require;

namespace {

/// Every property comes as four bytes, its type, its format and its length in two, and the content.
class Properties {
  public:
    explicit Properties(std::string_view input) : rest_(input) {}

    PropertyValue next() {
        if (rest_.size() < 4) {
            return {};
        }
        constexpr std::array formats{0, 8, 16, 32};
        const std::size_t length = 256 * byte(2) + byte(3);
        const PropertyValue value{.type = static_cast<xcb_atom_t>(byte(0)),
                                  .format = formats[byte(1) % formats.size()],
                                  .content = rest_.substr(4, length)};
        rest_.remove_prefix(4 + value.content.size());
        return value;
    }

  private:
    std::size_t byte(std::size_t place) const { return static_cast<unsigned char>(rest_[place]); }

    std::string_view rest_;
};

/// Small numbers, which properties name easily.
const WindowAtoms atoms{.utf8String = 1,
                        .compoundText = 2,
                        .wmState = 3,
                        .supportingWmCheck = 4,
                        .clientList = 5,
                        .clientListStacking = 7,
                        .currentDesktop = 8,
                        .name = 9,
                        .processIdentifier = 10,
                        .desktop = 11,
                        .frameExtents = 12,
                        .clientFrameExtents = 13,
                        .state = 14,
                        .stateHidden = 15,
                        .type = 16,
                        .typeNormal = 17,
                        .typeDialog = 18,
                        .typeUtility = 19,
                        .typeDesktop = 20,
                        .typeDock = 21,
                        .typeToolbar = 22,
                        .typeMenu = 23,
                        .typeDropdownMenu = 24,
                        .typePopupMenu = 25,
                        .typeCombo = 26,
                        .typeTooltip = 27,
                        .typeNotification = 28,
                        .typeSplash = 29,
                        .typeDragged = 30};

void readWindow(Properties properties) {
    const WindowDescription description{.type = properties.next(),
                                        .state = properties.next(),
                                        .desktop = properties.next(),
                                        .managedState = properties.next(),
                                        .frameExtents = properties.next(),
                                        .clientFrameExtents = properties.next(),
                                        .name = properties.next(),
                                        .oldName = properties.next()};
    const corvane::Rectangle client{-5, 7, 300, 200};
    const auto facts =
        description.facts({.window = 1, .client = client, .isMapped = true, .isUnmanaged = false},
                          atoms, properties.next().number());
    require(facts.bounds.width >= 0 && facts.bounds.height >= 0, "a window has a size");
    constexpr double furthest = 4 * 32768;
    require(std::max({-facts.bounds.x, -facts.bounds.y, facts.bounds.width, facts.bounds.height}) <
                furthest,
            "a window is where a screen can be");
    require(!facts.title || utf8Text("x" + *facts.title) == "x" + *facts.title,
            "a title is valid UTF-8");
    require(facts.layer >= 0, "no window is below the ordinary ones");
}

void readOwner(Properties properties) {
    const OwnerDescription description{.processIdentifier = properties.next(),
                                       .windowClass = properties.next()};
    const auto owner = description.owner(1, properties.next().number());
    require(owner.processIdentifier.value_or(1) > 0, "a process has a positive number");
    for (const std::string &name : {owner.instanceName, owner.className}) {
        require(utf8Text("x" + name) == "x" + name, "a class name is valid UTF-8");
        require(!name.contains('\0'), "a class name ends at a zero");
    }
}

void readMark(Properties properties) {
    const PropertyValue property = properties.next();
    if (ButtonMarkValue::in(property)) {
        require(property.format == 32 && property.content.size() / 4 == 2,
                "a mark is two numbers and nothing else");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const Properties properties(corvane::fuzz::textOf(data, size));
    readWindow(properties);
    readOwner(properties);
    readMark(properties);
    return 0;
}
