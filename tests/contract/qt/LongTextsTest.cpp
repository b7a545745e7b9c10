#include "SettingsWindowTest.h"
#include "platform/linux/environment/Localisation.h"
#include "platform/qt/alerts/Alerts.h"
#include "support/Localised.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *longerThanAny = "longer than any";

/// As long as a text gets in the wordiest of languages: one word more, and half as long again.
std::string lengthened(std::string_view english) {
    std::string text(english);
    text += " ";
    for (std::size_t letters = 0; letters < english.size() / 2 + 1; ++letters) {
        text += letters % 9 == 8 ? " " : "ä";
    }
    return text;
}

QString textOf(const QWidget &widget) {
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        return label->text();
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        return button->text();
    }
    return {};
}

/// The parts of a text between which a line may end; not all languages put blanks there.
QStringList unbreakableParts(const QString &text) {
    QStringList parts;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    qsizetype start = 0;
    while (finder.toNextBoundary() >= 0) {
        parts << text.sliced(start, finder.position() - start);
        start = finder.position();
    }
    return parts;
}

bool hasRoomForItsText(const QWidget &widget) {
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (label == nullptr || !label->wordWrap()) {
        return widget.width() >= widget.sizeHint().width() &&
               widget.height() >= widget.sizeHint().height();
    }
    const auto words = unbreakableParts(label->text());
    const bool fitsEachWord = std::ranges::all_of(words, [label](const QString &word) {
        return label->fontMetrics().horizontalAdvance(word.trimmed()) <= label->width();
    });
    return fitsEachWord && label->height() >= label->heightForWidth(label->width());
}

/// The texts of a window that are cut at an edge, one a line; empty when all is well.
std::string cutTexts(const QWidget &window) {
    QStringList cut;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isPicker = qobject_cast<const QComboBox *>(widget) != nullptr;
        if (!widget->isVisible() || (textOf(*widget).isEmpty() && !isPicker)) {
            continue;
        }
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (!window.rect().contains(place) || !hasRoomForItsText(*widget)) {
            cut << (isPicker ? u"picker"_s : textOf(*widget));
        }
    }
    return cut.join(u'\n').toStdString();
}

/// The windows in a language, or in one that is wordier than any.
class LongTextsTest : public SettingsWindowTest,
                      public ::testing::WithParamInterface<const char *> {
  protected:
    LongTextsTest() {
        const std::string language = GetParam();
        if (language == longerThanAny) {
            useTextLookup(lengthened);
        } else {
            useTextLookup([table = linux::Localisation({language})](std::string_view english) {
                return table.text(english);
            });
        }
        config.clickMode = ClickMode::zone;
    }
    ~LongTextsTest() override { useTextLookup({}); }
};

} // namespace

TEST_P(LongTextsTest, AZoneThatFollowsAWindow) {
    config.zoneRect = CodableRect{1260, 1180, 1320, 1200};
    config.windowAnchor = WindowAnchor{"org.gnome.TextEditor", "Notes", {40, 60, 320, 200}};
    config.clickRate = 1;
    config.timeUnit = TimeUnit::hours;
    open();
}

TEST_P(LongTextsTest, TheWindowKeepsItsWidth) {
    config.zoneRect = CodableRect{1260, 1180, 1320, 1200};
    config.timeUnit = TimeUnit::minutes;
    open();
    // Rather than cut a text, the window grows.
    if (std::string(GetParam()) == longerThanAny) {
        EXPECT_GE(screenWindow().width(), 540);
    } else {
        EXPECT_EQ(screenWindow().width(), 540);
    }
}

TEST_P(LongTextsTest, NoZone) {
    open();
    EXPECT_EQ(cutTexts(screenWindow()), "");
}

TEST_P(LongTextsTest, NoProfiles) { open("profiles"); }

TEST_P(LongTextsTest, TwoProfiles) {
    profiles = {Profile::fromConfig("Evening game", config),
                Profile::fromConfig("Keep awake", config)};
    open("profiles");
}

TEST_P(LongTextsTest, TheProgramItself) {
    open("about");
    EXPECT_EQ(cutTexts(screenWindow()), "");
}

TEST_P(LongTextsTest, Alerts) {
    const std::vector<Alert> alerts = {
        {.messageText = localised("Anchor to window?"),
         .informativeText = localisedFormat("Anchor zone to \"%@\" (%@)? The zone will follow the "
                                            "window when it moves.",
                                            {"Text Editor", "Notes"}),
         .buttons = {localised("Anchor"), localised("No, keep absolute")}},
        {.style = AlertStyle::warning,
         .messageText = localised("No window found"),
         .informativeText = localised("No window was detected under the current zone. Make sure "
                                      "the target window is visible behind the zone area."),
         .buttons = {localised("OK")}},
        {.messageText = localised("Rename Profile"),
         .informativeText = localised("Enter a new name:"),
         .buttons = {localised("Rename"), localised("Cancel")},
         .field = AlertField{.size = {260, 24}, .placeholder = localised("Profile name")}}};
    for (const Alert &alert : alerts) {
        qt::AlertDialog dialog(alert, qt::OwnWindows());
        dialog.show();
        EXPECT_EQ(cutTexts(dialog), "") << alert.messageText;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, LongTextsTest,
                         ::testing::Values("de", "es", "fr", "ja", "zh_CN", longerThanAny),
                         [](const auto &language) {
                             std::string name = language.param;
                             std::erase_if(
                                 name, [](char letter) { return letter == ' ' || letter == '_'; });
                             return name;
                         });

/// The measure itself must find what is cut.
TEST(CutTextsTest, FindsALabelWithoutRoom) {
    QWidget window;
    QLabel label(u"a text that needs its room"_s, &window);
    window.resize(400, 100);
    label.resize(label.sizeHint());
    window.show();
    EXPECT_EQ(cutTexts(window), "");
    label.resize(label.width() / 2, label.height());
    EXPECT_EQ(cutTexts(window), label.text().toStdString());
    label.resize(label.sizeHint());
    label.move(390, 0);
    EXPECT_EQ(cutTexts(window), label.text().toStdString());
}

} // namespace corvane::contract
