#include "BackEnd.h"
#include "platform/Platform.h"
#include "platform/UserSession.h"

namespace corvane::contract {

namespace {

using platform::SessionState;

class UserSessionContract : public ContractTest {
  protected:
    platform::UserSession &session() { return platform().userSession(); }

    /// The screen is locked or unlocked, and the back end has noticed.
    [[nodiscard]] bool lock(bool isLocked) {
        backEnd().announceLock(isLocked);
        const auto expected = isLocked ? SessionState::locked : SessionState::active;
        return backEnd().turnUntil([&] { return session().state() == expected; });
    }
};

TEST_P(UserSessionContract, IsActiveUntilSomethingIsAnnounced) {
    EXPECT_EQ(session().state(), SessionState::active);
}

TEST_P(UserSessionContract, EachChangeIsReportedOnceWithTheNewState) {
    std::vector<SessionState> reported;
    session().whenChanged([&] { reported.push_back(session().state()); });
    ASSERT_TRUE(lock(true));
    ASSERT_TRUE(lock(false));
    EXPECT_EQ(reported, (std::vector{SessionState::locked, SessionState::active}));
    session().whenChanged({});
}

TEST_P(UserSessionContract, OnlyTheLastObserverIsCalled) {
    int calls = 0;
    session().whenChanged([] { ADD_FAILURE() << "was replaced"; });
    session().whenChanged([&calls] { ++calls; });
    ASSERT_TRUE(lock(true));
    EXPECT_EQ(calls, 1);
    session().whenChanged({});
    EXPECT_TRUE(lock(false));
}

CORVANE_CONTRACT(UserSessionContract);

} // namespace

} // namespace corvane::contract
