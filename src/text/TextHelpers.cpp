#include "text/TextHelpers.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

namespace zeph {
namespace {

char foldAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

bool isAscii(std::string_view s) {
    for (char c : s)
        if (static_cast<unsigned char>(c) & 0x80) return false;
    return true;
}

// A byte that is not part of well-formed UTF-8 folds to itself, outside the range of code
// points, so that it matches only the same byte.
constexpr char32_t kBadByte = 0x110000;

// One unit of a text's full case folding, with the bytes of the original code point it came
// from: a match that starts or ends inside the folding of one code point takes all of it.
struct FoldedUnit {
    char32_t unit;
    std::size_t begin, end;
};

// Appends the full case folding of s (ß gives "ss"), per code point.
void appendFolded(std::string_view s, std::vector<FoldedUnit>& out) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(s.data());
    const auto length = static_cast<std::int32_t>(s.size());
    for (std::int32_t i = 0; i < length;) {
        const std::int32_t begin = i;
        UChar32 c;
        U8_NEXT(bytes, i, length, c);
        const auto b = static_cast<std::size_t>(begin);
        if (c < 0) {
            i = begin + 1;
            out.push_back({kBadByte + bytes[begin], b, b + 1});
        } else if (c < 0x80) {
            out.push_back({static_cast<char32_t>(foldAscii(static_cast<char>(c))), b, b + 1});
        } else {
            UChar source[2], folded[8];
            std::int32_t sourceLength = 0;
            U16_APPEND_UNSAFE(source, sourceLength, c);
            UErrorCode status = U_ZERO_ERROR;
            const std::int32_t foldedLength =
                u_strFoldCase(folded, 8, source, sourceLength, U_FOLD_CASE_DEFAULT, &status);
            const auto e = static_cast<std::size_t>(i);
            if (U_FAILURE(status)) {
                out.push_back({static_cast<char32_t>(c), b, e});
                continue;
            }
            for (std::int32_t k = 0; k < foldedLength;) {
                UChar32 f;
                U16_NEXT(folded, k, foldedLength, f);
                out.push_back({static_cast<char32_t>(f), b, e});
            }
        }
    }
}

std::vector<FoldedUnit> folded(std::string_view s) {
    std::vector<FoldedUnit> units;
    units.reserve(s.size());
    appendFolded(s, units);
    return units;
}

// Kept out of line so that the ASCII comparison stays a lean loop.
[[gnu::noinline]] bool equalFolded(std::string_view a, std::string_view b) {
    const auto foldedA = folded(a), foldedB = folded(b);
    return std::equal(foldedA.begin(), foldedA.end(), foldedB.begin(), foldedB.end(),
                      [](const FoldedUnit& x, const FoldedUnit& y) { return x.unit == y.unit; });
}

constexpr std::size_t kNotAscii = std::string_view::npos - 1;

// Byte-wise search for an ASCII t in s from `from`: where t starts, npos when it is not there,
// kNotAscii when it meets a byte of s that is not ASCII, where the byte-wise fold no longer
// holds. Nearly every name in the rules is ASCII, so this is the search they make. It need not
// read the last m - 1 bytes: no code point folds to more ASCII letters than it has bytes (ß to
// "ss", ﬃ to "ffi"), so no match of an ASCII t can start there.
std::size_t findAscii(std::string_view s, std::string_view t, std::size_t from) {
    const std::size_t m = t.size();
    for (std::size_t i = from; i + m <= s.size(); ++i) {
        std::size_t k = 0;
        while (k < m && foldAscii(s[i + k]) == foldAscii(t[k])) ++k;
        if (k == m) return i;
        if (static_cast<unsigned char>(s[i + k]) & 0x80) return kNotAscii;
    }
    return std::string_view::npos;
}

struct Match {
    std::size_t begin, end;  // bytes of s; begin is npos when there is no match
};
constexpr Match kNoMatch{std::string_view::npos, std::string_view::npos};

// The search by full case folding, for texts that are not ASCII.
class FoldedSearch {
  public:
    FoldedSearch(std::string_view s, std::string_view t) : sUnits_(folded(s)) {
        for (const FoldedUnit& u : folded(t)) tUnits_.push_back(u.unit);
    }

    Match Find(std::size_t from) const {
        const auto first = std::lower_bound(
            sUnits_.begin(), sUnits_.end(), from,
            [](const FoldedUnit& u, std::size_t offset) { return u.begin < offset; });
        const std::size_t m = tUnits_.size();
        for (auto at = first; static_cast<std::size_t>(sUnits_.end() - at) >= m; ++at) {
            std::size_t k = 0;
            while (k < m && at[k].unit == tUnits_[k]) ++k;
            if (k == m) return {at->begin, at[m - 1].end};
        }
        return kNoMatch;
    }

  private:
    std::vector<FoldedUnit> sUnits_;
    std::vector<char32_t> tUnits_;
};

// Finds t in s, one match after another, without regard to case: byte-wise while what has
// been read is ASCII (there the two folds agree), by the full folding from the first byte that
// is not.
class NoCaseFinder {
  public:
    NoCaseFinder(std::string_view s, std::string_view t) : s_(s), t_(t), asciiT_(isAscii(t)) {}

    // The first match that starts at byte `from` or later (`from` is where a code point starts).
    Match Find(std::size_t from) {
        if (t_.empty()) return kNoMatch;
        if (!folded_) {
            const std::size_t at = asciiT_ ? findAscii(s_, t_, from) : kNotAscii;
            if (at == std::string_view::npos) return kNoMatch;
            if (at != kNotAscii) return {at, at + t_.size()};
        }
        return findFolded(from);
    }

  private:
    [[gnu::noinline]] Match findFolded(std::size_t from) {
        if (!folded_) folded_ = std::make_unique<FoldedSearch>(s_, t_);
        return folded_->Find(from);
    }

    std::string_view s_, t_;
    bool asciiT_;
    std::unique_ptr<FoldedSearch> folded_;
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the longest prefix of s that reads as a decimal number ("-12.5e3"), 0 if none.
std::size_t numberPrefixLength(std::string_view s) {
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    std::size_t digits = 0;
    while (i < s.size() && isDigit(s[i])) ++i, ++digits;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && isDigit(s[i])) ++i, ++digits;
    }
    if (digits == 0) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
        if (j < s.size() && isDigit(s[j])) {
            while (j < s.size() && isDigit(s[j])) ++j;
            i = j;
        }
    }
    return i;
}

std::string_view skipBlanks(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t' || s[i] == '\r' || s[i] == '\n')) ++i;
    return s.substr(i);
}

bool isContinuationByte(unsigned char c) { return (c & 0xC0) == 0x80; }

// Byte offset of the n-th code point (or the size when there are fewer).
std::size_t byteOffsetOfChar(std::string_view s, int n) {
    std::size_t i = 0;
    for (int count = 0; i < s.size() && count < n; ++count) {
        ++i;
        while (i < s.size() && isContinuationByte(static_cast<unsigned char>(s[i]))) ++i;
    }
    return i;
}

}  // namespace

double Val(std::string_view s) {
    s = skipBlanks(s);
    std::size_t n = numberPrefixLength(s);
    if (n == 0) return 0;
    // from_chars reads "." whatever the process locale says (the app takes the user's); it
    // takes no "+".
    std::size_t start = s[0] == '+' ? 1 : 0;
    double v = 0;
    auto result = std::from_chars(s.data() + start, s.data() + n, v);
    return result.ec == std::errc() && std::isfinite(v) ? v : 0;
}

bool ReadsAsNumber(std::string_view s) {
    s = skipBlanks(s);
    const std::size_t n = numberPrefixLength(s);
    return n > 0 && skipBlanks(s.substr(n)).empty();
}

double CDbl(std::string_view s) {
    // Always the C conventions, never the user's: "." marks the fraction and "," groups thousands.
    std::string cleaned;
    for (char c : skipBlanks(s))
        if (c != ',') cleaned += c;
    return Val(cleaned);
}

namespace {
constexpr double kWholeBound = 9.2e18;
constexpr auto kWholeLimit = static_cast<std::int64_t>(kWholeBound);
}  // namespace

std::int64_t Whole(double x) {
    if (std::isnan(x)) return 0;
    if (x >= kWholeBound) return kWholeLimit;
    if (x <= -kWholeBound) return -kWholeLimit;
    return static_cast<std::int64_t>(x);
}

std::int64_t Whole(std::string_view s) { return Whole(Val(s)); }

std::int64_t AddWhole(std::int64_t a, std::int64_t b) {
    std::int64_t sum;
    if (!__builtin_add_overflow(a, b, &sum)) return sum;
    return a > 0 ? kWholeLimit : -kWholeLimit;  // both have the sign of the lost sum
}

std::int64_t MultiplyWhole(std::int64_t a, std::int64_t b) {
    std::int64_t product;
    if (!__builtin_mul_overflow(a, b, &product)) return product;
    return (a > 0) == (b > 0) ? kWholeLimit : -kWholeLimit;
}

std::string Str(double x) {
    if (x == 0 || std::isnan(x)) return "0";
    if (std::isinf(x)) return x > 0 ? "inf" : "-inf";
    char buffer[64];
    char* const bufferEnd = buffer + sizeof buffer;
    // Whole numbers are most of the sheet: written exactly, without the rounding below.
    if (std::fabs(x) < 1e15 && x == std::trunc(x)) {
        auto result = std::to_chars(buffer, bufferEnd, static_cast<std::int64_t>(x));
        return std::string(buffer, result.ptr);
    }
    // 15 significant digits are what a double keeps through arithmetic, so 0.1 + 0.2 shows 0.3.
    auto result = std::to_chars(buffer, bufferEnd, x, std::chars_format::scientific, 14);
    std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));  // -d.ddde+XX
    std::string written;
    if (text.front() == '-') {
        written = "-";
        text.remove_prefix(1);
    }
    const std::size_t e = text.find('e');
    std::string digits = std::string(text.substr(0, 1)) + std::string(text.substr(2, e - 2));
    digits.erase(digits.find_last_not_of('0') + 1);
    int exponent = 0;
    std::from_chars(text.data() + e + 2, text.data() + text.size(), exponent);
    if (text[e + 1] == '-') exponent = -exponent;

    // Plain digits as far as a sheet can show them; an exponent only for the absurd.
    if (exponent < -6 || exponent > 20) {
        written += digits.substr(0, 1);
        if (digits.size() > 1) written += "." + digits.substr(1);
        return written += text.substr(e);
    }
    if (exponent < 0) return written + "0." + std::string(-exponent - 1, '0') + digits;
    const auto wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= wholeDigits)
        return written + digits + std::string(wholeDigits - digits.size(), '0');
    return written + digits.substr(0, wholeDigits) + "." + digits.substr(wholeDigits);
}

std::string NthField(std::string_view s, std::string_view sep, int n) {
    if (n < 1) return "";
    if (sep.empty()) return n == 1 ? std::string(s) : "";
    NoCaseFinder finder(s, sep);
    std::size_t start = 0;
    for (int field = 1;; ++field) {
        const auto match = finder.Find(start);
        if (field == n)
            return std::string(
                s.substr(start, match.begin == s.npos ? s.npos : match.begin - start));
        if (match.begin == s.npos) return "";
        start = match.end;
    }
}

int CountFields(std::string_view s, std::string_view sep) {
    if (s.empty()) return 0;
    if (sep.empty()) return 1;
    NoCaseFinder finder(s, sep);
    int count = 1;
    for (auto match = finder.Find(0); match.begin != s.npos; match = finder.Find(match.end))
        ++count;
    return count;
}

bool LessNoCase(std::string_view a, std::string_view b) {
    const auto foldedA = folded(a), foldedB = folded(b);
    return std::lexicographical_compare(
        foldedA.begin(), foldedA.end(), foldedB.begin(), foldedB.end(),
        [](const FoldedUnit& x, const FoldedUnit& y) { return x.unit < y.unit; });
}

int InStr(std::string_view s, std::string_view t) {
    const std::size_t at = NoCaseFinder(s, t).Find(0).begin;
    if (at == s.npos) return 0;
    return Len(s.substr(0, at)) + 1;
}

std::string Left(std::string_view s, int n) {
    if (n <= 0) return "";
    return std::string(s.substr(0, byteOffsetOfChar(s, n)));
}

std::string Right(std::string_view s, int n) {
    int length = Len(s);
    if (n <= 0) return "";
    if (n >= length) return std::string(s);
    return std::string(s.substr(byteOffsetOfChar(s, length - n)));
}

int Len(std::string_view s) {
    int count = 0;
    for (char c : s)
        if (!isContinuationByte(static_cast<unsigned char>(c))) ++count;
    return count;
}

double Round(double x) { return std::round(x); }
double Floor(double x) { return std::floor(x); }
double Max(double a, double b) { return a > b ? a : b; }

bool EqualsNoCase(std::string_view a, std::string_view b) {
    // Byte by byte up to the first byte that is not ASCII; from there on (where a code point
    // starts in both) by the full folding.
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if ((static_cast<unsigned char>(a[i]) | static_cast<unsigned char>(b[i])) & 0x80)
            return equalFolded(a.substr(i), b.substr(i));
        if (foldAscii(a[i]) != foldAscii(b[i])) return false;
    }
    // One is all read and ASCII; what is left of the other folds to something, never nothing.
    return a.size() == b.size();
}

std::string JoinFields(const std::vector<std::string>& fields, const std::string& separator) {
    std::string joined;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) joined += separator;
        joined += fields[i];
    }
    return joined;
}

std::vector<std::string> SplitFields(const std::string& text, char separator) {
    std::vector<std::string> fields;
    if (text.empty()) return fields;
    std::string current;
    for (char c : text) {
        if (c == separator) {
            fields.push_back(current);
            current.clear();
        } else {
            current += c;
        }
    }
    fields.push_back(current);
    return fields;
}

std::u32string FoldCase(std::string_view s) {
    std::u32string out;
    for (const FoldedUnit& unit : folded(s)) out += unit.unit;
    return out;
}

}  // namespace zeph
