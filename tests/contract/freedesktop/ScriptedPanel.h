#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <functional>
#include <map>

namespace corvane::contract {

/// A panel that answers as a test wants it to whether it shows items, or not at all.
class ScriptedPanel : public QDBusVirtualObject {
  public:
    enum class Answer { nothing, error, no, yes };

    explicit ScriptedPanel(Answer answer);
    ~ScriptedPanel() override;
    ScriptedPanel(const ScriptedPanel &) = delete;
    ScriptedPanel &operator=(const ScriptedPanel &) = delete;

    void setAnswer(Answer answer) { answer_ = answer; }

    /// Whether it lets items register when it is asked to.
    void setTakesItems(bool takesItems) { takesItems_ = takesItems; }

    /// What `client` is answered instead.
    void setAnswerFor(const QString &client, Answer answer) { answers_[client] = answer; }

    /// Is called when a question has been answered.
    void setAnswered(std::function<void()> answered) { answered_ = std::move(answered); }

    /// How often that client of the bus has asked.
    int questionsOf(const QString &client) const;
    int questions() const;
    /// How often an item has registered.
    int registrations() const { return registrations_; }

    /// Gives up the panel's name and stays on the bus.
    void resign();

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  private:
    void answerQuestion(const QDBusMessage &question);

    QDBusConnection bus_;
    Answer answer_;
    bool takesItems_ = true;
    std::map<QString, Answer> answers_;
    std::function<void()> answered_;
    std::map<QString, int> questions_;
    int registrations_ = 0;
};

} // namespace corvane::contract
