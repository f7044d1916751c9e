#include "text/TextHelpers.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace zeph {
namespace {

char foldCase(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

// Finds t in s from byte offset `from`, without regard to case; npos when absent.
std::size_t findNoCase(std::string_view s, std::string_view t, std::size_t from = 0) {
    if (t.empty() || t.size() > s.size()) return std::string_view::npos;
    for (std::size_t i = from; i + t.size() <= s.size(); ++i) {
        std::size_t k = 0;
        while (k < t.size() && foldCase(s[i + k]) == foldCase(t[k])) ++k;
        if (k == t.size()) return i;
    }
    return std::string_view::npos;
}

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
    std::string text(s.substr(0, n));
    double v = std::strtod(text.c_str(), nullptr);
    return std::isfinite(v) ? v : 0;
}

double CDbl(std::string_view s) {
    // The locale of the program is the C one: "." marks the fraction and "," groups thousands.
    std::string cleaned;
    for (char c : skipBlanks(s))
        if (c != ',') cleaned += c;
    return Val(cleaned);
}

std::int64_t Whole(double x) {
    if (std::isnan(x)) return 0;
    constexpr double kMax = 9.2e18;
    if (x >= kMax) return static_cast<std::int64_t>(kMax);
    if (x <= -kMax) return -static_cast<std::int64_t>(kMax);
    return static_cast<std::int64_t>(x);
}

std::int64_t Whole(std::string_view s) { return Whole(Val(s)); }

std::string Str(double x) {
    if (x == 0 || std::isnan(x)) return "0";
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, x);
    return std::string(buffer, result.ptr);
}

std::string NthField(std::string_view s, std::string_view sep, int n) {
    if (n < 1) return "";
    if (sep.empty()) return n == 1 ? std::string(s) : "";
    std::size_t start = 0;
    for (int field = 1;; ++field) {
        std::size_t end = findNoCase(s, sep, start);
        if (field == n) return std::string(s.substr(start, end == std::string_view::npos ? s.npos : end - start));
        if (end == std::string_view::npos) return "";
        start = end + sep.size();
    }
}

int CountFields(std::string_view s, std::string_view sep) {
    if (s.empty()) return 0;
    if (sep.empty()) return 1;
    int count = 1;
    for (std::size_t at = findNoCase(s, sep); at != std::string_view::npos;
         at = findNoCase(s, sep, at + sep.size()))
        ++count;
    return count;
}

int InStr(std::string_view s, std::string_view t) {
    std::size_t at = findNoCase(s, t);
    if (at == std::string_view::npos) return 0;
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
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (foldCase(a[i]) != foldCase(b[i])) return false;
    return true;
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

}  // namespace zeph
