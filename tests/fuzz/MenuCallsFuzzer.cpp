// What a panel, or whoever is on the message bus, calls the menu with.

#include "Fuzzing.h"
#include "platform/linux/PanelMenu.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusServer>
#include <QDBusVariant>
#include <QEventLoop>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <optional>

using namespace corvane;
using namespace corvane::x11;
using namespace Qt::StringLiterals;
using fuzz::require;

/// (isvu): what happened to a line of a menu, as EventGroup takes it.
struct MenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint time = 0;
};
Q_DECLARE_METATYPE(MenuEvent)

static QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.time;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.time;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as the toolkit wants it
}

namespace {

/// The libraries keep what they set up once.
extern "C" const char *__lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libdbus-1.so\nleak:libQt6\n";
}

Menu menu() {
    const std::vector<MenuItem> profiles{
        {.title = "Games", .action = "loadProfile:", .representedObject = "1"},
        MenuItem::separator(),
        {.title = "Save current config...", .action = "saveAsProfile:"}};
    return {{{.title = "Running", .isEnabled = false},
             MenuItem::separator(),
             {.title = "Stop\t⇧⌘Y", .action = "stopClicking:"},
             {.title = "Free Cursor", .action = "setModeCursor:", .isEnabled = false, .isOn = true},
             {.title = "Profiles", .submenu = profiles}}};
}

/// A program with the menu and a panel, which talk without a bus between them.
class Conversation {
  public:
    Conversation() {
        QObject::connect(&server_, &QDBusServer::newConnection,
                         [this](const QDBusConnection &connection) { offerMenu(connection); });
        while (!menu_) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    /// The answer, also where it is a refusal.
    QDBusMessage call(const QString &method, const QVariantList &arguments) {
        auto message = QDBusMessage::createMethodCall(QString(), u"/MenuBar"_s,
                                                      u"com.canonical.dbusmenu"_s, method);
        message.setArguments(arguments);
        // A machine that sleeps meanwhile is no broken promise.
        constexpr int patience = std::numeric_limits<int>::max();
        QDBusPendingCallWatcher answer(panel_.asyncCall(message, patience));
        QEventLoop untilAnswered;
        QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &untilAnswered,
                         &QEventLoop::quit);
        if (!answer.isFinished()) {
            untilAnswered.exec();
        }
        return answer.reply();
    }

  private:
    void offerMenu(const QDBusConnection &connection) {
        menu_ = std::make_unique<PanelMenu>(connection, symbols_, [](const MenuCommand &command) {
            require(command.action == "stopClicking:" || command.action == "loadProfile:" ||
                        command.action == "saveAsProfile:",
                    "only what can be chosen is chosen");
        });
        menu_->setMenu(menu());
    }

    QDBusServer server_{u"unix:tmpdir=/tmp"_s};
    SymbolImages symbols_;
    std::unique_ptr<PanelMenu> menu_;
    QDBusConnection panel_ = QDBusConnection::connectToPeer(server_.address(), u"panel"_s);
};

/// Takes values off the bytes; zeros and empty texts where they are used up.
class Values {
  public:
    explicit Values(std::string_view bytes) : rest_(bytes) {}

    bool isEmpty() const { return rest_.empty(); }

    unsigned byte() {
        const auto value = rest_.empty() ? 0U : static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
        return value;
    }

    /// Those of the menu and the ends of the range are frequent.
    int number() {
        const unsigned kind = byte();
        if (kind < 0xE0) {
            return static_cast<int>(kind) - 2;
        }
        const std::uint32_t high = 0x01000000U * byte();
        return static_cast<int>(high + byte() - 1);
    }

    QString text() {
        static const std::array known{u"clicked"_s,          u"hovered"_s, u"opened"_s, u"label"_s,
                                      u"children-display"_s, u"enabled"_s, u"type"_s};
        const unsigned length = byte();
        if (length < known.size()) {
            return known[length];
        }
        const std::string_view letters = rest_.substr(0, length - known.size());
        rest_.remove_prefix(letters.size());
        return QString::fromUtf8(letters.data(), static_cast<qsizetype>(letters.size()));
    }

    template <typename Make>
    auto many(Make make) {
        QList<decltype(make())> list;
        for (unsigned count = byte() % 16; count > 0; --count) {
            list << make();
        }
        return list;
    }

    QVariant numbers() {
        return QVariant::fromValue(many([this] { return number(); }));
    }
    QVariant texts() {
        return many([this] { return text(); });
    }
    QVariant variant() {
        return QVariant::fromValue(QDBusVariant(byte() % 2 == 0 ? texts() : numbers()));
    }
    QVariant events() {
        return QVariant::fromValue(many([this] {
            return MenuEvent{.id = number(),
                             .name = text(),
                             .data = variant().value<QDBusVariant>(),
                             .time = static_cast<uint>(number())};
        }));
    }

    QVariant anything() {
        switch (byte() % 6) {
        case 0:
            return number();
        case 1:
            return text();
        case 2:
            return numbers();
        case 3:
            return texts();
        case 4:
            return events();
        default:
            return variant();
        }
    }

  private:
    std::string_view rest_;
};

struct Call {
    QString method;
    QVariantList arguments;
};

Call nextCall(Values &values) {
    switch (values.byte() % 8) {
    case 0:
        return {u"GetLayout"_s, {values.number(), values.number(), values.texts()}};
    case 1:
        return {u"GetGroupProperties"_s, {values.numbers(), values.texts()}};
    case 2:
        return {u"GetProperty"_s, {values.number(), values.text()}};
    case 3:
        return {
            u"Event"_s,
            {values.number(), values.text(), values.variant(), static_cast<uint>(values.number())}};
    case 4:
        return {u"EventGroup"_s, {values.events()}};
    case 5:
        return {u"AboutToShow"_s, {values.number()}};
    case 6:
        return {u"AboutToShowGroup"_s, {values.numbers()}};
    default:
        return {u"EventGroup"_s, {values.anything(), values.anything()}};
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    static const QCoreApplication application(*argc, *argv);
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Conversation conversation;
    static const QDBusMessage layout =
        conversation.call(u"GetLayout"_s, {0, -1, QStringList{u"label"_s}});
    Values values(fuzz::textOf(data, std::min<std::size_t>(size, 256)));
    while (!values.isEmpty()) {
        const Call call = nextCall(values);
        const auto type = conversation.call(call.method, call.arguments).type();
        require(type == QDBusMessage::ReplyMessage || type == QDBusMessage::ErrorMessage,
                "every call is answered");
    }
    const auto after = conversation.call(u"GetLayout"_s, {0, -1, QStringList{u"label"_s}});
    require(after.type() == QDBusMessage::ReplyMessage && after.signature() == layout.signature(),
            "the menu is still there");
    return 0;
}
