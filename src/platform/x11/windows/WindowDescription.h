#pragma once

#include "platform/x11/connection/PropertyValue.h"
#include "platform/x11/windows/WindowAtoms.h"
#include "platform/x11/windows/WindowInfo.h"
#include "support/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::x11 {

/// What a window and its window manager say of it, in properties that may hold anything.
struct WindowDescription {
    /// What the server knows, which is true.
    struct ServerFacts {
        xcb_window_t window = XCB_WINDOW_NONE;
        /// Without any frame; the root window's pixels.
        Rectangle client{};
        bool isMapped = false;
        /// Window managers have no hand in it.
        bool isUnmanaged = false;
    };

    PropertyValue type;
    PropertyValue state;
    PropertyValue desktop;
    PropertyValue managedState;
    PropertyValue frameExtents;
    PropertyValue clientFrameExtents;
    PropertyValue name;
    PropertyValue oldName;

    WindowInfo facts(const ServerFacts &server, const WindowAtoms &atoms,
                     std::optional<std::uint32_t> currentDesktop) const;

  private:
    Rectangle bounds(const Rectangle &client) const;
    bool isMinimised(const WindowAtoms &atoms) const;
    bool isElsewhere(std::optional<std::uint32_t> currentDesktop) const;
    std::optional<std::string> title(const WindowAtoms &atoms) const;
};

/// What a window says of the program it belongs to.
struct OwnerDescription {
    PropertyValue processIdentifier;
    PropertyValue windowClass;

    /// What the server knows of its client's process counts more than what the window says: a
    /// program in a sandbox has another number there.
    WindowOwner owner(xcb_window_t window, std::optional<std::uint32_t> processOfClient) const;
};

} // namespace corvane::x11
