#include "platform/wayland/sway/HotKeys.h"

#include "platform/wayland/sway/Bindings.h"
#include "platform/wayland/windows/Json.h"

#include <algorithm>
#include <utility>

namespace corvane::wayland::sway {

namespace {

using nlohmann::json;

/// What sway does when the keys are pressed: nothing but to say so.
constexpr std::string_view pressedCommand = "nop corvane-toggle";

/// Once for each press however long the keys are held, and also while a program keeps sway from
/// handling its own keys.
constexpr std::string_view bindingOptions = "--no-warn --no-repeat --inhibited ";

/// As sway names keys.
std::string keysOf(const HotKey &hotKey) {
    const char lowerCase = static_cast<char>(hotKey.letter - 'A' + 'a');
    return std::string(hotKey.command ? "Mod4+" : "") + (hotKey.shift ? "Shift+" : "") + lowerCase;
}

} // namespace

/// A binding; destroying it takes it out of sway again.
class HotKeys::BoundKeys : public platform::RegisteredHotKey {
  public:
    BoundKeys(HotKeys &hotKeys, std::string keys) : hotKeys_(hotKeys), keys_(std::move(keys)) {
        hotKeys_.bound_.push_back(this);
        bind();
    }
    ~BoundKeys() override {
        std::erase(hotKeys_.bound_, this);
        if (isBound_) {
            hotKeys_.run("unbindsym " + std::string(bindingOptions) + keys_);
        }
    }
    BoundKeys(const BoundKeys &) = delete;
    BoundKeys &operator=(const BoundKeys &) = delete;

    bool isHeard() const override { return isBound_; }

    void bind() {
        isBound_ = hotKeys_.run("bindsym " + std::string(bindingOptions) + keys_ + " " +
                                std::string(pressedCommand));
    }

  private:
    HotKeys &hotKeys_;
    const std::string keys_;
    bool isBound_ = false;
};

HotKeys::HotKeys() {
    if (!events_ || !flagAt(events_->request(MessageType::subscribe, R"(["binding","workspace"])"),
                            "success")) {
        return;
    }
    readable_ = std::make_unique<QSocketNotifier>(events_->descriptor(), QSocketNotifier::Read);
    QObject::connect(readable_.get(), &QSocketNotifier::activated, [this] { readEvent(); });
}

HotKeys::~HotKeys() = default;

std::expected<std::unique_ptr<platform::RegisteredHotKey>, platform::HotKeyStatus>
HotKeys::registerHotKey(const HotKey &hotKey) {
    if (!isOffered()) {
        return std::unexpected(refused);
    }
    // sway would silently replace the user's own binding.
    if (isTaken(hotKey)) {
        return std::unexpected(taken);
    }
    auto bound = std::make_unique<BoundKeys>(*this, keysOf(hotKey));
    if (!bound->isHeard()) {
        return std::unexpected(refused);
    }
    return bound;
}

bool HotKeys::run(const std::string &command) const {
    const json answers = commands_ ? commands_->request(MessageType::runCommand, command) : json();
    return answers.is_array() && !answers.empty() &&
           std::ranges::all_of(answers,
                               [](const json &answer) { return flagAt(answer, "success"); });
}

bool HotKeys::isTaken(const HotKey &hotKey) const {
    const json answer = commands_ ? commands_->request(MessageType::getConfig) : json();
    return bindsKeys(textAt(answer, "config"), keysOf(hotKey));
}

void HotKeys::readEvent() {
    const auto message = events_->receive();
    if (!message) {
        // sway has gone.
        readable_->setEnabled(false);
        return;
    }
    const json event = json::parse(message->payload, nullptr, false);
    if (textAt(event, "change") == "reload") {
        // sway has read its configuration anew and forgotten what was bound since.
        for (BoundKeys *keys : bound_) {
            keys->bind();
        }
    } else if (textAt(memberOf(event, "binding"), "command") == pressedCommand) {
        handlers_.call();
    }
}

} // namespace corvane::wayland::sway
