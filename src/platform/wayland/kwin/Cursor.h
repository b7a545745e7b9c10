#pragma once

#include "platform/wayland/click/CursorReader.h"
#include "platform/wayland/kwin/Script.h"

#include <QThread>

#include <memory>
#include <mutex>
#include <optional>

namespace corvane::wayland::kwin {

/// The pointer as KWin reports it. It is reported only while there are readers, and received on a
/// thread of its own, which nothing delays. Outlives its readers. Any thread.
class Cursor {
  public:
    Cursor();
    ~Cursor();

    Cursor(const Cursor &) = delete;
    Cursor &operator=(const Cursor &) = delete;

    std::unique_ptr<CursorReader> read();

  private:
    class Reader;

    void addReader();
    void removeReader();
    void followPointer(bool isWanted);
    void report(const QVariantList &values);
    std::optional<Point> position() const;

    mutable std::mutex mutex_;
    int readers_ = 0;
    /// As reported last to the present readers.
    std::optional<Point> position_;
    QThread thread_;
    /// Lives on the thread, as what has calls made there.
    QObject receiver_;
    std::unique_ptr<Script> script_;
};

} // namespace corvane::wayland::kwin
