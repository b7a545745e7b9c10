#include "SampleWindow.h"

#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <array>

namespace corvane::contract {

SampleWindow::SampleWindow(const desktop::DisplayConnection &connection, const Options &options)
    : connection_(connection),
      id_(xcb_generate_id(connection.get())) {
    const std::uint32_t isOverride = options.isOverride ? 1 : 0;
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, id_, connection.root(), options.x,
                      options.y, options.width, options.height, 0,
                      options.isInputOnly ? XCB_WINDOW_CLASS_INPUT_ONLY
                                          : XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &isOverride);
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_position(&hints, 1, options.x, options.y);
    xcb_icccm_set_wm_normal_hints(connection.get(), id_, &hints);
    connection.synchronize();
}

SampleWindow::~SampleWindow() {
    xcb_destroy_window(connection_.get(), id_);
    connection_.synchronize();
}

void SampleWindow::map() const {
    xcb_map_window(connection_.get(), id_);
    connection_.synchronize();
}

void SampleWindow::unmap() const {
    xcb_unmap_window(connection_.get(), id_);
    connection_.synchronize();
}

void SampleWindow::raise() const {
    constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_.get(), id_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    connection_.synchronize();
}

void SampleWindow::moveTo(std::int16_t x, std::int16_t y) const {
    const std::array values{std::uint32_t(x), std::uint32_t(y)};
    xcb_configure_window(connection_.get(), id_, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         values.data());
    connection_.synchronize();
}

void SampleWindow::resizeTo(std::uint16_t width, std::uint16_t height) const {
    const std::array values{std::uint32_t(width), std::uint32_t(height)};
    xcb_configure_window(connection_.get(), id_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    connection_.synchronize();
}

void SampleWindow::setColour(int red, int green, int blue) const {
    const auto pixel = static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
    xcb_change_window_attributes(connection_.get(), id_, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(connection_.get(), 0, id_, 0, 0, 0, 0);
    connection_.synchronize();
}

void SampleWindow::minimise() const { ask("WM_CHANGE_STATE", {XCB_ICCCM_WM_STATE_ICONIC}); }

void SampleWindow::setTitle(std::string_view title) const {
    setText("_NET_WM_NAME", "UTF8_STRING", title);
}

void SampleWindow::setText(std::string_view property, std::string_view type,
                           std::string_view bytes) const {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, id_, connection_.atom(property),
                        connection_.atom(type), 8, std::uint32_t(bytes.size()), bytes.data());
    connection_.synchronize();
}

void SampleWindow::setNumbers(std::string_view property, std::string_view type,
                              const std::vector<std::uint32_t> &values) const {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, id_, connection_.atom(property),
                        connection_.atom(type), 32, std::uint32_t(values.size()), values.data());
    connection_.synchronize();
}

void SampleWindow::setAtoms(std::string_view property,
                            const std::vector<std::string> &names) const {
    std::vector<std::uint32_t> atoms;
    std::ranges::transform(names, std::back_inserter(atoms),
                           [this](const std::string &name) { return connection_.atom(name); });
    setNumbers(property, "ATOM", atoms);
}

} // namespace corvane::contract
