#include "platform/x11/windows/WindowWatch.h"

#include "platform/x11/connection/XcbEvents.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane::x11 {

namespace {

/// The list is read again after this time, for window managers that change it without an event.
constexpr std::chrono::milliseconds longestTrustInList(500);

} // namespace

WindowWatch::WindowWatch(const XcbConnection &connection)
    : connection_(connection),
      masks_(connection),
      reader_(connection) {}

void WindowWatch::catchUp() {
    if (!rootEvents_) {
        rootEvents_.emplace(masks_.select(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE));
    }
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
}

/// Without this, unread events would pile up.
void WindowWatch::rest() {
    rootEvents_.reset();
    watched_.clear();
    windows_.reset();
    // Meanwhile a window may go and another get its number.
    owners_.reset();
    connection_.flush();
}

std::shared_ptr<const WindowWatch::Owners> WindowWatch::owners() {
    if (!owners_ || isListStale_ || Clock::now() - listRead_ >= longestTrustInList) {
        refreshList();
    }
    return owners_;
}

/// Reads the owners of new windows only, because a window keeps its owner.
void WindowWatch::refreshList() {
    const std::vector<xcb_window_t> windows = reader_.windows();
    std::map<xcb_window_t, WindowOwner> known;
    if (owners_) {
        for (const WindowOwner &owner : *owners_) {
            known.emplace(owner.window, owner);
        }
    }
    std::vector<xcb_window_t> unknown;
    std::ranges::copy_if(windows, std::back_inserter(unknown),
                         [&known](xcb_window_t window) { return !known.contains(window); });
    for (WindowOwner &owner : reader_.owners(unknown)) {
        known.emplace(owner.window, std::move(owner));
    }
    auto owners = std::make_shared<Owners>();
    for (const xcb_window_t window : windows) {
        owners->push_back(known.at(window));
    }
    owners_ = std::move(owners);
    windows_.reset();
    isListStale_ = false;
    listRead_ = Clock::now();
}

std::vector<WindowOwner> WindowWatch::topLevelOwners() const {
    return reader_.owners(reader_.topLevelWindows());
}

std::shared_ptr<const WindowWatch::Windows>
WindowWatch::windowsOf(const std::set<std::int32_t> &processes) {
    const auto owners = this->owners();
    if (processes != watchedProcesses_) {
        watched_.clear();
        windows_.reset();
        watchedProcesses_ = processes;
    }
    if (windows_) {
        return windows_;
    }
    std::vector<xcb_window_t> windows;
    for (const WindowOwner &owner : *owners) {
        if (owner.processIdentifier && processes.contains(*owner.processIdentifier)) {
            windows.push_back(owner.window);
        }
    }
    refresh(windows);
    auto found = std::make_shared<Windows>();
    for (const xcb_window_t window : windows) {
        const auto watched = watched_.find(window);
        if (watched != watched_.end() && watched->second.info->layer == 0 &&
            !watched->second.info->isDesktop) {
            found->push_back(watched->second.info);
        }
    }
    windows_ = std::move(found);
    return windows_;
}

void WindowWatch::refresh(const std::vector<xcb_window_t> &windows) {
    std::vector<xcb_window_t> stale;
    for (const xcb_window_t window : windows) {
        Watched &watched = watch(window);
        if (watched.isStale) {
            stale.push_back(window);
        } else if (const auto origin = watched.ancestry->origin();
                   origin && origin != watched.info->origin) {
            watched.info = std::make_shared<const WindowInfo>(watched.info->at(*origin));
        }
    }
    if (!stale.empty()) {
        readAgain(stale);
    }
}

void WindowWatch::readAgain(const std::vector<xcb_window_t> &stale) {
    auto read = reader_.info(stale);
    for (const xcb_window_t window : stale) {
        const auto found = std::ranges::find(read, window, &WindowInfo::window);
        if (found == read.end()) {
            watched_.erase(window);
            continue;
        }
        Watched &watched = watched_.at(window);
        watched.info = std::make_shared<const WindowInfo>(std::move(*found));
        watched.isStale = false;
    }
}

WindowWatch::Watched &WindowWatch::watch(xcb_window_t window) {
    const auto [entry, isNew] = watched_.try_emplace(window);
    Watched &watched = entry->second;
    if (isNew) {
        watched.events =
            masks_.select(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    if (!watched.ancestry) {
        watched.ancestry.emplace(connection_, masks_, window);
    }
    return watched;
}

void WindowWatch::handle(const xcb_generic_event_t &event) {
    switch (XcbEvents::typeOf(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (change.window == connection_.root()) {
            rootChanged(change.atom);
        } else if (isOfInterest(change.atom)) {
            windowChanged(change.window, false);
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        // A window manager's synthetic events repeat in other coordinates what the server's report.
        if (!XcbEvents::isSentByClient(event)) {
            windowMoved(reinterpret_cast<const xcb_configure_notify_event_t &>(event).window,
                        event);
        }
        break;
    case XCB_GRAVITY_NOTIFY:
        windowMoved(reinterpret_cast<const xcb_gravity_notify_event_t &>(event).window, event);
        break;
    case XCB_MAP_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_map_notify_event_t &>(event).window, false);
        break;
    case XCB_UNMAP_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window, false);
        break;
    case XCB_DESTROY_NOTIFY: {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
        windowChanged(window, false);
        watched_.erase(window);
        break;
    }
    case XCB_REPARENT_NOTIFY:
        windowChanged(reinterpret_cast<const xcb_reparent_notify_event_t &>(event).window, true);
        break;
    default:
        break;
    }
}

void WindowWatch::rootChanged(xcb_atom_t property) {
    const Atoms &atoms = connection_.atoms();
    if (property == atoms.clientList || property == atoms.supportingWmCheck) {
        // A new window may have got the number of one that has gone.
        owners_.reset();
    } else if (property == atoms.clientListStacking) {
        isListStale_ = true;
    } else if (property == atoms.currentDesktop) {
        for (auto &[window, watched] : watched_) {
            markStale(watched);
        }
    }
}

void WindowWatch::windowChanged(xcb_window_t window, bool isReparented) {
    for (auto &[client, watched] : watched_) {
        if (client == window || watched.isIn(window)) {
            markStale(watched);
            if (isReparented) {
                watched.ancestry.reset();
            }
        }
    }
}

/// Follows a window that is dragged without a request.
void WindowWatch::windowMoved(xcb_window_t window, const xcb_generic_event_t &event) {
    for (auto &[client, watched] : watched_) {
        if (watched.isIn(window)) {
            windows_.reset();
            watched.isStale = !watched.ancestry->update(event) || watched.isStale;
        }
    }
}

void WindowWatch::markStale(Watched &watched) {
    watched.isStale = true;
    windows_.reset();
}

bool WindowWatch::isOfInterest(xcb_atom_t property) const {
    const Atoms &atoms = connection_.atoms();
    const std::array known{atoms.name,
                           atoms.state,
                           atoms.wmState,
                           atoms.desktop,
                           atoms.type,
                           atoms.frameExtents,
                           atoms.clientFrameExtents,
                           static_cast<xcb_atom_t>(XCB_ATOM_WM_NAME)};
    return std::ranges::find(known, property) != known.end();
}

} // namespace corvane::x11
