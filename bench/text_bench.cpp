// The comparisons without regard to case that each recomputation makes, on the short ASCII
// names and "&&" expressions of the rules: the Unicode folding, which keeps ASCII texts on a
// byte-wise path, against the plain byte-wise fold they had before it.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "in_turns.h"
#include "text/TextHelpers.h"

namespace zeph::bench {
namespace {

// The byte-wise fold the helpers had before Unicode folding, kept here as the base. Not
// inlined, as the helpers are not where the rules call them.
namespace ascii {

char Fold(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

std::size_t Find(std::string_view s, std::string_view t, std::size_t from = 0) {
    if (t.empty() || t.size() > s.size()) return std::string_view::npos;
    for (std::size_t i = from; i + t.size() <= s.size(); ++i) {
        std::size_t k = 0;
        while (k < t.size() && Fold(s[i + k]) == Fold(t[k])) ++k;
        if (k == t.size()) return i;
    }
    return std::string_view::npos;
}

[[gnu::noinline]] bool Equals(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Fold(a[i]) != Fold(b[i])) return false;
    return true;
}

[[gnu::noinline]] int InStr(std::string_view s, std::string_view t) {
    const std::size_t at = Find(s, t);
    return at == std::string_view::npos ? 0 : Len(s.substr(0, at)) + 1;
}

[[gnu::noinline]] int CountFields(std::string_view s, std::string_view sep) {
    if (s.empty()) return 0;
    int count = 1;
    for (std::size_t at = Find(s, sep); at != s.npos; at = Find(s, sep, at + sep.size())) ++count;
    return count;
}

[[gnu::noinline]] std::string NthField(std::string_view s, std::string_view sep, int n) {
    std::size_t start = 0;
    for (int field = 1;; ++field) {
        const std::size_t end = Find(s, sep, start);
        if (field == n) return std::string(s.substr(start, end == s.npos ? s.npos : end - start));
        if (end == s.npos) return "";
        start = end + sep.size();
    }
}

}  // namespace ascii

constexpr std::string_view kCells[] = {
    "Intelligence&&1",     "Mental&&1",  "Attr&&1",      "Physical&&1",
    "Essence Channeling",  "Taint Pool", "Strength",     "Status Quality 2",
    "Resources Quality 1", "Age",        "Hard to Kill", "Sadicas"};
constexpr std::string_view kWords[] = {"Strength",   "Dexterity", "Constitution", "Intelligence",
                                       "Perception", "Willpower", "Mental",       "Physical",
                                       "Taint",      "Age"};

// The pattern of the rules: split each cell at "&&", compare its word with the attribute
// names, look for the words that mark channeling and the taint pool.
template <class Equals, class InStrOf, class Count, class Nth>
int Compare(Equals equals, InStrOf inStr, Count countFields, Nth nthField) {
    int hits = 0;
    for (std::string_view cell : kCells) {
        const int fields = countFields(cell, "&&");
        const std::string word = nthField(cell, "&&", 1);
        hits += fields + static_cast<int>(nthField(cell, "&&", 2).size());
        for (std::string_view name : kWords) hits += equals(word, name) ? 1 : 0;
        hits += inStr(cell, "Channeling") + inStr(cell, "Taint Pool") + inStr(cell, "Sadicas");
    }
    return hits;
}

void FoldOverAscii(benchmark::State& state) {
    constexpr int kRounds = 200;
    TimeInTurns(
        state, "fold_over_ascii",
        [] {
            for (int r = 0; r < kRounds; ++r)
                benchmark::DoNotOptimize(
                    Compare(ascii::Equals, ascii::InStr, ascii::CountFields, ascii::NthField));
        },
        [] {
            for (int r = 0; r < kRounds; ++r)
                benchmark::DoNotOptimize(Compare(EqualsNoCase, InStr, CountFields, NthField));
        });
}

BENCHMARK(FoldOverAscii)->Name("Ratio/fold_over_ascii")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zeph::bench
