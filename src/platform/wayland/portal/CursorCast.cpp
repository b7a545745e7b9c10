#include "platform/wayland/portal/CursorCast.h"

#include "platform/wayland/portal/CursorStream.h"
#include "platform/wayland/portal/PipeWire.h"

#include <cstdint>
#include <list>
#include <mutex>
#include <utility>

namespace corvane::wayland::portal {

/// The loop runs from `start` to the destructor, on a thread of its own.
class CursorCast::Cast {
  public:
    static std::unique_ptr<Cast> start(const PipeWire &pipeWire, const Session &session,
                                       posix::FileDescriptor connection) {
        auto cast = std::make_unique<Cast>(pipeWire);
        const bool isStarted = cast->connect(std::move(connection), session);
        return isStarted ? std::move(cast) : nullptr;
    }

    explicit Cast(const PipeWire &pipeWire)
        : pipeWire_(pipeWire),
          loop_(pipeWire.thread_loop_new("corvane-cursor", nullptr)) {}

    ~Cast() {
        if (loop_ == nullptr) {
            return;
        }
        pipeWire_.thread_loop_stop(loop_);
        streams_.clear();
        if (core_ != nullptr) {
            pipeWire_.core_disconnect(core_);
        }
        if (context_ != nullptr) {
            pipeWire_.context_destroy(context_);
        }
        pipeWire_.thread_loop_destroy(loop_);
    }

    Cast(const Cast &) = delete;
    Cast &operator=(const Cast &) = delete;

    std::optional<Point> position() const {
        const std::lock_guard lock(mutex_);
        return position_;
    }

  private:
    bool connect(posix::FileDescriptor connection, const Session &session) {
        context_ = loop_ != nullptr
                       ? pipeWire_.context_new(pipeWire_.thread_loop_get_loop(loop_), nullptr, 0)
                       : nullptr;
        // The core owns the descriptor.
        core_ = context_ != nullptr
                    ? pipeWire_.context_connect_fd(context_, connection.release(), nullptr, 0)
                    : nullptr;
        if (core_ == nullptr) {
            return false;
        }
        for (const Stream &stream : session.streams()) {
            streams_.emplace_back(pipeWire_, core_, stream,
                                  [this, node = stream.node](std::optional<Point> position) {
                                      take(node, position);
                                  });
        }
        return pipeWire_.thread_loop_start(loop_) >= 0;
    }

    /// That the cursor is not on a monitor counts only for the monitor that had it last.
    void take(std::uint32_t node, std::optional<Point> position) {
        const std::lock_guard lock(mutex_);
        if (position || node == lastNode_) {
            position_ = position;
            lastNode_ = node;
        }
    }

    const PipeWire &pipeWire_;
    pw_thread_loop *const loop_;
    pw_context *context_ = nullptr;
    pw_core *core_ = nullptr;
    std::list<CursorStream> streams_;
    mutable std::mutex mutex_;
    std::optional<Point> position_;
    std::uint32_t lastNode_ = 0;
};

bool CursorCast::isPossible() { return PipeWire::load() != nullptr; }

CursorCast::CursorCast(const Session &session) {
    const PipeWire *const pipeWire = PipeWire::load();
    auto connection = pipeWire != nullptr ? session.openPipeWire() : posix::FileDescriptor();
    if (connection.isOpen()) {
        cast_ = Cast::start(*pipeWire, session, std::move(connection));
    }
}

CursorCast::~CursorCast() = default;

std::optional<Point> CursorCast::position() const {
    return cast_ ? cast_->position() : std::nullopt;
}

} // namespace corvane::wayland::portal
