// A session manager (XSMP). Its commands: "address", where programs find it; "clients", those that
// belong to the session; "save" and "shutdown", which request them to save; "die".

#include <QCoreApplication>
#include <QSocketNotifier>

// Behind those of Qt: the libraries' macros take names that Qt uses.
#include "CommandInput.h"

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using corvane::desktop::CommandInput;
using corvane::desktop::report;

/// A program that belongs to the session.
class SessionClient {
  public:
    explicit SessionClient(SmsConn connection) : connection_(connection) {}
    SessionClient(const SessionClient &) = delete;
    SessionClient &operator=(const SessionClient &) = delete;
    ~SessionClient() { SmsCleanUp(connection_); }

    /// What the session manager does with the program's requests, and which there are.
    SmsCallbacks callbacks();
    static constexpr unsigned long callbackMask =
        SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
        SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
        SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
        SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;

    IceConn transport() const { return SmsGetIceConnection(connection_); }

    /// Requests the program to save what it has, because the session ends or just in case.
    void save(bool isShuttingDown) {
        SmsSaveYourself(connection_, SmSaveBoth, isShuttingDown ? True : False, SmInteractStyleAny,
                        False);
    }
    void die() { SmsDie(connection_); }

    /// The line that describes the client to a test.
    std::string description() const {
        return std::to_string(saves_) + "\t" + std::to_string(restartStyle_);
    }

  private:
    void registerWith(const char *previousName);
    void note(const SmProp &property);

    SmsConn connection_;
    int saves_ = 0;
    /// When the session that is restored starts the program again, as the protocol counts.
    int restartStyle_ = SmRestartIfRunning;
};

SmsCallbacks SessionClient::callbacks() {
    static constexpr auto clientOf = [](SmPointer data) -> SessionClient & {
        return *static_cast<SessionClient *>(data);
    };
    SmsCallbacks callbacks{};
    callbacks.register_client = {
        .callback = [](SmsConn, SmPointer data, char *previousName) -> Status {
            clientOf(data).registerWith(previousName);
            std::free(previousName); // NOLINT(cppcoreguidelines-no-malloc): the library's
            return 1;
        },
        .manager_data = this};
    callbacks.interact_request = {
        .callback = [](SmsConn connection, SmPointer, int) { SmsInteract(connection); },
        .manager_data = this};
    callbacks.interact_done = {.callback = [](SmsConn, SmPointer, Bool) {}, .manager_data = this};
    callbacks.save_yourself_request = {
        .callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, .manager_data = this};
    callbacks.save_yourself_phase2_request = {
        .callback = [](SmsConn connection, SmPointer) { SmsSaveYourselfPhase2(connection); },
        .manager_data = this};
    callbacks.save_yourself_done = {
        .callback = [](SmsConn, SmPointer data, Bool) { ++clientOf(data).saves_; },
        .manager_data = this};
    callbacks.close_connection = {.callback = [](SmsConn, SmPointer, int count,
                                                 char **reasons) { SmFreeReasons(count, reasons); },
                                  .manager_data = this};
    callbacks.set_properties = {
        .callback =
            [](SmsConn, SmPointer data, int count, SmProp **properties) {
                for (int index = 0; index < count; ++index) {
                    clientOf(data).note(*properties[index]);
                    SmFreeProperty(properties[index]);
                }
                std::free(properties); // NOLINT(cppcoreguidelines-no-malloc): the library's
            },
        .manager_data = this};
    callbacks.delete_properties = {.callback = [](SmsConn, SmPointer, int, char **) {},
                                   .manager_data = this};
    callbacks.get_properties = {
        .callback = [](SmsConn connection,
                       SmPointer) { SmsReturnProperties(connection, 0, nullptr); },
        .manager_data = this};
    return callbacks;
}

/// The protocol requires one save request for each new client.
void SessionClient::registerWith(const char *previousName) {
    char *name = SmsGenerateClientID(connection_);
    SmsRegisterClientReply(connection_, name);
    std::free(name); // NOLINT(cppcoreguidelines-no-malloc): the library's
    if (previousName == nullptr) {
        SmsSaveYourself(connection_, SmSaveLocal, False, SmInteractStyleNone, False);
    }
}

void SessionClient::note(const SmProp &property) {
    if (std::strcmp(property.name, SmRestartStyleHint) == 0 && property.num_vals == 1) {
        restartStyle_ = *static_cast<const unsigned char *>(property.vals[0].value);
    }
}

class SessionManager {
  public:
    SessionManager() = default;
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;
    ~SessionManager();

    /// False where that is not possible.
    bool listen();
    bool carryOut(const std::string &command);

  private:
    void accept(IceListenObj listener);
    void receive(IceConn connection);
    void drop(IceConn connection);

    int listenerCount_ = 0;
    IceListenObj *listeners_ = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> notifiers_;
    std::vector<std::unique_ptr<SessionClient>> clients_;
};

SessionManager::~SessionManager() {
    notifiers_.clear();
    if (listeners_ != nullptr) {
        IceFreeListenObjs(listenerCount_, listeners_);
    }
}

bool SessionManager::listen() {
    // The library's own handler ends the process.
    IceSetIOErrorHandler([](IceConn) {});
    const auto admitThisMachine = [](char *host) -> Bool {
        return std::string_view(host).starts_with("local/") ? True : False;
    };
    const auto join = [](SmsConn connection, SmPointer manager, unsigned long *mask,
                         SmsCallbacks *callbacks, char ** /*reason*/) -> Status {
        auto &clients = static_cast<SessionManager *>(manager)->clients_;
        clients.push_back(std::make_unique<SessionClient>(connection));
        *mask = SessionClient::callbackMask;
        *callbacks = clients.back()->callbacks();
        return 1;
    };
    std::array<char, 256> error{};
    if (SmsInitialize("Corvane", "1", join, this, admitThisMachine, int{error.size()},
                      error.data()) == 0 ||
        IceListenForConnections(&listenerCount_, &listeners_, int{error.size()}, error.data()) ==
            0) {
        return false;
    }
    for (int index = 0; index < listenerCount_; ++index) {
        IceListenObj listener = listeners_[index];
        IceSetHostBasedAuthProc(listener, admitThisMachine);
        notifiers_.push_back(std::make_unique<QSocketNotifier>(
            IceGetListenConnectionNumber(listener), QSocketNotifier::Read));
        QObject::connect(notifiers_.back().get(), &QSocketNotifier::activated,
                         [this, listener] { accept(listener); });
    }
    return true;
}

bool SessionManager::carryOut(const std::string &command) {
    if (command == "address") {
        char *address = IceComposeNetworkIdList(listenerCount_, listeners_);
        report(address);
        std::free(address); // NOLINT(cppcoreguidelines-no-malloc): the library's
        return true;
    }
    for (const auto &client : clients_) {
        if (command == "clients") {
            report(client->description());
        } else if (command == "save" || command == "shutdown") {
            client->save(command == "shutdown");
        } else if (command == "die") {
            client->die();
        } else {
            return false;
        }
    }
    return true;
}

void SessionManager::accept(IceListenObj listener) {
    IceAcceptStatus status = IceAcceptFailure;
    IceConn connection = IceAcceptConnection(listener, &status);
    if (connection == nullptr) {
        return;
    }
    notifiers_.push_back(
        std::make_unique<QSocketNotifier>(IceConnectionNumber(connection), QSocketNotifier::Read));
    QObject::connect(notifiers_.back().get(), &QSocketNotifier::activated,
                     [this, connection] { receive(connection); });
}

void SessionManager::receive(IceConn connection) {
    if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess) {
        drop(connection);
    }
}

void SessionManager::drop(IceConn connection) {
    const int descriptor = IceConnectionNumber(connection);
    std::erase_if(clients_, [connection](const std::unique_ptr<SessionClient> &client) {
        return client->transport() == connection;
    });
    // It is this one's event that is being handled.
    const auto notifier = std::ranges::find_if(
        notifiers_, [descriptor](const auto &each) { return each->socket() == descriptor; });
    (*notifier)->setEnabled(false);
    notifier->release()->deleteLater();
    notifiers_.erase(notifier);
    IceSetShutdownNegotiation(connection, False);
    IceCloseConnection(connection);
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    SessionManager manager;
    const CommandInput commands(
        [&manager](const auto &fields) { return manager.carryOut(fields.front()); });
    return manager.listen() ? QCoreApplication::exec() : 1;
}
