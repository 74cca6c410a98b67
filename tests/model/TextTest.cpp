// SPDX-License-Identifier: MIT
#include "model/Text.h"

#include <gtest/gtest.h>

namespace korvan {

TEST(Text, TrimsTheWholeSetOfSpacesAndLineBreaksAndNothingElse) {
    for (const std::string space :
         {"\t",     "\n",     "\v",     "\f",     "\r",     " ",      "\u0085", "\u00A0", "\u1680",
          "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
          "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(trimmed(space + "ä b" + space + "\u3000"), "ä b");
        EXPECT_EQ(trimmed("a" + space + "b"), "a" + space + "b");
        EXPECT_TRUE(isBlank(space + space));
    }
    for (const std::string other : {"\x1f", "\u180E", "\u200B", "\uFEFF", "\x85", "\xC2"})
        EXPECT_EQ(trimmed(other), other);
    EXPECT_TRUE(isBlank(""));
}

TEST(TextSearch, IgnoresLetterCaseAndBlanksAroundTheQuery) {
    EXPECT_TRUE(TextSearch("  PING\n").isFoundIn("Ping Host"));
    EXPECT_TRUE(TextSearch("übertragung").isFoundIn("DATEIÜBERTRAGUNG"));
    EXPECT_TRUE(TextSearch(" \u3000").isFoundIn(""));
    EXPECT_FALSE(TextSearch("ping  host").isFoundIn("Ping Host"));
}

TEST(TextSearch, LowersWhatItLowersByItselfAsTheStandardDoes) {
    const auto letter = [](int number) { return std::string{'\xC3', static_cast<char>(number)}; };
    for (int first = 0x80; first <= 0xBF; ++first)
        for (int second = 0x80; second <= 0xBF; ++second)
            EXPECT_EQ(TextSearch(letter(first)).isFoundIn(letter(second)),
                      TextSearch(letter(first) + "Ω").isFoundIn(letter(second) + "Ω"));
    EXPECT_TRUE(TextSearch("\xC3").isFoundIn("a\uFFFD"));
}

TEST(TextSearch, FindsAGreekCapitalWordInsideALongerOne) {
    // Alone, ΟΔΟΣ ends in a final sigma; inside of ΟΔΟΣΗΜΑΝΣΗ it does not.
    EXPECT_TRUE(TextSearch("ΟΔΟΣ").isFoundIn("ΟΔΟΣΗΜΑΝΣΗ"));
    EXPECT_TRUE(TextSearch("οδος").isFoundIn("ΟΔΟΣ"));
    EXPECT_TRUE(TextSearch("ΟΔΟΣΗ").isFoundIn("οδοσημανση"));
}

TEST(TextSearch, LowersAsTheStandardDoesInNoLanguage) {
    EXPECT_TRUE(TextSearch("İ").isFoundIn("i\u0307"));
    EXPECT_TRUE(TextSearch("TITLE").isFoundIn("title")) << "no Turkish dotless i";
    EXPECT_FALSE(TextSearch("ı").isFoundIn("I"));
    EXPECT_FALSE(TextSearch("strasse").isFoundIn("Straße"));
    EXPECT_TRUE(TextSearch("STRAẞE").isFoundIn("Straße"));
}

} // namespace korvan
