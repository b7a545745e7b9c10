#include "platform/x11/windows/WindowDescription.h"

#include "platform/linux/environment/TextDecoding.h"

#include <algorithm>
#include <array>

namespace corvane::x11 {

namespace {

/// As macOS counts them; only being zero or not matters.
namespace layer {
constexpr std::int64_t normal = 0;
constexpr std::int64_t floating = 3;
constexpr std::int64_t splash = 8;
constexpr std::int64_t dock = 20;
constexpr std::int64_t notification = 25;
constexpr std::int64_t menu = 101;
constexpr std::int64_t tooltip = 102;
constexpr std::int64_t dragged = 500;
} // namespace layer

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
constexpr std::uint32_t normalState = 1;

struct Extents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// Nothing where the window does not say, or what cannot be: no window is wider than that.
std::optional<Extents> extentsOf(const PropertyValue &property) {
    constexpr std::uint32_t widest = 32767;
    const auto values = property.numbers();
    if (values.size() != 4 || std::ranges::max(values) > widest) {
        return std::nullopt;
    }
    return Extents{double(values[0]), double(values[1]), double(values[2]), double(values[3])};
}

bool fitsInto(const Rectangle &bounds, const Extents &extents) {
    return extents.left + extents.right <= bounds.width &&
           extents.top + extents.bottom <= bounds.height;
}

Rectangle grown(const Rectangle &bounds, const Extents &extents, double sign) {
    return {bounds.x - sign * extents.left, bounds.y - sign * extents.top,
            bounds.width + sign * (extents.left + extents.right),
            bounds.height + sign * (extents.top + extents.bottom)};
}

/// The first type that is known: windows name special ones first and ordinary ones to fall back on.
xcb_atom_t knownType(const PropertyValue &property, const WindowAtoms &atoms) {
    const std::array known{atoms.typeNormal,  atoms.typeDialog,       atoms.typeUtility,
                           atoms.typeDesktop, atoms.typeDock,         atoms.typeToolbar,
                           atoms.typeMenu,    atoms.typeDropdownMenu, atoms.typePopupMenu,
                           atoms.typeCombo,   atoms.typeTooltip,      atoms.typeNotification,
                           atoms.typeSplash,  atoms.typeDragged};
    const auto types = property.numbers();
    const auto first = std::ranges::find_first_of(types, known);
    return first != types.end() ? *first : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::int64_t layerOf(xcb_atom_t type, bool isUnmanaged, const WindowAtoms &atoms) {
    if (type == atoms.typeDock) {
        return layer::dock;
    }
    if (type == atoms.typeToolbar) {
        return layer::floating;
    }
    if (type == atoms.typeSplash) {
        return layer::splash;
    }
    if (type == atoms.typeNotification) {
        return layer::notification;
    }
    if (type == atoms.typeTooltip) {
        return layer::tooltip;
    }
    if (type == atoms.typeDragged) {
        return layer::dragged;
    }
    const std::array menus{atoms.typeMenu, atoms.typeDropdownMenu, atoms.typePopupMenu,
                           atoms.typeCombo};
    const bool isMenu = std::ranges::find(menus, type) != menus.end();
    return isMenu || isUnmanaged ? layer::menu : layer::normal;
}

std::optional<std::int32_t> positive(std::uint32_t number) {
    const auto identifier = static_cast<std::int32_t>(number);
    return identifier > 0 ? std::optional(identifier) : std::nullopt;
}

} // namespace

WindowInfo WindowDescription::facts(const ServerFacts &server, const WindowAtoms &atoms,
                                    std::optional<std::uint32_t> currentDesktop) const {
    const xcb_atom_t windowType = knownType(type, atoms);
    return {.window = server.window,
            .bounds = bounds(server.client),
            .origin = {server.client.x, server.client.y},
            .isOnScreen = server.isMapped && !isMinimised(atoms) && !isElsewhere(currentDesktop),
            .isDesktop = windowType == atoms.typeDesktop,
            .layer = layerOf(windowType, server.isUnmanaged, atoms),
            .title = title(atoms)};
}

Rectangle WindowDescription::bounds(const Rectangle &client) const {
    const auto frame = extentsOf(frameExtents);
    const auto shadow = extentsOf(clientFrameExtents);
    if (shadow && fitsInto(client, *shadow)) {
        return grown(client, *shadow, -1);
    }
    return frame ? grown(client, *frame, 1) : client;
}

bool WindowDescription::isMinimised(const WindowAtoms &atoms) const {
    const auto states = state.numbers();
    const auto managed = managedState.number();
    return std::ranges::find(states, atoms.stateHidden) != states.end() ||
           (managed && *managed != normalState);
}

bool WindowDescription::isElsewhere(std::optional<std::uint32_t> currentDesktop) const {
    const auto own = desktop.number();
    return own && currentDesktop && *own != everyDesktop && *own != *currentDesktop;
}

std::optional<std::string> WindowDescription::title(const WindowAtoms &atoms) const {
    if (name.type != XCB_ATOM_NONE) {
        return linux::utf8Text(name.text());
    }
    if (oldName.type == XCB_ATOM_NONE) {
        return std::nullopt;
    }
    if (oldName.type == atoms.utf8String) {
        return linux::utf8Text(oldName.text());
    }
    return oldName.type == atoms.compoundText ? linux::compoundText(oldName.text())
                                              : linux::latin1Text(oldName.text());
}

WindowOwner OwnerDescription::owner(xcb_window_t window,
                                    std::optional<std::uint32_t> processOfClient) const {
    WindowOwner owner{.window = window};
    if (processOfClient) {
        owner.processIdentifier = positive(*processOfClient);
    }
    const auto said = processIdentifier.number();
    if (!owner.processIdentifier && said) {
        owner.processIdentifier = positive(*said);
    }
    const std::string_view names = windowClass.bytes();
    const std::string_view instance = names.substr(0, names.find('\0'));
    const std::string_view rest = names.substr(std::min(instance.size() + 1, names.size()));
    owner.instanceName = linux::latin1Text(instance);
    owner.className = linux::latin1Text(rest.substr(0, rest.find('\0')));
    return owner;
}

} // namespace corvane::x11
