#include <gtest/gtest.h>

#include "text/TextHelpers.h"

using namespace zeph;

TEST(Val, ReadsOnlyTheNumberAtTheStart) {
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("  -3.5"), -3.5);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("1,500"), 1);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("-"), 0);
    EXPECT_EQ(Val("2e2x"), 200);
    EXPECT_EQ(Val("3e"), 3);
    EXPECT_EQ(Val("4/2"), 4);
}

TEST(CDbl, ReadsGroupedNumbersAndEmptyAsZero) {
    EXPECT_EQ(CDbl("1,250.5"), 1250.5);
    EXPECT_EQ(CDbl(""), 0);
    EXPECT_EQ(CDbl("30.5"), 30.5);
    EXPECT_EQ(CDbl("x"), 0);
}

TEST(Whole, DropsTheFractionTowardsZero) {
    EXPECT_EQ(Whole(2.9), 2);
    EXPECT_EQ(Whole(-2.9), -2);
    EXPECT_EQ(Whole("7.99 points"), 7);
    EXPECT_EQ(Whole(1e300), Whole(9.2e18));
}

TEST(Str, WritesTheShortestFormWithoutATrailingZero) {
    EXPECT_EQ(Str(3), "3");
    EXPECT_EQ(Str(-4), "-4");
    EXPECT_EQ(Str(1.5), "1.5");
    EXPECT_EQ(Str(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(Str(-0.0), "0");
    EXPECT_EQ(Str(100), "100");
}

TEST(Fields, CountAndPickFieldsWithoutRegardToCase) {
    EXPECT_EQ(CountFields("", "&&"), 0);
    EXPECT_EQ(CountFields("Strength", "&&"), 1);
    EXPECT_EQ(CountFields("Strength&&2", "&&"), 2);
    EXPECT_EQ(CountFields("&&2", "&&"), 2);
    EXPECT_EQ(CountFields("a&&", "&&"), 2);
    EXPECT_EQ(NthField("Strength&&2", "&&", 2), "2");
    EXPECT_EQ(NthField("Strength&&2", "&&", 3), "");
    EXPECT_EQ(NthField("&&2", "&&", 1), "");
    EXPECT_EQ(NthField("aXbxc", "x", 3), "c");
    EXPECT_EQ(NthField("abc", "x", 0), "");
}

TEST(InStr, FindsWithoutRegardToCaseFromOne) {
    EXPECT_EQ(InStr("Essence Channeling", "channeling"), 9);
    EXPECT_EQ(InStr("Taint", "Taint Pool"), 0);
    EXPECT_EQ(InStr("abc", ""), 0);
    EXPECT_EQ(InStr("\xC3\xA9t\xC3\xA9 Pool", "pool"), 5);  // counts characters, not bytes
}

TEST(LeftRightLen, CountCharactersNotBytes) {
    const std::string word = "\xC3\xA9t\xC3\xA9";  // three characters, five bytes
    EXPECT_EQ(Len(word), 3);
    EXPECT_EQ(Left(word, 2), "\xC3\xA9t");
    EXPECT_EQ(Right(word, 1), "\xC3\xA9");
    EXPECT_EQ(Left("Status Quality 2", 14), "Status Quality");
    EXPECT_EQ(Left("Age", 14), "Age");
    EXPECT_EQ(Right("abc", 10), "abc");
    EXPECT_EQ(Left("abc", -1), "");
}

TEST(Numbers, RoundHalvesAwayFromZeroAndFloorDown) {
    EXPECT_EQ(Round(2.5), 3);
    EXPECT_EQ(Round(-2.5), -3);
    EXPECT_EQ(Round(7.0 / 2.0), 4);
    EXPECT_EQ(Floor(-0.5), -1);
    EXPECT_EQ(Floor(0.9), 0);
    EXPECT_EQ(Max(3, 1), 3);
}

TEST(Comparison, IgnoresCase) {
    EXPECT_TRUE(EqualsNoCase("HUMAN", "human"));
    EXPECT_FALSE(EqualsNoCase("Human", "Humans"));
}
