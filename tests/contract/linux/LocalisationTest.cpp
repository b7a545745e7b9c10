#include "platform/linux/environment/Localisation.h"

#include <gtest/gtest.h>

namespace corvane::contract {
namespace {

std::string startIn(const std::vector<std::string> &locales) {
    return linux::Localisation(locales).text("Start");
}

TEST(LocalisationTest, TheTableOfTheUsersLanguageGivesTheTexts) {
    EXPECT_EQ(startIn({"de_AT.UTF-8"}), "Starten");
    EXPECT_EQ(startIn({"es"}), "Iniciar");
    EXPECT_EQ(startIn({"fr_CA.UTF-8@euro"}), "Démarrer");
    EXPECT_EQ(startIn({"ja_JP.UTF-8"}), "開始");
    EXPECT_EQ(startIn({"zh_CN.UTF-8"}), "开始");
}

TEST(LocalisationTest, WithoutATableTheTextsAreEnglish) {
    EXPECT_EQ(startIn({}), "Start");
    EXPECT_EQ(startIn({"C.UTF-8"}), "Start");
    EXPECT_EQ(startIn({"en_GB.UTF-8", "de_DE.UTF-8"}), "Start");
    EXPECT_EQ(startIn({"zh_TW.UTF-8"}), "Start");
}

TEST(LocalisationTest, ATextWithoutTranslationStaysAsItIs) {
    EXPECT_EQ(linux::Localisation({"de"}).text("No such text"), "No such text");
}

} // namespace
} // namespace corvane::contract
