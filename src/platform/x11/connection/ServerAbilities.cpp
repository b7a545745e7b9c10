#include "platform/x11/connection/ServerAbilities.h"

#include <xcb/randr.h>
#include <xcb/xtest.h>

#include <cstdint>
#include <string_view>

namespace corvane::x11 {

namespace {

bool offersExtension(const XcbConnection &connection, std::string_view name) {
    const auto cookie =
        xcb_query_extension(connection.get(), static_cast<std::uint16_t>(name.size()), name.data());
    const auto extension = reply<xcb_query_extension_reply>(connection.get(), cookie);
    return extension && extension->present != 0;
}

/// Older Xwayland servers lack the extension, but name their monitors XWAYLAND0, XWAYLAND1 and so
/// on.
bool hasMonitorNamedLike(const XcbConnection &connection, std::string_view beginning) {
    const auto cookie = xcb_randr_get_screen_resources_current(connection.get(), connection.root());
    const auto resources =
        reply<xcb_randr_get_screen_resources_current_reply>(connection.get(), cookie);
    if (!resources || resources->num_outputs == 0) {
        return false;
    }
    const xcb_randr_output_t first =
        *xcb_randr_get_screen_resources_current_outputs(resources.get());
    const auto outputCookie =
        xcb_randr_get_output_info(connection.get(), first, resources->config_timestamp);
    const auto output = reply<xcb_randr_get_output_info_reply>(connection.get(), outputCookie);
    if (!output) {
        return false;
    }
    const std::string_view name(
        reinterpret_cast<const char *>(xcb_randr_get_output_info_name(output.get())),
        output->name_len);
    return name.starts_with(beginning);
}

} // namespace

bool offersFakeInput(const XcbConnection &connection) {
    return connection.extension(xcb_test_id) != nullptr;
}

bool isInsideWayland(const XcbConnection &connection) {
    return offersExtension(connection, "XWAYLAND") || hasMonitorNamedLike(connection, "XWAYLAND");
}

bool losesInputShapes(const XcbConnection &connection) {
    constexpr std::uint32_t firstThatKeepsThem = 12400000;
    return xcb_get_setup(connection.get())->release_number < firstThatKeepsThem &&
           isInsideWayland(connection);
}

} // namespace corvane::x11
