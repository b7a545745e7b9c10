#pragma once

#include "DisplayConnection.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::contract {

/// A window made for a test, that says of itself what the test wants. Each call returns when the
/// server has carried it out, which does not mean that a window manager has.
class SampleWindow {
  public:
    struct Options {
        std::int16_t x = 100;
        std::int16_t y = 100;
        std::uint16_t width = 300;
        std::uint16_t height = 200;
        /// Whether window managers leave it alone.
        bool isOverride = false;
        bool isInputOnly = false;
    };

    /// Not on screen yet. The connection outlives the window.
    SampleWindow(const desktop::DisplayConnection &connection, const Options &options);
    explicit SampleWindow(const desktop::DisplayConnection &connection)
        : SampleWindow(connection, Options{}) {}
    ~SampleWindow();

    SampleWindow(const SampleWindow &) = delete;
    SampleWindow &operator=(const SampleWindow &) = delete;

    xcb_window_t id() const { return id_; }

    void map() const;
    void unmap() const;
    void raise() const;
    void moveTo(std::int16_t x, std::int16_t y) const;
    void resizeTo(std::uint16_t width, std::uint16_t height) const;

    /// Fills it, each part from 0 to 255.
    void setColour(int red, int green, int blue) const;

    /// Makes it an icon, and a window again.
    void minimise() const;
    void restore() const { map(); }

    /// The title in UTF-8, as today's programs give it.
    void setTitle(std::string_view title) const;
    void setText(std::string_view property, std::string_view type, std::string_view bytes) const;
    void setNumbers(std::string_view property, std::string_view type,
                    const std::vector<std::uint32_t> &values) const;
    /// Puts the names of atoms into a property.
    void setAtoms(std::string_view property, const std::vector<std::string> &names) const;

    /// Sends the window manager a request by a message to the root window.
    void ask(std::string_view message, const std::vector<std::uint32_t> &values) const {
        connection_.askWindowManager(id_, message, values);
    }

  private:
    const desktop::DisplayConnection &connection_;
    const xcb_window_t id_;
};

} // namespace corvane::contract
