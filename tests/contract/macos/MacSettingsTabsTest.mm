#import "MacBackEnd.h"
#import "Pictures.h"
#include "platform/Platform.h"
#include "platform/SettingsWindows.h"
#include "support/recorder/RecordingPlatform.h"
#include "ui/AboutTab.h"
#include "ui/GeneralTab.h"
#include "ui/ProfilesTab.h"

#import <AppKit/AppKit.h>

#include <memory>

namespace corvane::contract {

namespace {

/// The tabs as the system draws them.
class MacSettingsTabsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        window_ = backEnd_.platform().settingsWindows().create(
            {.title = "General",
             .width = settingsWindowWidth,
             .toolbar = {.identifier = "ContractTests",
                         .items = {{"general", "General", {.name = "gearshape"}}},
                         .selectedItem = "general"}},
            [](const std::string &) {});
        ASSERT_NE(native(), nil);
    }

    static NSWindow *native() {
        for (NSWindow *window in NSApp.windows) {
            if ([window.toolbar.identifier isEqualToString:@"ContractTests"]) {
                return window;
            }
        }
        return nil;
    }

    void show(const View &tab, const std::string &name) {
        window_->setContent(tab);
        window_->makeKeyAndOrderFront();
        for (NSAppearanceName appearance in @[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]) {
            native().appearance = [NSAppearance appearanceNamed:appearance];
            [native() displayIfNeeded];
            expectSound(native().contentView);
            keepPicture(name + "-" + appearance.UTF8String);
        }
    }

    /// Nothing is ambiguous, and every control has at least its natural size.
    static void expectSound(NSView *view) {
        EXPECT_FALSE(view.hasAmbiguousLayout) << view.description.UTF8String;
        if ([view isKindOfClass:NSButton.class] || [view isKindOfClass:NSStepper.class]) {
            const NSSize natural = view.intrinsicContentSize;
            const NSRect area = [view alignmentRectForFrame:view.frame];
            EXPECT_GE(area.size.width, natural.width - 1) << view.description.UTF8String;
            EXPECT_GE(area.size.height, natural.height - 1) << view.description.UTF8String;
        }
        for (NSView *child in view.subviews) {
            expectSound(child);
        }
    }

    NSScrollView *scrollView() { return static_cast<NSScrollView *>(native().contentView); }

    corvane::testing::RecordingPlatform recorder_;
    WindowResolver resolver_{recorder_.windowList(), recorder_.applications(),
                             recorder_.accessibility()};
    MacBackEnd backEnd_;
    std::unique_ptr<platform::NativeSettingsWindow> window_;
};

TEST_F(MacSettingsTabsTest, EachTabIsLaidOutWhole) {
    CorvaneConfig config;
    config.clickMode = ClickMode::zone;
    show(std::make_shared<GeneralTab>(config, recorder_.loginItem(), recorder_.alerts(),
                                      recorder_.applications(), resolver_)
             ->body(),
         "general");
    show(std::make_shared<AboutTab>(recorder_.application(), recorder_.workspace())->body(),
         "about");
}

TEST_F(MacSettingsTabsTest, ManyProfilesScrollInAWindowThatFitsTheScreen) {
    std::vector<Profile> profiles(300);
    for (Profile &profile : profiles) {
        profile = {.id = Uuid::random(), .name = "Work"};
    }
    show(std::make_shared<ProfilesTab>(profiles, std::nullopt, recorder_.alerts(),
                                       recorder_.applications())
             ->body(),
         "profiles");
    EXPECT_LE(NSHeight(native().frame), NSHeight(native().screen.visibleFrame));
    EXPECT_GT(NSHeight(scrollView().documentView.frame), 300 * 40);
    EXPECT_GT(NSHeight(scrollView().documentView.frame), NSHeight(scrollView().frame));
}

} // namespace

} // namespace corvane::contract
