// The text and number helpers that every rule shares. Numbers live on the sheet as text
// and are converted at each use; what does not parse is 0, never an error. Numbers are read
// and written the same way whatever the user's locale, as the sheet and the files hold them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zeph {

// Number at the start of the text (after leading blanks); 0 when there is none.
double Val(std::string_view s);
// True when Val reads the whole text, blanks around it aside: "3", " -2.5 ", "1e3"; not "",
// "one" or "3x" (which Val reads as 0, 0 and 3).
bool ReadsAsNumber(std::string_view s);
// Number in the text by the C conventions ("1,250.5" is 1250.5); 0 for an empty text.
double CDbl(std::string_view s);
// The whole-number conversion: the fraction is dropped (towards zero).
std::int64_t Whole(double x);
std::int64_t Whole(std::string_view s);
// Sums and products of whole numbers: exact while they fit in 64 bits, and beyond that the
// bound Whole gives a number too large (9.2e18 with the sign of the result), never a wrap.
std::int64_t AddWhole(std::int64_t a, std::int64_t b);
std::int64_t MultiplyWhole(std::int64_t a, std::int64_t b);
// A number as the sheet shows it: plain digits (an exponent only beyond 1e21 or below 1e-6),
// at most 15 significant digits, no trailing zeros and no ".0".
std::string Str(double x);

// Without regard to case means by Unicode's full case folding ("STRASSE" matches "Straße").

// The n-th field from 1, "" beyond the end. The separator is matched without regard to case.
std::string NthField(std::string_view s, std::string_view sep, int n);
// Number of fields: 0 for an empty text, 1 for a text without the separator.
int CountFields(std::string_view s, std::string_view sep);
// Orders two texts without regard to case, as a list sorts its rows.
bool LessNoCase(std::string_view a, std::string_view b);
// Character position of t in s from 1, without regard to case; 0 when it is not there (or t is
// empty).
int InStr(std::string_view s, std::string_view t);

// By characters (UTF-8 code points), not bytes.
std::string Left(std::string_view s, int n);
std::string Right(std::string_view s, int n);
int Len(std::string_view s);

// Nearest whole number, halves away from zero.
double Round(double x);
double Floor(double x);
double Max(double a, double b);

// Equality without regard to case, as every comparison of names in the rules.
bool EqualsNoCase(std::string_view a, std::string_view b);
// The full case folding of the text, by code points: texts equal without regard to case fold
// alike, so a folded text can be a key, and a folded text found in another is InStr's match.
std::u32string FoldCase(std::string_view s);

// Joins fields with a separator, and splits a text at a one-character separator (an empty text
// has no fields), as the arrays of the sheet are written in one text.
std::string JoinFields(const std::vector<std::string>& fields, const std::string& separator);
std::vector<std::string> SplitFields(const std::string& text, char separator);

}  // namespace zeph
