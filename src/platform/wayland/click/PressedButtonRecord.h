#pragma once

#include <atomic>
#include <cstdint>

namespace corvane::wayland {

/// How many presses have been sent whose release has not been carried out, in memory backed by a
/// file of the user's session: a compositor may keep a button down whose client has died, and
/// whoever comes next can release it. Any thread.
class PressedButtonRecord {
  public:
    /// What to do where there is no file yet.
    enum class Missing { create, ignore };

    /// The record of this compositor. Without a file nothing is recorded.
    explicit PressedButtonRecord(Missing missing);
    ~PressedButtonRecord();

    PressedButtonRecord(const PressedButtonRecord &) = delete;
    PressedButtonRecord &operator=(const PressedButtonRecord &) = delete;

    /// Before a press is sent.
    void addPress() const;
    /// After its release has been carried out.
    void removePress() const;

    bool hasPress() const;
    void clear() const;

  private:
    using Count = std::atomic<std::int32_t>;
    static_assert(Count::is_always_lock_free, "processes share it");

    Count *count_ = nullptr;
};

/// Releases the button where the record says that it was pressed and not released. Whether it was.
/// Only while no run clicks.
bool releaseRecordedButton();

} // namespace corvane::wayland
