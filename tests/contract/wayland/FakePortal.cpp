#include "FakePortal.h"

#include "platform/freedesktop/bus/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QEventLoop>
#include <QVariantMap>

#include <future>
#include <utility>

namespace corvane::contract {

using namespace Qt::StringLiterals;

struct CastPair {
    int first = 0;
    int second = 0;
};

struct CastStream {
    uint node = 0;
    QVariantMap properties;
};

static QDBusArgument &operator<<(QDBusArgument &argument, const CastPair &pair) {
    argument.beginStructure();
    argument << pair.first << pair.second;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, CastPair & /*pair*/) {
    return argument;
}

static QDBusArgument &operator<<(QDBusArgument &argument, const CastStream &stream) {
    argument.beginStructure();
    argument << stream.node << stream.properties;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, CastStream & /*stream*/) {
    return argument;
}

namespace {

const QString service = u"org.freedesktop.portal.Desktop"_s;

QDBusConnection connectPortal() {
    return QDBusConnection::connectToBus(QString::fromStdString(freedesktop::sessionBusAddress()),
                                         u"fake-portal"_s);
}

/// Plain values: Qt's own share memory between threads in a way that sanitizers cannot follow.
FakePortal::Values plain(const QVariantMap &values) {
    FakePortal::Values plain;
    for (const auto &[name, value] : values.asKeyValueRange()) {
        plain[name.toStdString()] = value.toString().toStdString();
    }
    return plain;
}

QString idOf(const QDBusMessage &call) { return call.service().mid(1).replace(u'.', u'_'); }

} // namespace

class FakePortal::Object : public QDBusVirtualObject {
  public:
    explicit Object(Options options) : options_(std::move(options)), bus_(connectPortal()) {
        qDBusRegisterMetaType<CastPair>();
        qDBusRegisterMetaType<CastStream>();
        qDBusRegisterMetaType<QList<CastStream>>();
    }

    void offer() {
        bus_.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, this,
                                   QDBusConnection::SubPath);
        bus_.registerService(service);
    }

    void withdraw() {
        bus_.unregisterService(service);
        QDBusConnection::disconnectFromBus(bus_.name());
    }

    void endSession() {
        auto closed = QDBusMessage::createTargetedSignal(
            client_, session_, u"org.freedesktop.portal.Session"_s, u"Closed"_s);
        closed << QVariantMap();
        bus_.send(closed);
    }

    void setResponse(uint response) {
        const std::lock_guard lock(mutex_);
        options_.response = response;
    }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection & /*bus*/) override {
        const std::lock_guard lock(mutex_);
        const QString method = call.member();
        if (method == u"Get") {
            bus_.send(call.createReply(QVariant::fromValue(
                QDBusVariant(QVariant::fromValue(property(call.arguments().at(1).toString()))))));
        } else if (method == u"NotifyPointerButton") {
            buttons_.push_back(call.arguments().at(3).toUInt());
        } else if (method == u"Close") {
            ++closedSessions_;
        } else if (call.arguments().isEmpty() || method == u"OpenPipeWireRemote") {
            bus_.send(call.createErrorReply(QDBusError::UnknownMethod, method));
        } else {
            handleRequest(call);
        }
        return true;
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    std::vector<uint> buttons() const {
        const std::lock_guard lock(mutex_);
        return buttons_;
    }
    int closedSessions() const {
        const std::lock_guard lock(mutex_);
        return closedSessions_;
    }
    Values devicesAsked() const {
        const std::lock_guard lock(mutex_);
        return devicesAsked_;
    }
    Values sourcesAsked() const {
        const std::lock_guard lock(mutex_);
        return sourcesAsked_;
    }

  private:
    uint property(const QString &name) const {
        if (name == u"AvailableDeviceTypes") {
            return options_.deviceTypes;
        }
        return name == u"version" ? options_.version : 7;
    }

    void handleRequest(const QDBusMessage &call) {
        const QVariantMap asked =
            qdbus_cast<QVariantMap>(call.arguments().constLast().value<QDBusArgument>());
        const QString request = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(
            idOf(call), asked.value(u"handle_token"_s).toString());
        bus_.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        client_ = call.service();
        uint response = 0;
        QVariantMap results;
        if (call.member() == u"CreateSession") {
            session_ = u"/org/freedesktop/portal/desktop/session/%1/%2"_s.arg(
                idOf(call), asked.value(u"session_handle_token"_s).toString());
            results.insert(u"session_handle"_s, session_);
        } else if (call.member() == u"SelectDevices") {
            devicesAsked_ = plain(asked);
        } else if (call.member() == u"SelectSources") {
            sourcesAsked_ = plain(asked);
        } else {
            response = options_.response;
            results = agreement();
        }
        if (call.member() != u"Start" || options_.answers) {
            auto answer = QDBusMessage::createTargetedSignal(
                client_, request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
            answer << response << results;
            bus_.send(answer);
        }
    }

    QVariantMap agreement() const {
        QVariantMap results{{u"devices"_s, options_.devices}};
        if (options_.hasStream) {
            const CastStream stream{
                .node = 41,
                .properties = {{u"position"_s, QVariant::fromValue(CastPair{1280, 0})},
                               {u"size"_s, QVariant::fromValue(CastPair{800, 600})}}};
            results.insert(u"streams"_s, QVariant::fromValue(QList{stream}));
        }
        if (!options_.restoreToken.isEmpty()) {
            results.insert(u"restore_token"_s, options_.restoreToken);
        }
        return results;
    }

    Options options_;
    QDBusConnection bus_;
    mutable std::mutex mutex_;
    QString client_;
    QString session_;
    std::vector<uint> buttons_;
    int closedSessions_ = 0;
    Values devicesAsked_;
    Values sourcesAsked_;
};

FakePortal::FakePortal() : FakePortal(Options()) {}

FakePortal::FakePortal(const Options &options) {
    std::promise<void> isOffered;
    thread_ = std::thread([this, &options, &isOffered] {
        QEventLoop loop;
        Object object(options);
        object.offer();
        object_ = &object;
        loop_ = &loop;
        isOffered.set_value();
        while (!isOver_) {
            loop.processEvents(QEventLoop::WaitForMoreEvents);
            if (endsSession_.exchange(false)) {
                object.endSession();
            }
        }
        object.withdraw();
    });
    isOffered.get_future().wait();
}

FakePortal::~FakePortal() {
    isOver_ = true;
    loop_->wakeUp();
    thread_.join();
}

void FakePortal::setResponse(uint response) { object_->setResponse(response); }

void FakePortal::endSession() {
    endsSession_ = true;
    loop_->wakeUp();
}

std::vector<uint> FakePortal::buttons() const { return object_->buttons(); }

int FakePortal::closedSessions() const { return object_->closedSessions(); }

FakePortal::Values FakePortal::devicesAsked() const { return object_->devicesAsked(); }

FakePortal::Values FakePortal::sourcesAsked() const { return object_->sourcesAsked(); }

} // namespace corvane::contract
