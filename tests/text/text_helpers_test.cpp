#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

#include "support/CommaLocale.h"
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
    EXPECT_EQ(Val("+5"), 5);
    EXPECT_EQ(Val("1e999"), 0);
}

TEST(CDbl, ReadsGroupedNumbersAndEmptyAsZero) {
    EXPECT_EQ(CDbl("1,250.5"), 1250.5);
    EXPECT_EQ(CDbl(""), 0);
    EXPECT_EQ(CDbl("30.5"), 30.5);
    EXPECT_EQ(CDbl("x"), 0);
}

// The app takes the user's locale; one that writes "2,5" must change no number of the sheet.
TEST(Numbers, ReadAndWriteTheSameUnderACommaDecimalLocale) {
    zeph::testing::CommaLocale locale;
    const bool comma = zeph::testing::CommaLocale::TakeFromEnvironment();
    if (comma) {
        EXPECT_EQ(Val("2.5"), 2.5);
        EXPECT_EQ(Val("-1.5e1x"), -15);
        EXPECT_EQ(CDbl("1,250.5"), 1250.5);
        EXPECT_EQ(CDbl("2,5"), 25);
        EXPECT_EQ(Str(2.5), "2.5");
        EXPECT_EQ(Str(0.1 + 0.2), "0.3");
    }
    std::setlocale(LC_ALL, "C");
    if (!comma) GTEST_SKIP() << "no comma-decimal locale here (localedef or de_DE missing)";
}

TEST(Whole, DropsTheFractionTowardsZero) {
    EXPECT_EQ(Whole(2.9), 2);
    EXPECT_EQ(Whole(-2.9), -2);
    EXPECT_EQ(Whole("7.99 points"), 7);
    EXPECT_EQ(Whole(1e300), Whole(9.2e18));
}

TEST(Str, WritesPlainDigitsToFifteenSignificantWithoutATrailingZero) {
    const struct {
        double x;
        const char* text;
    } cases[] = {{-4, "-4"},
                 {1.5, "1.5"},
                 {-0.0, "0"},
                 {100000, "100000"},
                 {0.1 + 0.2, "0.3"},
                 {1.0 / 3, "0.333333333333333"},
                 {-2.0 / 3, "-0.666666666666667"},
                 {1e15, "1000000000000000"},
                 {123456789012345.6, "123456789012346"},
                 {999999999999999.9, "1000000000000000"},
                 {1.5e20, "150000000000000000000"},
                 {0.000001, "0.000001"},
                 {-0.00012345, "-0.00012345"},
                 {1e-7, "1e-07"},
                 {-2.5e22, "-2.5e+22"},
                 {NAN, "0"},
                 {INFINITY, "inf"},
                 {-INFINITY, "-inf"}};
    for (const auto& c : cases) EXPECT_EQ(Str(c.x), c.text);
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
    EXPECT_EQ(CountFields("Größe&&Stärke&&ÉLAN", "&&"), 3);
    EXPECT_EQ(NthField("Größe&&Stärke&&ÉLAN", "&&", 2), "Stärke");
    EXPECT_EQ(NthField("aÉb", "é", 2), "b");
    EXPECT_EQ(CountFields("Maße", "S"), 2);  // a separator inside the folding of ß takes all of ß
    EXPECT_EQ(NthField("Maße", "S", 2), "e");
}

TEST(InStr, FindsWithoutRegardToCaseFromOne) {
    EXPECT_EQ(InStr("Essence Channeling", "channeling"), 9);
    EXPECT_EQ(InStr("Taint", "Taint Pool"), 0);
    EXPECT_EQ(InStr("abc", ""), 0);
    EXPECT_EQ(InStr("\xC3\xA9t\xC3\xA9 Pool", "pool"), 5);  // counts characters, not bytes
    EXPECT_EQ(InStr("Über Élan", "élan"), 6);
    EXPECT_EQ(InStr("Maße", "SSE"), 3);
    EXPECT_EQ(InStr("x\xFF\xFFÉ", "é"), 4);  // a stray byte is a character of its own
    EXPECT_EQ(InStr("Über", ""), 0);
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

TEST(Comparison, IgnoresCaseInAnyLanguage) {
    const struct {
        const char *a, *b;
        bool equal;
    } cases[] = {{"HUMAN", "human", true},    {"Human", "Humans", false}, {"É", "é", true},
                 {"Straße", "STRASSE", true}, {"Ωmega", "ωMEGA", true},   {"Élan", "Élans", false},
                 {"Straße", "STRASS", false}, {"\xFF", "\xFF", true},     {"\xFFx", "\xFEx", false},
                 {"\xC3", "Ã", false}};
    for (const auto& c : cases) EXPECT_EQ(EqualsNoCase(c.a, c.b), c.equal) << c.a << " / " << c.b;
}
