#include "platform/x11/windows/ClientWindows.h"

#include "SampleWindow.h"
#include "WaitUntil.h"
#include "WindowSystemTest.h"
#include "actors/ClickClient.h"
#include "platform/linux/timing/MainQueue.h"

#include <xcb/xcb.h>

#include <algorithm>

#include <sys/socket.h>
#include <unistd.h>

namespace corvane::contract {

namespace {

using desktop::DisplayConnection;

/// One window as it was read.
struct Answer {
    std::optional<std::string> title;
    std::optional<Point> position;
    std::optional<Size> size;
};

class ClientWindowsTest : public EveryWindowManagerTest {
  protected:
    std::vector<Answer> answers() { return answersOf(getpid()); }

    std::vector<Answer> answersOf(std::int32_t process) {
        std::vector<Answer> answers;
        const auto windows = clientWindows_.accessibilityWindowsOf({process});
        if (!windows) {
            return answers;
        }
        for (const auto &window : *windows) {
            answers.push_back({window->title(), window->position(), window->size()});
        }
        return answers;
    }

    std::optional<Answer> named(const std::string &title) {
        const auto all = answers();
        const auto answer = std::ranges::find(all, std::optional(title), &Answer::title);
        return answer != all.end() ? std::optional(*answer) : std::nullopt;
    }

    void show(const SampleWindow &window, const std::string &title) {
        window.setTitle(title);
        window.map();
        ASSERT_TRUE(turnUntil([&] {
            const auto answer = named(title);
            return answer && answer->position;
        }));
    }

    /// How many requests the back end sends while `work` is done.
    unsigned requestsDuring(const std::function<void()> &work) {
        xcb_connection_t *const connection = watching().get();
        const unsigned before = xcb_no_operation(connection).sequence;
        work();
        return xcb_no_operation(connection).sequence - before - 1;
    }

    /// Where the server has the client area.
    Point positionOf(xcb_window_t window) const {
        const x11::XcbReply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(
                connection().get(),
                xcb_translate_coordinates(connection().get(), window, connection().root(), 0, 0),
                nullptr));
        return {double(reply->dst_x), double(reply->dst_y)};
    }

    /// The widths of the frame to the left and above.
    Point frameExtents(xcb_window_t window) const {
        const x11::XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection().get(),
            xcb_get_property(connection().get(), 0, window, connection().atom("_NET_FRAME_EXTENTS"),
                             XCB_ATOM_CARDINAL, 0, 4),
            nullptr));
        const auto *widths = static_cast<std::uint32_t *>(xcb_get_property_value(reply.get()));
        return {double(widths[0]), double(widths[2])};
    }

    const DisplayConnection &connection() const { return desktop_.connection(); }
    /// The back end's own.
    const x11::XcbConnection &watching() const { return clientWindows_.connection(); }

    linux::MainQueue mainQueue_;
    x11::ClientWindows clientWindows_{x11::XcbConnection::open().value(), mainQueue_};
};

TEST_P(ClientWindowsTest, AreTheSameObjectsWhileNothingChanges) {
    const SampleWindow window(connection());
    show(window, "Sample");
    const auto windows = [this] { return clientWindows_.accessibilityWindowsOf({getpid()}); };
    // The list is read again every half second.
    EXPECT_TRUE(turnUntil([&] { return windows() == windows(); }));
    const auto before = windows();
    window.setTitle("Renamed");
    ASSERT_TRUE(turnUntil([this] { return named("Renamed").has_value(); }));
    EXPECT_NE(windows(), before);
}

TEST_P(ClientWindowsTest, AnApplicationWithoutWindowsHasAnEmptyList) {
    EXPECT_TRUE(answers().empty());
}

TEST_P(ClientWindowsTest, OnlyTheWindowsOfTheProcessAreItsWindows) {
    desktop::ClickClient client(desktop_);
    client.open({.title = "Theirs"});
    const SampleWindow window(connection());
    show(window, "Ours");
    EXPECT_EQ(answers().size(), 1U);
    const auto theirs = answersOf(client.pid());
    ASSERT_EQ(theirs.size(), 1U);
    EXPECT_EQ(theirs.front().title, "Theirs");
}

TEST_P(ClientWindowsTest, TheFrontMostComesFirst) {
    const SampleWindow one(connection());
    const SampleWindow other(connection());
    show(one, "One");
    show(other, "Other");
    one.raise();
    EXPECT_TRUE(turnUntil([this] { return answers().front().title == "One"; }));
    other.raise();
    EXPECT_TRUE(turnUntil([this] { return answers().front().title == "Other"; }));
    EXPECT_EQ(answers().size(), 2U);
}

TEST_P(ClientWindowsTest, AMovedWindowIsFollowedAtOnce) {
    const SampleWindow window(connection());
    show(window, "Moves");
    for (std::int16_t x = 200; x <= 600; x = static_cast<std::int16_t>(x + 100)) {
        const auto before = positionOf(window.id());
        window.moveTo(x, 300);
        ASSERT_TRUE(desktop::waitUntil([&] { return positionOf(window.id()) != before; }));
        const auto moved = positionOf(window.id());
        // Behind the answer nothing older is on its way.
        watching().synchronise();
        const auto found = named("Moves");
        const auto frame = frameExtents(window.id());
        EXPECT_EQ(found->position, (Point{moved.x - frame.x, moved.y - frame.y}));
    }
}

TEST_P(ClientWindowsTest, AResizedWindowHasItsNewSize) {
    const SampleWindow window(connection());
    show(window, "Grows");
    const auto before = *named("Grows")->size;
    window.resizeTo(360, 270);
    EXPECT_TRUE(turnUntil(
        [&] { return named("Grows")->size == Size{before.width + 60, before.height + 70}; }));
}

TEST_P(ClientWindowsTest, AChangedTitleIsSeen) {
    const SampleWindow window(connection());
    show(window, "Report");
    window.setTitle("Report (edited)");
    EXPECT_TRUE(turnUntil([this] { return named("Report (edited)").has_value(); }));
    EXPECT_EQ(answers().size(), 1U);
}

TEST_P(ClientWindowsTest, AMinimisedWindowHasATitleButNoFrame) {
    const SampleWindow window(connection());
    show(window, "Away");
    window.minimise();
    EXPECT_TRUE(turnUntil([this] { return !named("Away")->position; }));
    EXPECT_EQ(named("Away")->size, std::nullopt);
    window.restore();
    EXPECT_TRUE(turnUntil([this] { return named("Away")->position && named("Away")->size; }));
}

TEST_P(ClientWindowsTest, AWindowOnAnotherWorkspaceHasNoFrame) {
    const SampleWindow window(connection());
    show(window, "Elsewhere");
    desktop_.run({"wmctrl", "-s", "1"});
    EXPECT_TRUE(turnUntil([this] { return !named("Elsewhere")->position; }));
    desktop_.run({"wmctrl", "-s", "0"});
    EXPECT_TRUE(turnUntil([this] { return named("Elsewhere")->position.has_value(); }));
}

TEST_P(ClientWindowsTest, AClosedWindowIsGone) {
    const SampleWindow stays(connection());
    show(stays, "Stays");
    {
        const SampleWindow closes(connection());
        show(closes, "Closes");
    }
    EXPECT_TRUE(turnUntil([this] { return answers().size() == 1; }));
    EXPECT_EQ(answers().front().title, "Stays");
}

TEST_P(ClientWindowsTest, AWindowThatAppearsIsFound) {
    const SampleWindow one(connection());
    show(one, "One");
    const SampleWindow other(connection());
    show(other, "Other");
    EXPECT_EQ(answers().size(), 2U);
}

TEST_P(ClientWindowsTest, PanelsAndSplashScreensAreNotAmongThem) {
    const SampleWindow panel(connection());
    panel.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    panel.setTitle("Panel");
    panel.map();
    const SampleWindow window(connection());
    show(window, "Window");
    EXPECT_EQ(answers().size(), 1U);
}

TEST_P(ClientWindowsTest, AskingAgainCostsNothingWhileNothingChanges) {
    const SampleWindow window(connection());
    show(window, "Still");
    watching().synchronise();
    // Once in a while the list is read again, to be sure; hardly every time.
    const auto askTenTimes = [this] {
        for (int count = 0; count < 10; ++count) {
            answers();
        }
    };
    bool wasFree = false;
    for (int attempt = 0; attempt < 20 && !wasFree; ++attempt) {
        answers();
        const auto requests = requestsDuring(askTenTimes);
        wasFree = requests == 0;
    }
    EXPECT_TRUE(wasFree);
}

TEST_P(ClientWindowsTest, WindowsThatNobodyAsksForAreNotWatched) {
    const SampleWindow window(connection());
    show(window, "Forgotten");
    EXPECT_TRUE(turnUntil([&] {
        window.setTitle("Changed");
        connection().synchronize();
        watching().synchronise();
        const x11::XcbReply<xcb_generic_event_t> heard(xcb_poll_for_event(watching().get()));
        return !heard;
    }));
    // A change without an event is found by the next read.
    EXPECT_TRUE(named("Changed").has_value());
}

TEST_P(ClientWindowsTest, AReusedWindowNumberIsAnotherWindow) {
    auto client = std::make_unique<desktop::ClickClient>(desktop_);
    const auto first = client->windowId(client->open({.title = "First"}));
    const auto before = client->pid();
    ASSERT_TRUE(turnUntil([&] { return answersOf(before).size() == 1; }));
    client.reset();
    client = std::make_unique<desktop::ClickClient>(desktop_);
    ASSERT_EQ(client->windowId(client->open({.title = "Second"})), first);
    EXPECT_TRUE(turnUntil([&] { return answersOf(client->pid()).size() == 1; }));
    EXPECT_TRUE(answersOf(before).empty());
}

TEST_P(ClientWindowsTest, ALostConnectionIsReplaced) {
    const SampleWindow window(connection());
    show(window, "Found again");
    for (std::int16_t x = 200; x <= 400; x = static_cast<std::int16_t>(x + 100)) {
        ASSERT_EQ(shutdown(watching().fileDescriptor(), SHUT_RDWR), 0);
        EXPECT_TRUE(turnUntil([this] { return named("Found again").has_value(); }));
        EXPECT_FALSE(watching().isLost());
        // Later events come over the new connection.
        const auto before = named("Found again")->position;
        window.moveTo(x, 300);
        EXPECT_TRUE(turnUntil([&] { return named("Found again")->position != before; }));
    }
}

TEST_P(ClientWindowsTest, ALostConnectionTakesNoWindowFromTheListForLong) {
    desktop::ClickClient client(desktop_);
    client.open({.title = "Theirs"});
    ASSERT_TRUE(turnUntil([&] { return answersOf(client.pid()).size() == 1; }));
    ASSERT_EQ(shutdown(watching().fileDescriptor(), SHUT_RDWR), 0);
    EXPECT_TRUE(turnUntil([&] {
        const auto owners = clientWindows_.owners();
        return std::ranges::find(*owners, std::optional<std::int32_t>(client.pid()),
                                 &x11::WindowOwner::processIdentifier) != owners->end();
    }));
}

INSTANTIATE_TEST_SUITE_P(All, ClientWindowsTest, windowManagers, windowManagerName);

} // namespace

} // namespace corvane::contract
