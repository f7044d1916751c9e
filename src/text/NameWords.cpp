#include "text/NameWords.h"

#include <cctype>
#include <utility>

namespace zeph {

std::vector<std::string> NameWords(std::string_view name) {
    const auto upper = [](char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; };
    const auto lower = [](char c) { return std::islower(static_cast<unsigned char>(c)) != 0; };
    const auto digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
    std::vector<std::string> words;
    std::string word;
    // A blank at each end gives every letter a neighbour on both sides.
    const std::string padded = '\0' + std::string(name) + '\0';
    for (std::size_t i = 1; i + 1 < padded.size(); ++i) {
        const char c = padded[i], before = padded[i - 1], after = padded[i + 1];
        const bool starts = (upper(c) && (lower(before) || digit(before) ||
                                          (upper(before) && lower(after)))) ||
                            (digit(c) && (lower(before) || upper(before))) || c == '_';
        if (starts && !word.empty()) words.push_back(std::exchange(word, std::string()));
        if (c != '_') word += c;
    }
    if (!word.empty()) words.push_back(word);
    return words;
}

}  // namespace zeph
