#include "sheet/StyledText.h"

#include <algorithm>

namespace zeph {

bool StyleRun::SameStyle(const StyleRun& other) const {
    return bold == other.bold && italic == other.italic && underline == other.underline &&
           font == other.font && size == other.size && color == other.color;
}

std::string StyledText::Text() const {
    std::string text;
    for (const StyleRun& run : runs) text += run.text;
    return text;
}

void StyledText::Append(const StyleRun& run) {
    if (run.text.empty()) return;
    if (!runs.empty() && runs.back().SameStyle(run)) {
        runs.back().text += run.text;
        return;
    }
    runs.push_back(run);
}

void StyledText::Append(const StyledText& more) {
    for (const StyleRun& run : more.runs) Append(run);
}

StyledText StyledText::Slice(std::size_t from, std::size_t to) const {
    StyledText piece;
    std::size_t start = 0;
    for (const StyleRun& run : runs) {
        const std::size_t end = start + run.text.size();
        const std::size_t first = std::max(start, from);
        const std::size_t last = std::min(end, to);
        if (first < last) {
            StyleRun part = run;
            part.text = run.text.substr(first - start, last - first);
            piece.Append(part);
        }
        start = end;
    }
    return piece;
}

void StyledText::Replace(std::size_t start, std::size_t length, const std::string& text) {
    StyleRun inserted;
    std::size_t end = 0;
    for (const StyleRun& run : runs) {
        inserted = run;
        end += run.text.size();
        if (start <= end) break;
    }
    inserted.text = text;
    StyledText result = Slice(0, start);
    result.Append(inserted);
    result.Append(Slice(start + length, std::string::npos));
    runs = std::move(result.runs);
}

}  // namespace zeph
