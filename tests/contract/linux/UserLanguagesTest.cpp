#include "platform/linux/environment/UserLanguages.h"

#include "EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace corvane::contract {
namespace {

using Locales = std::vector<std::string>;

/// What the environment says of the language, for as long as it lives.
struct Environment {
    Environment(const char *languages, const char *all, const char *ofMessages, const char *general)
        : languages_("LANGUAGE", languages),
          all_("LC_ALL", all),
          ofMessages_("LC_MESSAGES", ofMessages),
          general_("LANG", general) {}

    EnvironmentVariable languages_;
    EnvironmentVariable all_;
    EnvironmentVariable ofMessages_;
    EnvironmentVariable general_;
};

TEST(UserLanguagesTest, TheMostSpecificVariableNamesTheLocale) {
    {
        const Environment environment("", "", "", "fr_FR.UTF-8");
        EXPECT_EQ(linux::userLocales(), Locales{"fr_FR.UTF-8"});
    }
    {
        const Environment environment("", "", "de_DE.UTF-8", "fr_FR.UTF-8");
        EXPECT_EQ(linux::userLocales(), Locales{"de_DE.UTF-8"});
    }
    const Environment environment("", "ja_JP.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8");
    EXPECT_EQ(linux::userLocales(), Locales{"ja_JP.UTF-8"});
}

TEST(UserLanguagesTest, AListOfLanguagesGoesBeforeTheLocale) {
    const Environment environment("pt:es", "", "", "de_DE.UTF-8");
    EXPECT_EQ(linux::userLocales(), (Locales{"pt", "es", "de_DE.UTF-8"}));
}

TEST(UserLanguagesTest, TheListCountsWhereNoLocaleIsNamed) {
    const Environment environment("es", "", "", "");
    EXPECT_EQ(linux::userLocales(), Locales{"es"});
}

TEST(UserLanguagesTest, ThePlainLocaleMeansEnglishWhateverTheListSays) {
    {
        const Environment environment("de", "C", "", "de_DE.UTF-8");
        EXPECT_EQ(linux::userLocales(), Locales());
    }
    const Environment environment("de", "", "", "POSIX");
    EXPECT_EQ(linux::userLocales(), Locales());
}

TEST(UserLanguagesTest, NothingIsNamed) {
    const Environment environment("", "", "", "");
    EXPECT_EQ(linux::userLocales(), Locales());
}

TEST(UserLanguagesTest, TheFirstLocaleWithATableWins) {
    const Locales tables = {"de", "fr", "zh-Hans"};
    EXPECT_EQ(linux::bestTable({"pt_BR.UTF-8", "fr_FR.UTF-8", "de"}, tables), "fr");
    EXPECT_EQ(linux::bestTable({"de_CH.UTF-8@euro"}, tables), "de");
    EXPECT_EQ(linux::bestTable({"pt", "it"}, tables), "");
    EXPECT_EQ(linux::bestTable({}, tables), "");
}

TEST(UserLanguagesTest, EnglishNeedsNoTable) {
    EXPECT_EQ(linux::bestTable({"en_US.UTF-8", "de"}, {"de", "en"}), "");
}

TEST(UserLanguagesTest, ChineseHasTwoScripts) {
    const Locales tables = {"zh-Hans"};
    for (const char *simplified : {"zh_CN.UTF-8", "zh_SG", "zh", "zh-Hans", "zh_Hans_CN"}) {
        EXPECT_EQ(linux::bestTable({simplified}, tables), "zh-Hans") << simplified;
    }
    for (const char *traditional : {"zh_TW.UTF-8", "zh_HK", "zh_MO", "zh-Hant"}) {
        EXPECT_EQ(linux::bestTable({traditional}, tables), "") << traditional;
    }
}

} // namespace
} // namespace corvane::contract
