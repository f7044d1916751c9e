#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "text/TextHelpers.h"

using namespace zeph;

TEST(Numbers, ValReadsTheNumberAtTheStartCDblGroupedOnesWholeCutsRoundHalvesAway) {
    const std::pair<const char*, double> val[] = {
        {"12abc", 12}, {"  -3.5", -3.5}, {"abc", 0}, {"", 0}, {"1,500", 1}, {".5", 0.5}, {"-", 0},
        {"2e2x", 200}, {"1e+5", 1e5}, {"3e", 3}, {"4/2", 4}, {"+5", 5}, {"1e999", 0}};
    for (const auto& [text, x] : val) EXPECT_EQ(Val(text), x) << text;
    const std::pair<const char*, double> cdbl[] = {{"1,250.5", 1250.5}, {"", 0}, {"x", 0}};
    for (const auto& [text, x] : cdbl) EXPECT_EQ(CDbl(text), x) << text;
    EXPECT_EQ(Whole(-2.9), -2);
    EXPECT_EQ(Whole("7.99 points"), 7);
    EXPECT_EQ(Whole(1e300), Whole(9.2e18));
    EXPECT_EQ(Round(2.5), 3);
    EXPECT_EQ(Round(-2.5), -3);
    EXPECT_EQ(Floor(-0.5), -1);
    EXPECT_EQ(Floor(0.9), 0);
}

TEST(Numbers, WholeSumsAndProductsAreExactWhileTheyFitAndStopAtWholesBoundBeyond) {
    const std::int64_t bound = Whole(1e300), max = INT64_MAX, min = INT64_MIN;
    const std::tuple<std::int64_t, std::int64_t, std::int64_t> sums[] = {
        {2, 3, 5},       {-7, 4, -3},       {max - 1, 1, max},        {bound, bound, bound},
        {max, 1, bound}, {min, -1, -bound}, {-bound, -bound, -bound}, {max, min, -1}};
    for (const auto& [a, b, sum] : sums) EXPECT_EQ(AddWhole(a, b), sum) << a << " + " << b;
    const std::tuple<std::int64_t, std::int64_t, std::int64_t> products[] = {
        {6, 7, 42},        {-3, 4, -12},        {bound, 1, bound},   {max / 2, 2, max - 1},
        {bound, 2, bound}, {bound, -2, -bound}, {-bound, -3, bound}, {min, -1, bound},
        {0, bound, 0}};
    for (const auto& [a, b, product] : products)
        EXPECT_EQ(MultiplyWhole(a, b), product) << a << " * " << b;
}

TEST(Str, WritesPlainDigitsToFifteenSignificantWithoutATrailingZero) {
    const std::pair<double, const char*> cases[] = {
        {-4, "-4"}, {1.5, "1.5"}, {-0.0, "0"}, {100000, "100000"}, {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"}, {-2.0 / 3, "-0.666666666666667"},
        {1e15, "1000000000000000"}, {123456789012345.6, "123456789012346"},
        {999999999999999.9, "1000000000000000"}, {1.5e20, "150000000000000000000"},
        {0.000001, "0.000001"}, {-0.00012345, "-0.00012345"}, {1e-7, "1e-07"},
        {-2.5e22, "-2.5e+22"}, {NAN, "0"}, {INFINITY, "inf"}, {-INFINITY, "-inf"}};
    for (const auto& [x, text] : cases) EXPECT_EQ(Str(x), text);
}

TEST(Fields, CountAndPickFieldsWithoutRegardToCase) {
    const std::pair<const char*, int> counts[] = {
        {"", 0}, {"Strength", 1}, {"Strength&&2", 2}, {"&&2", 2}, {"a&&", 2},
        {"Größe&&Stärke&&ÉLAN", 3}};
    for (const auto& [text, n] : counts) EXPECT_EQ(CountFields(text, "&&"), n) << text;
    const std::tuple<const char*, const char*, int, const char*> picks[] = {
        {"Strength&&2", "&&", 2, "2"}, {"Strength&&2", "&&", 3, ""}, {"&&2", "&&", 1, ""},
        {"aXbxc", "x", 3, "c"}, {"abc", "x", 0, ""}, {"Größe&&Stärke&&ÉLAN", "&&", 2, "Stärke"},
        {"aÉb", "é", 2, "b"}, {"a\xC2\x80" "b", "\xC2\x80", 2, "b"}, {"Maße", "S", 2, "e"}, {"a\xFF" "bc", "\xFF", 2, "bc"}};
    for (const auto& [text, separator, n, field] : picks)
        EXPECT_EQ(NthField(text, separator, n), field) << text;
    EXPECT_EQ(CountFields("Maße", "S"), 2);  // a separator inside the folding of ß takes all of ß
}

TEST(Characters, InStrFindsWithoutRegardToCaseFromOneAndLeftRightLenCountCharacters) {
    const std::tuple<const char*, const char*, int> cases[] = {
        {"Essence Channeling", "channeling", 9}, {"Taint", "Taint Pool", 0}, {"abc", "", 0},
        {"\xC3\xA9t\xC3\xA9 Pool", "pool", 5}, {"Über Élan", "élan", 6}, {"Maße", "SSE", 3},
        {"Über", "", 0}, {"x\xFF\xFFÉ", "é", 4}};  // a stray byte is a character of its own
    for (const auto& [text, part, at] : cases) EXPECT_EQ(InStr(text, part), at) << text;
    const std::string word = "\xC3\xA9t\xC3\xA9";  // three characters, five bytes
    EXPECT_EQ(Len(word), 3);
    EXPECT_EQ(Left(word, 2), "\xC3\xA9t");
    EXPECT_EQ(Right(word, 1), "\xC3\xA9");
    EXPECT_EQ(Left("Age", 14), "Age");
    EXPECT_EQ(Right("abc", 10), "abc");
    EXPECT_EQ(Left("abc", -1), "");
}

TEST(Comparison, IgnoresCaseInAnyLanguage) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"HUMAN", "human", true},    {"Human", "Humans", false}, {"É", "é", true},
        {"Straße", "STRASSE", true}, {"Ωmega", "ωMEGA", true},   {"Élan", "Élans", false},
        {"Straße", "STRASS", false}, {"\xFF", "\xFF", true},     {"\xFFx", "\xFEx", false},
        {"\xC3", "Ã", false},        {"\xFF" "a", "\xFF" "b", false}};
    for (const auto& [a, b, equal] : cases) EXPECT_EQ(EqualsNoCase(a, b), equal) << a << " / " << b;
}
