#pragma once

#include <QDBusVirtualObject>
#include <QString>
#include <QVariantList>

#include <functional>

namespace corvane::wayland::kwin {

/// A script that KWin runs from the constructor to the destructor, and what it reports. Both wait
/// for KWin. Used by one thread, whose event loop delivers the reports.
class Script : public QDBusVirtualObject {
  public:
    using Report = std::function<void(const QVariantList &values)>;

    /// `name` is the script's own in this session; a script of that name that a killed program left
    /// behind is removed. In `text` the function `report` calls this program with up to five
    /// values. What the script reports while it is first run has arrived with the constructor's
    /// end, and is delivered by `deliver` or by the event loop.
    Script(const QString &name, const QString &text, Report report);
    ~Script() override;

    Script(const Script &) = delete;
    Script &operator=(const Script &) = delete;

    /// Delivers at once what has arrived.
    void deliver();

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString & /*path*/) const override { return {}; }

  private:
    const QString name_;
    const QString path_;
    const Report report_;
};

} // namespace corvane::wayland::kwin
