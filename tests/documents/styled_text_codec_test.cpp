#include <gtest/gtest.h>

#include "documents/StyledTextCodec.h"
#include "documents/XmlDocument.h"
#include "ruledata/RuleData.h"
#include "sheet/Item.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

StyleRun Plain(const std::string& text, std::uint32_t color = 0) {
    StyleRun run(text);
    run.color = color;
    return run;
}

TEST(StyledTextCodec, WritesOneParagraphPerLineThenOneNodePerRunWithItsAttributesInOrder) {
    StyleRun styled("b\r\nc\rd\n");
    styled.bold = styled.underline = true;
    styled.font = "Serif";
    styled.size = 14;
    styled.color = 0x0A141E;
    XmlDocument document;
    ConvertStyledTextToXML({{Plain("a "), styled}}, document.AppendRoot("character"), "notes");
    const std::string xml = document.Serialise();
    EXPECT_NE(xml.find("<character>\n    <notes>\n        <p>a b</p>\n        <p>c</p>\n        "
                       "<p>d</p>\n        <p></p>\n        <sr b=\"f\" i=\"f\" u=\"f\" f=\"\" "
                       "c=\"#000000\" cd=\"0 0 0\" s=\"0\">a </sr>\n        <sr b=\"t\" i=\"f\" "
                       "u=\"t\" f=\"Serif\" c=\"#0A141E\" cd=\"10 20 30\" s=\"14\">b&#13;\nc&#13;d\n"
                       "</sr></notes></character>"),
              std::string::npos)
        << xml;
}

TEST(StyledTextCodec, ReadsBlueFromGreenAndDefaultsWhatIsMissing) {
    const StyledText read = ConvertXMLToStyledText(RuleData::LoadText(
        "<n><sr cd='255 0 0' u='t'>r</sr><sr cd='0 0 255'>b</sr><sr cd='10 20 30' b='T' i='t' u='x' "
        "f='Mono' s='12'>g</sr><sr/><sr s='x' cd=''>e</sr></n>")->Query("//sr"));
    ASSERT_EQ(read.runs.size(), 5u);
    EXPECT_EQ(Str(read.runs[0].color) + " " + Str(read.runs[1].color) + " " + Str(read.runs[2].color), "16711680 0 660500");
    EXPECT_TRUE(read.runs[2].bold && read.runs[2].italic && !read.runs[2].underline && read.runs[0].underline &&
                !read.runs[0].bold && read.runs[2].font == "Mono" && read.runs[2].size == 12);
    // A node without text is one line end; missing attributes read as empty.
    EXPECT_EQ(read.runs[3].text + Str(read.runs[4].size) + Str(read.runs[4].color), "\n00");
}

TEST(StyledTextCodec, QuickPutsRunsApartWithLineFeedsAndShowsTheItemWithNoSelection) {
    ItemRegistry registry;
    TextItem field(registry, "NotesField", ItemKind::Styled, "", false);
    field.SetText("old text");
    field.SetSelection(2, 3);
    StyleRun italic("a\r\nb\r");
    italic.italic = true;
    italic.size = -3;
    StyledTextQuick(field, {{italic, Plain("c"), Plain("d")}});
    EXPECT_TRUE(field.Visible());
    EXPECT_EQ(field.Text(), "a\nb\ncd");
    ASSERT_EQ(field.Styled().runs.size(), 3u);
    EXPECT_EQ(field.Styled().runs[0].size, 0);
    EXPECT_TRUE(field.Styled().runs[0].italic && !field.Styled().runs[0].bold);
    EXPECT_EQ(field.SelStart() + field.SelLength(), 0);
}

}  // namespace
}  // namespace zeph
