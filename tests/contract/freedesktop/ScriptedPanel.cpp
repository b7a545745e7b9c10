#include "ScriptedPanel.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace corvane::contract {

namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage refusalOf(const QDBusMessage &call) {
    return call.createErrorReply(QDBusError::Failed, QStringLiteral("not now"));
}

} // namespace

ScriptedPanel::ScriptedPanel(Answer answer)
    : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("scripted-panel"))),
      answer_(answer) {
    bus_.registerVirtualObject(path, this);
    bus_.registerService(service);
}

ScriptedPanel::~ScriptedPanel() { QDBusConnection::disconnectFromBus(bus_.name()); }

int ScriptedPanel::questionsOf(const QString &client) const {
    const auto found = questions_.find(client);
    return found == questions_.end() ? 0 : found->second;
}

int ScriptedPanel::questions() const {
    int all = 0;
    for (const auto &[client, count] : questions_) {
        all += count;
    }
    return all;
}

void ScriptedPanel::resign() { bus_.unregisterService(service); }

bool ScriptedPanel::handleMessage(const QDBusMessage &message,
                                  const QDBusConnection & /*connection*/) {
    if (message.member() == QLatin1String("RegisterStatusNotifierItem")) {
        ++registrations_;
        bus_.send(takesItems_ ? message.createReply() : refusalOf(message));
    } else if (message.member() == QLatin1String("Get")) {
        answerQuestion(message);
    }
    return true;
}

void ScriptedPanel::answerQuestion(const QDBusMessage &question) {
    ++questions_[question.service()];
    const auto special = answers_.find(question.service());
    const Answer answer = special == answers_.end() ? answer_ : special->second;
    if (answer == Answer::error) {
        bus_.send(refusalOf(question));
    } else if (answer != Answer::nothing) {
        bus_.send(question.createReply(QVariant::fromValue(QDBusVariant(answer == Answer::yes))));
    }
    if (answered_) {
        std::exchange(answered_, {})();
    }
}

} // namespace corvane::contract
