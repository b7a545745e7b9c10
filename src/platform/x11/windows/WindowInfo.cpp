#include "platform/x11/windows/WindowInfo.h"

#include "platform/linux/environment/TextDecoding.h"

#include <algorithm>
#include <array>

namespace corvane::x11 {

namespace {

/// Only whether a layer is zero matters.
constexpr std::int64_t ordinaryLayer = 0;
constexpr std::int64_t specialLayer = 1;

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
constexpr std::uint32_t normalState = 1;

struct Extents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// Absent when the property holds anything else than four possible widths.
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

/// The first type that is known: a window lists its most special type first and fallbacks after it.
xcb_atom_t knownType(const PropertyValue &property, const Atoms &atoms) {
    const std::array known{atoms.typeNormal,  atoms.typeDialog,       atoms.typeUtility,
                           atoms.typeDesktop, atoms.typeDock,         atoms.typeToolbar,
                           atoms.typeMenu,    atoms.typeDropdownMenu, atoms.typePopupMenu,
                           atoms.typeCombo,   atoms.typeTooltip,      atoms.typeNotification,
                           atoms.typeSplash,  atoms.typeDragged};
    const auto types = property.numbers();
    const auto first = std::ranges::find_first_of(types, known);
    return first != types.end() ? *first : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::int64_t layerOf(xcb_atom_t type, bool isUnmanaged, const Atoms &atoms) {
    const std::array special{atoms.typeDock,      atoms.typeToolbar,      atoms.typeMenu,
                             atoms.typePopupMenu, atoms.typeDropdownMenu, atoms.typeCombo,
                             atoms.typeTooltip,   atoms.typeNotification, atoms.typeSplash,
                             atoms.typeDragged};
    const bool isSpecial = std::ranges::find(special, type) != special.end();
    return isSpecial || isUnmanaged ? specialLayer : ordinaryLayer;
}

std::optional<std::int32_t> positive(std::uint32_t number) {
    const auto identifier = static_cast<std::int32_t>(number);
    return identifier > 0 ? std::optional(identifier) : std::nullopt;
}

} // namespace

WindowInfo WindowProperties::info(const ServerInfo &server, const Atoms &atoms,
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

Rectangle WindowProperties::bounds(const Rectangle &client) const {
    const auto frame = extentsOf(frameExtents);
    const auto shadow = extentsOf(clientFrameExtents);
    if (shadow && fitsInto(client, *shadow)) {
        return grown(client, *shadow, -1);
    }
    return frame ? grown(client, *frame, 1) : client;
}

bool WindowProperties::isMinimised(const Atoms &atoms) const {
    const auto states = state.numbers();
    const auto managed = managedState.number();
    return std::ranges::find(states, atoms.stateHidden) != states.end() ||
           (managed && *managed != normalState);
}

bool WindowProperties::isElsewhere(std::optional<std::uint32_t> currentDesktop) const {
    const auto own = desktop.number();
    return own && currentDesktop && *own != everyDesktop && *own != *currentDesktop;
}

std::optional<std::string> WindowProperties::title(const Atoms &atoms) const {
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

WindowOwner OwnerProperties::owner(xcb_window_t window,
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
