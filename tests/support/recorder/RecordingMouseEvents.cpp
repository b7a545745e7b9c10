#include "support/recorder/RecordingMouseEvents.h"

#include "support/OneThread.h"
#include "support/TimeLimit.h"

#include <algorithm>
#include <utility>

namespace corvane::testing {

using platform::MouseEventType;

class RecordingMouseEvents::Event : public platform::MouseEvent {
  public:
    Event(RecordingMouseEvents &mouse, MouseEventType type, Point location)
        : mouse_(mouse),
          type_(type),
          location_(location) {}

    void setClickState(std::int64_t state) override {
        thread_.check();
        clickState_ = state;
    }

    void post() override {
        thread_.check();
        if (type_ == MouseEventType::leftMouseDown) {
            mouse_.carryOut(mouse_.onNextPress_);
        }
        const platform::Instant time = mouse_.clock_.now();
        {
            const std::lock_guard lock(mouse_.mutex_);
            mouse_.posted_.push_back(
                {type_, location_, clickState_, time, std::this_thread::get_id()});
        }
        mouse_.changed_.notify_all();
    }

  private:
    RecordingMouseEvents &mouse_;
    OneThread thread_{"a mouse event"};
    MouseEventType type_;
    Point location_;
    std::int64_t clickState_ = 0;
};

class RecordingMouseEvents::Source : public platform::MouseEventSource {
  public:
    explicit Source(RecordingMouseEvents &mouse) : mouse_(mouse) {}

    std::unique_ptr<platform::MouseEvent> createMouseEvent(MouseEventType type,
                                                           Point location) override {
        thread_.check();
        if (type == MouseEventType::leftMouseUp) {
            mouse_.carryOut(mouse_.onNextCreation_);
        }
        const std::lock_guard lock(mouse_.mutex_);
        const bool fails = type == MouseEventType::leftMouseDown ? mouse_.faults_.noMouseDown
                                                                 : mouse_.faults_.noMouseUp;
        return fails ? nullptr : std::make_unique<Event>(mouse_, type, location);
    }

  private:
    RecordingMouseEvents &mouse_;
    OneThread thread_{"a mouse event source"};
};

class RecordingMouseEvents::Session : public platform::MouseSession {
  public:
    explicit Session(RecordingMouseEvents &mouse) : mouse_(mouse) {
        const std::lock_guard lock(mouse_.mutex_);
        ++mouse_.openedSessions_;
        ++mouse_.openSessions_;
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session() override {
        thread_.check();
        const std::lock_guard lock(mouse_.mutex_);
        --mouse_.openSessions_;
    }

    std::optional<Point> readyPosition() override {
        thread_.check();
        return mouse_.readyPosition();
    }

    std::unique_ptr<platform::MouseEventSource> createEventSource() override {
        thread_.check();
        return std::make_unique<Source>(mouse_);
    }

  private:
    RecordingMouseEvents &mouse_;
    OneThread thread_{"a mouse session"};
};

std::unique_ptr<platform::MouseSession> RecordingMouseEvents::openSession() {
    return std::make_unique<Session>(*this);
}

void RecordingMouseEvents::setCursor(Point cursor) {
    const std::lock_guard lock(mutex_);
    script_.clear();
    cursor_ = cursor;
}

void RecordingMouseEvents::scriptCursor(const std::vector<Point> &places) {
    const std::lock_guard lock(mutex_);
    script_.assign(places.begin(), places.end());
}

void RecordingMouseEvents::setFaults(const MouseFaults &faults) {
    const std::lock_guard lock(mutex_);
    faults_ = faults;
}

std::vector<PostedMouseEvent> RecordingMouseEvents::posted() const {
    const std::lock_guard lock(mutex_);
    return posted_;
}

bool RecordingMouseEvents::awaitPosted(std::size_t count) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeLimit, [&] { return posted_.size() >= count; });
}

void RecordingMouseEvents::setHeldUp(bool isHeldUp) {
    const std::lock_guard lock(mutex_);
    if (isHeldUp) {
        isDownWhileHeldUp_ = isPressed();
    } else {
        isDownWhileHeldUp_.reset();
    }
}

void RecordingMouseEvents::setHeldByUser(bool isHeld) {
    const std::lock_guard lock(mutex_);
    isHeldByUser_ = isHeld;
}

void RecordingMouseEvents::onNextCreation(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    onNextCreation_ = std::move(work);
}

void RecordingMouseEvents::onNextPress(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    onNextPress_ = std::move(work);
}

void RecordingMouseEvents::carryOut(std::function<void()> &work) {
    std::unique_lock lock(mutex_);
    const std::function<void()> taken = std::exchange(work, nullptr);
    lock.unlock();
    if (taken) {
        taken();
    }
}

std::optional<Point> RecordingMouseEvents::readyPosition() {
    const platform::Instant time = clock_.now();
    const std::lock_guard lock(mutex_);
    readings_.push_back(time);
    if (faults_.noCursorLocation || isDown() != isPressed()) {
        return std::nullopt;
    }
    if (!script_.empty() && !isPressed()) {
        cursor_ = script_.front();
        script_.pop_front();
    }
    return cursor_;
}

bool RecordingMouseEvents::isDown() const {
    return isHeldByUser_ || isDownWhileHeldUp_.value_or(isPressed());
}

bool RecordingMouseEvents::isButtonPressed() const {
    const std::lock_guard lock(mutex_);
    return isPressed();
}

bool RecordingMouseEvents::isPressed() const {
    const auto downs =
        std::count_if(posted_.begin(), posted_.end(), [](const PostedMouseEvent &event) {
            return event.type == MouseEventType::leftMouseDown;
        });
    return 2 * static_cast<std::size_t>(downs) > posted_.size();
}

std::vector<platform::Instant> RecordingMouseEvents::readings() const {
    const std::lock_guard lock(mutex_);
    return readings_;
}

std::size_t RecordingMouseEvents::openedSessions() const {
    const std::lock_guard lock(mutex_);
    return openedSessions_;
}

std::size_t RecordingMouseEvents::openSessions() const {
    const std::lock_guard lock(mutex_);
    return openSessions_;
}

} // namespace corvane::testing
