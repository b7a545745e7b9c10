#include "platform/wayland/portal/CursorStream.h"

#include <array>
#include <cstdint>
#include <spa/param/video/format-utils.h>
#include <utility>

namespace corvane::wayland::portal {

namespace {

constexpr std::uint32_t mostFramesPerSecond = 60;

using Buffer = std::array<std::uint8_t, 2048>;

/// Any picture of a monitor; a frame whenever something has changed.
const spa_pod *acceptedFormats(spa_pod_builder &builder) {
    spa_pod_frame object;
    spa_pod_frame choice;
    spa_pod_builder_push_object(&builder, &object, SPA_TYPE_OBJECT_Format, SPA_PARAM_EnumFormat);
    spa_pod_builder_prop(&builder, SPA_FORMAT_mediaType, 0);
    spa_pod_builder_id(&builder, SPA_MEDIA_TYPE_video);
    spa_pod_builder_prop(&builder, SPA_FORMAT_mediaSubtype, 0);
    spa_pod_builder_id(&builder, SPA_MEDIA_SUBTYPE_raw);
    spa_pod_builder_prop(&builder, SPA_FORMAT_VIDEO_format, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Enum, 0);
    // The first value of a choice is the preferred one and stands among the others again.
    for (const auto format : {SPA_VIDEO_FORMAT_BGRx, SPA_VIDEO_FORMAT_BGRx, SPA_VIDEO_FORMAT_BGRA,
                              SPA_VIDEO_FORMAT_RGBx, SPA_VIDEO_FORMAT_RGBA}) {
        spa_pod_builder_id(&builder, format);
    }
    spa_pod_builder_pop(&builder, &choice);
    spa_pod_builder_prop(&builder, SPA_FORMAT_VIDEO_size, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Range, 0);
    spa_pod_builder_rectangle(&builder, 1280, 720);
    spa_pod_builder_rectangle(&builder, 1, 1);
    spa_pod_builder_rectangle(&builder, 16384, 16384);
    spa_pod_builder_pop(&builder, &choice);
    spa_pod_builder_prop(&builder, SPA_FORMAT_VIDEO_framerate, 0);
    spa_pod_builder_fraction(&builder, 0, 1);
    spa_pod_builder_prop(&builder, SPA_FORMAT_VIDEO_maxFramerate, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Range, 0);
    spa_pod_builder_fraction(&builder, mostFramesPerSecond, 1);
    spa_pod_builder_fraction(&builder, 1, 1);
    spa_pod_builder_fraction(&builder, mostFramesPerSecond, 1);
    spa_pod_builder_pop(&builder, &choice);
    return static_cast<const spa_pod *>(spa_pod_builder_pop(&builder, &object));
}

/// Buffers of any kind, because none is ever mapped.
const spa_pod *acceptedBuffers(spa_pod_builder &builder) {
    constexpr std::int32_t anyMemory =
        1 << SPA_DATA_MemFd | 1 << SPA_DATA_MemPtr | 1 << SPA_DATA_DmaBuf;
    spa_pod_frame object;
    spa_pod_frame choice;
    spa_pod_builder_push_object(&builder, &object, SPA_TYPE_OBJECT_ParamBuffers, SPA_PARAM_Buffers);
    spa_pod_builder_prop(&builder, SPA_PARAM_BUFFERS_buffers, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Range, 0);
    for (const std::int32_t count : {2, 1, 8}) {
        spa_pod_builder_int(&builder, count);
    }
    spa_pod_builder_pop(&builder, &choice);
    spa_pod_builder_prop(&builder, SPA_PARAM_BUFFERS_dataType, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Flags, 0);
    spa_pod_builder_int(&builder, anyMemory);
    spa_pod_builder_pop(&builder, &choice);
    return static_cast<const spa_pod *>(spa_pod_builder_pop(&builder, &object));
}

/// With room for the cursor's picture: desktops refuse to send less.
const spa_pod *cursorMetadata(spa_pod_builder &builder) {
    constexpr auto sizeFor = [](std::size_t side) {
        constexpr std::size_t bytesPerPixel = 4;
        return static_cast<std::int32_t>(sizeof(spa_meta_cursor) + sizeof(spa_meta_bitmap) +
                                         side * side * bytesPerPixel);
    };
    spa_pod_frame object;
    spa_pod_frame choice;
    spa_pod_builder_push_object(&builder, &object, SPA_TYPE_OBJECT_ParamMeta, SPA_PARAM_Meta);
    spa_pod_builder_prop(&builder, SPA_PARAM_META_type, 0);
    spa_pod_builder_id(&builder, SPA_META_Cursor);
    spa_pod_builder_prop(&builder, SPA_PARAM_META_size, 0);
    spa_pod_builder_push_choice(&builder, &choice, SPA_CHOICE_Range, 0);
    for (const std::size_t side : {64U, 1U, 384U}) {
        spa_pod_builder_int(&builder, sizeFor(side));
    }
    spa_pod_builder_pop(&builder, &choice);
    return static_cast<const spa_pod *>(spa_pod_builder_pop(&builder, &object));
}

pw_stream *newStream(const PipeWire &pipeWire, pw_core *core) {
    // The stream owns the properties.
    return pipeWire.stream_new(core, "corvane-cursor",
                               pipeWire.properties_new(PW_KEY_MEDIA_TYPE, "Video",
                                                       PW_KEY_MEDIA_CATEGORY, "Capture",
                                                       PW_KEY_MEDIA_ROLE, "Screen", nullptr));
}

} // namespace

const pw_stream_events CursorStream::events = [] {
    pw_stream_events calls{};
    calls.version = PW_VERSION_STREAM_EVENTS;
    calls.param_changed = [](void *stream, std::uint32_t id, const spa_pod *parameter) {
        if (id == SPA_PARAM_Format && parameter != nullptr) {
            static_cast<CursorStream *>(stream)->negotiate(*parameter);
        }
    };
    calls.process = [](void *stream) { static_cast<CursorStream *>(stream)->readFrames(); };
    return calls;
}();

CursorStream::CursorStream(const PipeWire &pipeWire, pw_core *core, const Stream &stream,
                           Report report)
    : pipeWire_(pipeWire),
      frame_(stream.frame),
      report_(std::move(report)),
      stream_(newStream(pipeWire, core)),
      pictureSize_{stream.frame.width, stream.frame.height} {
    if (stream_ == nullptr) {
        return;
    }
    pipeWire_.stream_add_listener(stream_, &listener_, &events, this);
    Buffer buffer;
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, buffer.data(), buffer.size());
    const spa_pod *parameters = acceptedFormats(builder);
    pipeWire_.stream_connect(
        stream_, PW_DIRECTION_INPUT, stream.node,
        static_cast<pw_stream_flags>(PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_DONT_RECONNECT),
        &parameters, 1);
}

CursorStream::~CursorStream() {
    if (stream_ != nullptr) {
        pipeWire_.stream_destroy(stream_);
    }
}

void CursorStream::negotiate(const spa_pod &format) {
    spa_video_info_raw picture{};
    if (spa_format_video_raw_parse(&format, &picture) >= 0 && picture.size.width > 0 &&
        picture.size.height > 0) {
        pictureSize_ = {double(picture.size.width), double(picture.size.height)};
    }
    Buffer buffer;
    spa_pod_builder builder{};
    spa_pod_builder_init(&builder, buffer.data(), buffer.size());
    std::array<const spa_pod *, 2> parameters{acceptedBuffers(builder), cursorMetadata(builder)};
    pipeWire_.stream_update_params(stream_, parameters.data(), parameters.size());
}

void CursorStream::readFrames() {
    while (pw_buffer *const frame = pipeWire_.stream_dequeue_buffer(stream_)) {
        const auto *cursor = static_cast<const spa_meta_cursor *>(
            spa_buffer_find_meta_data(frame->buffer, SPA_META_Cursor, sizeof(spa_meta_cursor)));
        if (cursor != nullptr) {
            report_(spa_meta_cursor_is_valid(cursor)
                        ? std::optional(Point{
                              frame_.x + cursor->position.x * frame_.width / pictureSize_.width,
                              frame_.y + cursor->position.y * frame_.height / pictureSize_.height})
                        : std::nullopt);
        }
        pipeWire_.stream_queue_buffer(stream_, frame);
    }
}

} // namespace corvane::wayland::portal
