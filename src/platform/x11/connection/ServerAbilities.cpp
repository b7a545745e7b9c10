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
    const XcbReply<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection.get(), cookie, nullptr));
    return reply && reply->present != 0;
}

/// Servers from before the extension name their monitors after themselves.
bool hasMonitorNamedLike(const XcbConnection &connection, std::string_view beginning) {
    const auto cookie = xcb_randr_get_screen_resources_current(connection.get(), connection.root());
    const XcbReply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(connection.get(), cookie, nullptr));
    if (!resources || resources->num_outputs == 0) {
        return false;
    }
    const xcb_randr_output_t first =
        *xcb_randr_get_screen_resources_current_outputs(resources.get());
    const auto outputCookie =
        xcb_randr_get_output_info(connection.get(), first, resources->config_timestamp);
    const XcbReply<xcb_randr_get_output_info_reply_t> output(
        xcb_randr_get_output_info_reply(connection.get(), outputCookie, nullptr));
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
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.get(), &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

bool isInsideWayland(const XcbConnection &connection) {
    return offersExtension(connection, "XWAYLAND") || hasMonitorNamedLike(connection, "XWAYLAND");
}

} // namespace corvane::x11
