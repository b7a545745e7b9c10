#pragma once

#include "platform/wayland/kwin/Script.h"
#include "platform/wayland/windows/Windows.h"

#include <QTimer>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::wayland::kwin {

/// The windows of KWin's list. KWin reports changes only while somebody reads it. Main thread.
class Windows : public wayland::Windows {
  public:
    /// `scriptName` is the reader's own; see Script.
    explicit Windows(QString scriptName);

    std::optional<std::vector<Window>> windows() override;

  private:
    void follow();

    const QString scriptName_;
    std::unique_ptr<Script> script_;
    std::optional<std::vector<Window>> windows_;
    QTimer unreadTimer_;
};

/// The windows of a list as our script writes it, front-most first; nothing where it is none.
std::optional<std::vector<Window>> windowsOf(std::string_view list);

} // namespace corvane::wayland::kwin
