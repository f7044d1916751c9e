#include "documents/StyledTextCodec.h"

#include <cstdio>

#include "documents/XmlDocument.h"
#include "sheet/Item.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const std::string kLineEnd = "\n";

std::string flag(bool on) { return on ? "t" : "f"; }

std::string hexColor(std::uint32_t color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(color & 0xFFFFFF));
    return text;
}

std::string decimalColor(std::uint32_t color) {
    return Str((color >> 16) & 0xFF) + " " + Str((color >> 8) & 0xFF) + " " + Str(color & 0xFF);
}

// Red from the first number, green from the second, and blue from the second again: the
// third is read and never used, so only colours whose blue equals their green come back.
std::uint32_t colorFromDecimal(const std::string& cd) {
    const auto channel = [&](int field) {
        return static_cast<std::uint32_t>(Whole(NthField(cd, " ", field))) & 0xFF;
    };
    const std::uint32_t red = channel(1), green = channel(2);
    return (red << 16) | (green << 8) | green;
}

}  // namespace

std::string NormaliseLineEnds(const std::string& text) {
    std::string normal;
    normal.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            normal += text[i];
            continue;
        }
        normal += '\n';
        if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
    return normal;
}

void ConvertStyledTextToXML(const StyledText& styledText, xmlNode* parent,
                            const std::string& elementName) {
    xmlNode* field = XmlDocument::AppendIndented(parent, kLineEnd + "    ", elementName);
    const std::string indent = kLineEnd + "        ";

    // A text that ends in a line end thus has a last, empty paragraph.
    for (const std::string& line : SplitFields(NormaliseLineEnds(styledText.Text()), '\n'))
        XmlDocument::AppendText(XmlDocument::AppendIndented(field, indent, "p"), line);

    for (const StyleRun& run : styledText.runs) {
        xmlNode* sr = XmlDocument::AppendIndented(field, indent, "sr");
        XmlDocument::SetAttribute(sr, "b", flag(run.bold));
        XmlDocument::SetAttribute(sr, "i", flag(run.italic));
        XmlDocument::SetAttribute(sr, "u", flag(run.underline));
        XmlDocument::SetAttribute(sr, "f", run.font);
        XmlDocument::SetAttribute(sr, "c", hexColor(run.color));
        XmlDocument::SetAttribute(sr, "cd", decimalColor(run.color));
        XmlDocument::SetAttribute(sr, "s", Str(run.size));
        XmlDocument::AppendText(sr, run.text);
    }
}

StyledText ConvertXMLToStyledText(const XmlNodeList& nodes) {
    StyledText styled;
    for (int i = 0; i < nodes.Count(); ++i) {
        const XmlNode node = nodes.Item(i);
        StyleRun run;
        run.font = node.Attribute("f");
        run.size = static_cast<int>(Whole(node.Attribute("s")));
        run.color = colorFromDecimal(node.Attribute("cd"));
        run.bold = EqualsNoCase(node.Attribute("b"), "t");
        run.italic = EqualsNoCase(node.Attribute("i"), "t");
        run.underline = EqualsNoCase(node.Attribute("u"), "t");
        run.text = node.FirstChildValue().value_or(kLineEnd);
        // Each node is a run of its own, even beside one of the same style.
        styled.runs.push_back(run);
    }
    return styled;
}

void StyledTextQuick(TextItem& item, const StyledText& styledText) {
    item.SetVisible(false);
    // The item holds its line ends in one form: a line feed, the line end of this platform.
    StyledText held;
    for (StyleRun run : styledText.runs) {
        run.text = NormaliseLineEnds(run.text);
        if (run.size < 0) run.size = 0;
        held.runs.push_back(run);
    }
    item.SetStyled(held);
    item.SetVisible(true);
}

}  // namespace zeph
