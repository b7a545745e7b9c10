// What a panel, or whoever is on the message bus, calls the menu with.

#include "Fuzzing.h"
#include "platform/freedesktop/tray/DBusMenuExporter.h"
#include "support/ForeignMenuCalls.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServer>
#include <QDBusVirtualObject>
#include <QEventLoop>

#include <algorithm>
#include <limits>
#include <optional>

using namespace corvane;
using namespace corvane::freedesktop;
using namespace Qt::StringLiterals;
using fuzz::require;

namespace {

/// The libraries keep what they set up once.
extern "C" const char *__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libdbus-1.so\nleak:libQt6\n";
}

Menu menu() {
    const std::vector<MenuItem> profiles{
        {.title = "Games", .action = ActionID::loadProfile, .representedObject = "1"},
        MenuItem::separator(),
        {.title = "Save current config...", .action = ActionID::saveAsProfile}};
    return {{{.title = "Running", .isEnabled = false},
             MenuItem::separator(),
             {.title = "Stop", .action = ActionID::stopClicking, .hotKey = startStopKey},
             {.title = "Free Cursor",
              .action = ActionID::setModeCursor,
              .isEnabled = false,
              .isOn = true},
             {.title = "Profiles", .submenu = profiles}}};
}

/// The program's name on the bus. sd-bus treats a call without a destination as a broadcast, which
/// no object receives.
const QString programName = u":1.1"_s;

/// Accepts a program as a bus does.
class Greeter : public QDBusVirtualObject {
  public:
    bool hasGreeted = false;

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        hasGreeted = true;
        return connection.send(message.createReply(programName));
    }
};

/// A program with the menu and a panel, which talk without a bus between them.
class Conversation {
  public:
    Conversation() {
        QObject::connect(&server_, &QDBusServer::newConnection,
                         [this](const QDBusConnection &panel) {
                             panel_ = panel;
                             panel_->registerVirtualObject(u"/org/freedesktop/DBus"_s, &greeter_);
                         });
        menu_.setMenu(menu());
        while (!greeter_.hasGreeted) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    /// The answer, also where it is a refusal.
    QDBusMessage call(const QString &method, const QVariantList &arguments) const {
        auto message = QDBusMessage::createMethodCall(programName, u"/MenuBar"_s,
                                                      u"com.canonical.dbusmenu"_s, method);
        message.setArguments(arguments);
        // A machine that sleeps meanwhile is no broken promise.
        constexpr int timeLimit = std::numeric_limits<int>::max();
        QDBusPendingCallWatcher answer(panel_->asyncCall(message, timeLimit));
        QEventLoop untilAnswered;
        QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &untilAnswered,
                         &QEventLoop::quit);
        if (!answer.isFinished()) {
            untilAnswered.exec();
        }
        return answer.reply();
    }

  private:
    static void perform(const MenuCommand &command) {
        require(command.action == ActionID::stopClicking ||
                    command.action == ActionID::loadProfile ||
                    command.action == ActionID::saveAsProfile,
                "only what can be chosen is chosen");
    }

    Greeter greeter_;
    std::optional<QDBusConnection> panel_;
    QDBusServer server_{u"unix:tmpdir=/tmp"_s};
    BusConnection bus_{server_.address().toStdString(), {}};
    DBusMenuExporter menu_{bus_, perform};
};

/// Makes choices by the bytes; zeros where they are used up.
class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : rest_(bytes) {}

    bool isEmpty() const { return rest_.empty(); }

    std::uint32_t below(std::uint32_t end) {
        std::uint32_t value = next();
        if (end > 256) {
            value = 256 * value + next();
        }
        return value % end;
    }

  private:
    std::uint32_t next() {
        const auto byte = rest_.empty() ? 0U : static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        return byte;
    }

    std::string_view rest_;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    static const QCoreApplication application(*argc, *argv);
    registerMenuEvents();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Conversation conversation;
    static const QDBusMessage layout =
        conversation.call(u"GetLayout"_s, {0, -1, QStringList{u"label"_s}});
    Bytes bytes(fuzz::textOf(data, std::min<std::size_t>(size, 256)));
    ForeignMenuCalls calls([&bytes](std::uint32_t end) { return bytes.below(end); });
    while (!bytes.isEmpty()) {
        const auto call = calls.next();
        const auto type = conversation.call(call.method, call.arguments).type();
        require(type == QDBusMessage::ReplyMessage || type == QDBusMessage::ErrorMessage,
                "every call is answered");
    }
    const auto after = conversation.call(u"GetLayout"_s, {0, -1, QStringList{u"label"_s}});
    require(after.type() == QDBusMessage::ReplyMessage && after.signature() == layout.signature(),
            "the menu is still there");
    return 0;
}
