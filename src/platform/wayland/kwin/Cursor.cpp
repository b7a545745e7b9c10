#include "platform/wayland/kwin/Cursor.h"

#include "platform/wayland/kwin/Bus.h"

#include <QMetaObject>

namespace corvane::wayland::kwin {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *scriptText = R"(
const reportPointer = () => report(workspace.cursorPos.x, workspace.cursorPos.y);
workspace.cursorPosChanged.connect(reportPointer);
reportPointer();
)";

} // namespace

class Cursor::Reader : public CursorReader {
  public:
    explicit Reader(Cursor &cursor) : cursor_(cursor) { cursor_.addReader(); }
    ~Reader() override { cursor_.removeReader(); }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    std::optional<Point> position() override { return cursor_.position(); }

  private:
    Cursor &cursor_;
};

Cursor::Cursor() {
    thread_.setObjectName(u"kwin-cursor"_s);
    receiver_.moveToThread(&thread_);
    thread_.start();
}

Cursor::~Cursor() {
    QMetaObject::invokeMethod(
        &receiver_, [this] { script_.reset(); }, Qt::BlockingQueuedConnection);
    thread_.quit();
    thread_.wait();
}

std::unique_ptr<CursorReader> Cursor::read() { return std::make_unique<Reader>(*this); }

void Cursor::addReader() {
    const std::lock_guard lock(mutex_);
    if (readers_++ == 0) {
        followPointer(true);
    }
}

void Cursor::removeReader() {
    const std::lock_guard lock(mutex_);
    if (--readers_ == 0) {
        position_.reset();
        followPointer(false);
    }
}

/// The order of the calls is that of the readers.
void Cursor::followPointer(bool isWanted) {
    QMetaObject::invokeMethod(&receiver_, [this, isWanted] {
        script_ =
            isWanted
                ? std::make_unique<Script>(u"corvane-pointer"_s, QString::fromLatin1(scriptText),
                                           [this](const QVariantList &values) { report(values); })
                : nullptr;
    });
}

void Cursor::report(const QVariantList &values) {
    const Point point{values.value(0).toDouble(), values.value(1).toDouble()};
    const std::lock_guard lock(mutex_);
    // A report for a reader that has gone says nothing to the next one.
    if (readers_ > 0) {
        position_ = point;
    }
}

/// Without the bus nothing is reported any more.
std::optional<Point> Cursor::position() const {
    const std::lock_guard lock(mutex_);
    return sessionBus().isConnected() ? position_ : std::nullopt;
}

} // namespace corvane::wayland::kwin
