#include "Look.h"
#include "SettingsWindowTest.h"
#include "SpokenText.h"

#include <X11/keysym.h>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

class AboutTabOnScreenTest : public SettingsWindowTest {};

TEST_F(AboutTabOnScreenTest, FollowsTheColoursOfTheDesktop) {
    const Look before;
    open("about");
    const auto picture = [this](const QString &name) {
        return named(name).grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    for (const char16_t *name :
         {u"Corvane", u"Profiles", u"Support this app", u"corvane.example"}) {
        EXPECT_LT(darkest(picture(QString::fromUtf16(name))), 110);
    }
    QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
    QApplication::processEvents();
    for (const char16_t *name :
         {u"Corvane", u"Profiles", u"Support this app", u"corvane.example"}) {
        EXPECT_GT(lightest(picture(QString::fromUtf16(name))), 140);
    }
}

TEST_F(AboutTabOnScreenTest, SaysWhatItShowsAndOpensLinks) {
    platform.application().icon = ":/AppIcon.svg";
    open("about");
    EXPECT_EQ(spoken(), lines("label 'Corvane'\n"
                              "label 'Version 2.1 (37)'\n"
                              "label 'A simple auto-clicker for macOS.'\n"
                              "link 'corvane.example' for 'https://corvane.example/'\n"
                              "link 'Support this app' for 'https://corvane.example/donate'\n"
                              "link 'Made by the Corvane authors' for "
                              "'https://corvane.example/authors'"));
    focus(named(u"Support this app"_s));
    strike(XK_Return, [this] { return !platform.workspace().opened.empty(); });
    EXPECT_EQ(platform.workspace().opened,
              std::vector<std::string>{"https://corvane.example/donate"});
}

TEST_F(AboutTabOnScreenTest, SurvivesAnIconThatIsNoPicture) {
    platform.application().icon = "/nowhere/icon.png";
    open("about");
    EXPECT_FALSE(screenWindow().grab().isNull());
}

} // namespace

} // namespace corvane::contract
