// A styled text: the text of the sheet's long fields as an ordered list of style runs, each a
// piece of the text with one style. The text is the runs' texts joined.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zeph {

struct StyleRun {
    StyleRun() = default;
    explicit StyleRun(std::string runText, bool isBold = false)
        : text(std::move(runText)), bold(isBold) {}

    std::string text;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::string font;
    int size = 0;             // 0 or less: the default size
    std::uint32_t color = 0;  // 0xRRGGBB

    bool SameStyle(const StyleRun& other) const;
};

struct StyledText {
    std::vector<StyleRun> runs;

    std::string Text() const;
    // Adds at the end, joined to the last run when it has the same style; an empty run adds
    // nothing, so that equal texts with equal styles hold equal runs.
    void Append(const StyleRun& run);
    void Append(const StyledText& more);
    // The styled piece between two byte positions of the text.
    StyledText Slice(std::size_t from, std::size_t to) const;
    // Puts `text` in place of the bytes [start, start + length), in the style of the character
    // before `start` (of the first character at the start), as typing does.
    void Replace(std::size_t start, std::size_t length, const std::string& text);
};

}  // namespace zeph
