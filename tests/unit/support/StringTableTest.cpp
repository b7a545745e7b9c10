#include "support/StringTable.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(StringTableTest, LinesGiveTextsAndTranslations) {
    const auto table = parsedStringTable("\"Start\" = \"Starten\";\n\"Stop\"=\"Stoppen\" ;");
    ASSERT_TRUE(table);
    EXPECT_EQ(*table, (StringTable{{"Start", "Starten"}, {"Stop", "Stoppen"}}));
}

TEST(StringTableTest, CommentsAndSpaceCountForNothing) {
    const auto table = parsedStringTable("/* \"a\" = \"b\"; */\n\t\"c\" /* here too */ =\r\n"
                                         " \"/* not here */\"; /* the end */ ");
    ASSERT_TRUE(table);
    EXPECT_EQ(*table, (StringTable{{"c", "/* not here */"}}));
}

TEST(StringTableTest, EscapesStandForQuotationMarksAndBreaks) {
    const auto table = parsedStringTable(R"("say \"%@\"" = "„%@“\n\t\\";)");
    ASSERT_TRUE(table);
    EXPECT_EQ(*table, (StringTable{{"say \"%@\"", "„%@“\n\t\\"}}));
}

TEST(StringTableTest, AnEmptyTableHoldsNothing) {
    EXPECT_EQ(parsedStringTable(""), StringTable());
    EXPECT_EQ(parsedStringTable("/* nothing */"), StringTable());
}

TEST(StringTableTest, WhatIsLaidOutOtherwiseIsNoTable) {
    for (const char *source :
         {R"(Start = "Starten";)", R"("Start" "Starten";)", R"("Start" = "Starten")",
          R"("Start" = ;)", R"("Start)", R"("Start\)", R"("Start" = "\q";)", "/* no end",
          R"("a" = "b"; c)", R"("a" = "b"; /* no end)", R"("a" = "b"; "a" = "c";)"}) {
        EXPECT_EQ(parsedStringTable(source), std::nullopt) << source;
    }
}

} // namespace
} // namespace corvane
