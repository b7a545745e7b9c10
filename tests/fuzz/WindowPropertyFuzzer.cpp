// What other programs put into the properties of their windows, of the root window and of records.

#include "Fuzzing.h"
#include "platform/linux/environment/TextDecoding.h"
#include "platform/x11/click/PressedButtonRecord.h"
#include "platform/x11/windows/WindowInfo.h"

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
Atoms smallAtoms() {
    Atoms atoms;
    xcb_atom_t last = XCB_ATOM_NONE;
    for (const Atoms::Name &name : Atoms::names()) {
        atoms.*name.atom = ++last;
    }
    return atoms;
}

void readWindow(Properties properties) {
    static const Atoms atoms = smallAtoms();
    const WindowProperties window{.type = properties.next(),
                                  .state = properties.next(),
                                  .desktop = properties.next(),
                                  .managedState = properties.next(),
                                  .frameExtents = properties.next(),
                                  .clientFrameExtents = properties.next(),
                                  .name = properties.next(),
                                  .oldName = properties.next()};
    const corvane::Rectangle client{-5, 7, 300, 200};
    const auto info =
        window.info({.window = 1, .client = client, .isMapped = true, .isUnmanaged = false}, atoms,
                    properties.next().number());
    require(info.bounds.width >= 0 && info.bounds.height >= 0, "a window has a size");
    constexpr double furthest = 4 * 32768;
    require(std::max({-info.bounds.x, -info.bounds.y, info.bounds.width, info.bounds.height}) <
                furthest,
            "a window is where a screen can be");
    require(!info.title || utf8Text("x" + *info.title) == "x" + *info.title,
            "a title is valid UTF-8");
    require(info.layer >= 0, "no window is below the ordinary ones");
}

void readOwner(Properties properties) {
    const OwnerProperties window{.processIdentifier = properties.next(),
                                 .windowClass = properties.next()};
    const auto owner = window.owner(1, properties.next().number());
    require(owner.processIdentifier.value_or(1) > 0, "a process has a positive number");
    for (const std::string &name : {owner.instanceName, owner.className}) {
        require(utf8Text("x" + name) == "x" + name, "a class name is valid UTF-8");
        require(!name.contains('\0'), "a class name ends at a zero");
    }
}

void readRecord(Properties properties) {
    const PropertyValue property = properties.next();
    if (PressedButtonRecord::Content::in(property)) {
        require(property.format == 32 && property.content.size() / 4 == 2,
                "a record is two numbers and nothing else");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const Properties properties(corvane::fuzz::textOf(data, size));
    readWindow(properties);
    readOwner(properties);
    readRecord(properties);
    return 0;
}
