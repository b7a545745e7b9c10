#include "platform/linux/WindowFactsRequest.h"

#include "platform/linux/WindowTitle.h"

#include <algorithm>
#include <array>

namespace corvane::x11 {

namespace {

/// The numbers the specified system gives such windows; only being zero or not matters.
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

template <auto ask, typename Cookie>
auto answerOf(const XcbConnection &connection, Cookie cookie) {
    xcb_generic_error_t *error = nullptr;
    auto *reply = ask(connection.get(), cookie, &error);
    const XcbReply<xcb_generic_error_t> ignored(error);
    return XcbReply<std::remove_pointer_t<decltype(reply)>>(reply);
}

struct Extents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// Nothing where the window does not say, or what cannot be: no window is wider than that.
std::optional<Extents> extentsOf(WindowProperty &property) {
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

} // namespace

WindowFactsRequest::WindowFactsRequest(const XcbConnection &connection, const WindowAtoms &atoms,
                                       xcb_window_t window)
    : connection_(connection),
      atoms_(atoms),
      window_(window),
      attributes_(xcb_get_window_attributes(connection.get(), window)),
      geometry_(xcb_get_geometry(connection.get(), window)),
      position_(xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0)),
      type_(connection, window, atoms.type),
      state_(connection, window, atoms.state),
      desktop_(connection, window, atoms.desktop),
      managedState_(connection, window, atoms.wmState),
      frameExtents_(connection, window, atoms.frameExtents),
      clientFrameExtents_(connection, window, atoms.clientFrameExtents),
      name_(connection, window, atoms.name),
      oldName_(connection, window, XCB_ATOM_WM_NAME) {}

std::optional<WindowFacts> WindowFactsRequest::answer(std::optional<std::uint32_t> currentDesktop) {
    const auto attributes = answerOf<xcb_get_window_attributes_reply>(connection_, attributes_);
    const auto bounds = readBounds();
    // Every answer is taken, also where the first ones already tell that the window is gone.
    const bool isMinimisedNow = isMinimised();
    const bool isElsewhereNow = isElsewhere(currentDesktop);
    const xcb_atom_t type = readType();
    auto title = readTitle();
    if (!attributes || !bounds || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY) {
        return std::nullopt;
    }
    const bool isMapped = attributes->map_state != XCB_MAP_STATE_UNMAPPED;
    return WindowFacts{.window = window_,
                       .bounds = *bounds,
                       .isOnScreen = isMapped && !isMinimisedNow && !isElsewhereNow,
                       .isDesktop = type == atoms_.typeDesktop,
                       .layer = layerOf(type, attributes->override_redirect != 0),
                       .title = std::move(title)};
}

std::optional<Rectangle> WindowFactsRequest::readBounds() {
    const auto geometry = answerOf<xcb_get_geometry_reply>(connection_, geometry_);
    const auto position = answerOf<xcb_translate_coordinates_reply>(connection_, position_);
    const auto frame = extentsOf(frameExtents_);
    const auto shadow = extentsOf(clientFrameExtents_);
    if (!geometry || !position) {
        return std::nullopt;
    }
    const Rectangle client{double(position->dst_x), double(position->dst_y),
                           double(geometry->width), double(geometry->height)};
    if (shadow && fitsInto(client, *shadow)) {
        return grown(client, *shadow, -1);
    }
    return frame ? grown(client, *frame, 1) : client;
}

bool WindowFactsRequest::isMinimised() {
    const auto states = state_.numbers();
    const auto managed = managedState_.number();
    return std::ranges::find(states, atoms_.stateHidden) != states.end() ||
           (managed && *managed != normalState);
}

bool WindowFactsRequest::isElsewhere(std::optional<std::uint32_t> currentDesktop) {
    const auto desktop = desktop_.number();
    return desktop && currentDesktop && *desktop != everyDesktop && *desktop != *currentDesktop;
}

/// The first type that is known: windows name special ones first and ordinary ones to fall back on.
xcb_atom_t WindowFactsRequest::readType() {
    const std::array known{atoms_.typeNormal,  atoms_.typeDialog,       atoms_.typeUtility,
                           atoms_.typeDesktop, atoms_.typeDock,         atoms_.typeToolbar,
                           atoms_.typeMenu,    atoms_.typeDropdownMenu, atoms_.typePopupMenu,
                           atoms_.typeCombo,   atoms_.typeTooltip,      atoms_.typeNotification,
                           atoms_.typeSplash,  atoms_.typeDragged};
    const auto types = type_.numbers();
    const auto first = std::ranges::find_first_of(types, known);
    return first != types.end() ? *first : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::int64_t WindowFactsRequest::layerOf(xcb_atom_t type, bool isUnmanaged) const {
    if (type == atoms_.typeDock) {
        return layer::dock;
    }
    if (type == atoms_.typeToolbar) {
        return layer::floating;
    }
    if (type == atoms_.typeSplash) {
        return layer::splash;
    }
    if (type == atoms_.typeNotification) {
        return layer::notification;
    }
    if (type == atoms_.typeTooltip) {
        return layer::tooltip;
    }
    if (type == atoms_.typeDragged) {
        return layer::dragged;
    }
    const std::array menus{atoms_.typeMenu, atoms_.typeDropdownMenu, atoms_.typePopupMenu,
                           atoms_.typeCombo};
    const bool isMenu = std::ranges::find(menus, type) != menus.end();
    return isMenu || isUnmanaged ? layer::menu : layer::normal;
}

std::optional<std::string> WindowFactsRequest::readTitle() {
    const xcb_atom_t nameType = name_.type();
    const xcb_atom_t oldNameType = oldName_.type();
    if (nameType != XCB_ATOM_NONE) {
        return utf8Text(name_.text());
    }
    if (oldNameType == XCB_ATOM_NONE) {
        return std::nullopt;
    }
    if (oldNameType == atoms_.utf8String) {
        return utf8Text(oldName_.text());
    }
    return oldNameType == atoms_.compoundText ? compoundText(oldName_.text())
                                              : latin1Text(oldName_.text());
}

} // namespace corvane::x11
