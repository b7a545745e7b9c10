#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>

namespace corvane::desktop {

/// What a target window is opened with.
struct TargetWindowSettings {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    /// 0 for no word about the process, -1 for the truth.
    int pid = -1;
    bool isFullscreen = false;
    bool isOverride = false;
    std::uint32_t ownShadow = 0;
    /// The name of its _NET_WM_WINDOW_TYPE; empty for none.
    std::string type;
    std::string className;
    std::string title;
};

/// A window that gets clicks. Closed with its owner.
class TargetWindow {
  public:
    /// The connection outlives it.
    TargetWindow(xcb_connection_t *connection, const TargetWindowSettings &settings);
    TargetWindow(const TargetWindow &) = delete;
    TargetWindow &operator=(const TargetWindow &) = delete;
    ~TargetWindow();

    xcb_window_t id() const { return id_; }
    void moveTo(std::int32_t x, std::int32_t y) const;
    void setTitle(const std::string &title) const;

  private:
    void create(const TargetWindowSettings &settings) const;
    void describe(const TargetWindowSettings &settings) const;
    void setPosition(const TargetWindowSettings &settings) const;
    void setText(const char *property, const char *type, const std::string &text) const;
    void setNumbers(const char *property, xcb_atom_t type, const std::uint32_t *values,
                    std::uint32_t count) const;
    xcb_atom_t atom(const std::string &name) const;

    xcb_connection_t *connection_;
    xcb_window_t id_;
};

} // namespace corvane::desktop
