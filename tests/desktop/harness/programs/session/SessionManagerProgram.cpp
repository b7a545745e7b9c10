#include "SessionManagerProgram.h"

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace corvane::desktop {

namespace {

Bool admitThisMachine(char *host) {
    return std::string_view(host).starts_with("local/") ? True : False;
}

/// The library's own handler ends the process.
void ignoreLostConnection(IceConn /*connection*/) {}

} // namespace

SessionManagerProgram::~SessionManagerProgram() {
    notifiers_.clear();
    if (listeners_ != nullptr) {
        IceFreeListenObjs(listenerCount_, listeners_);
    }
}

bool SessionManagerProgram::listen() {
    IceSetIOErrorHandler(ignoreLostConnection);
    const auto join = [](SmsConn connection, SmPointer manager, unsigned long *mask,
                         SmsCallbacks *callbacks, char ** /*reason*/) -> Status {
        auto &clients = static_cast<SessionManagerProgram *>(manager)->clients_;
        clients.push_back(std::make_unique<SessionClient>(connection));
        *mask = SessionClient::callbackMask();
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

bool SessionManagerProgram::carryOut(const std::vector<std::string> &fields) {
    const std::string &command = fields.front();
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
            client->askToSave(command == "shutdown");
        } else if (command == "die") {
            client->tellToDie();
        } else {
            return false;
        }
    }
    return true;
}

void SessionManagerProgram::accept(IceListenObj listener) {
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

void SessionManagerProgram::receive(IceConn connection) {
    const IceProcessMessagesStatus status = IceProcessMessages(connection, nullptr, nullptr);
    if (status != IceProcessMessagesSuccess) {
        drop(connection);
    }
}

void SessionManagerProgram::drop(IceConn connection) {
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

} // namespace corvane::desktop
