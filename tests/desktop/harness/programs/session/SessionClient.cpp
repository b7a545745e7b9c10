#include "SessionClient.h"

#include <cstdlib>
#include <cstring>

namespace corvane::desktop {

namespace {

SessionClient &clientOf(SmPointer data) { return *static_cast<SessionClient *>(data); }

} // namespace

SmsCallbacks SessionClient::callbacks() {
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

unsigned long SessionClient::callbackMask() {
    return SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
           SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
           SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
           SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
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

void SessionClient::askToSave(bool isShuttingDown) {
    SmsSaveYourself(connection_, SmSaveBoth, isShuttingDown ? True : False, SmInteractStyleAny,
                    False);
}

void SessionClient::tellToDie() { SmsDie(connection_); }

std::string SessionClient::description() const {
    return std::to_string(saves_) + "\t" + std::to_string(restartStyle_);
}

} // namespace corvane::desktop
