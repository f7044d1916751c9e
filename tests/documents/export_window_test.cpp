#include "documents/ExportWindow.h"
#include "platform/Files.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

// The export over a stand-in application folder holding the stylesheets the case needs.
class ExportTest : public SheetTest {
protected:
    ExportTest()
        : scripted(folder.path.string(), folder.path.string(), folder.path.string()) {
        sheet = std::make_unique<CharacterSheet>(data, scripted, SheetOperations());
        sheet->NameField.SetText("Ann");
        exporter = std::make_unique<ExportWindow>(*sheet);
    }
    void Stylesheet(const std::string& name, const std::string& output) {
        folder.Write(name, "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
               "<xsl:output method='" + output + "' encoding='UTF-8'/><xsl:template match='/'>"
               "<xsl:if test=\"'" + output + "'='xml'\"><r><xsl:value-of select='character/@name'/></r></xsl:if>"
               "<xsl:if test=\"'" + output + "'!='xml'\">Name: <xsl:value-of select='character/@name'/></xsl:if>"
               "</xsl:template></xsl:stylesheet>");
    }

    TempFolder folder{"export"};
    ScriptedPlatform scripted;
    std::unique_ptr<ExportWindow> exporter;
};

TEST_F(ExportTest, EachFormShowsItsResultAndSetsTheButtons) {
    Stylesheet("zephtml.xsl", "html");
    for (const char* textForm : {"zeptext.xsl", "zepsummary.xsl", "zepwiki.xsl", "custom.xsl"})
        Stylesheet(textForm, "xml");  // a declaration the three text forms remove
    EXPECT_FALSE(exporter->SaveButton.Value());
    exporter->PopupMenu1.SetText("XML");
    EXPECT_EQ(exporter->EditField1.Text().rfind(std::string(kXmlDeclaration) + "\n\n\n<character name=\"Ann\"", 0), 0u);
    EXPECT_FALSE(exporter->SaveButton.Value() || exporter->PreviewButton.Visible());
    EXPECT_EQ(exporter->Title(), "Ann");

    exporter->PopupMenu1.SetText("HTML");
    EXPECT_EQ(exporter->EditField1.Text(), "Name: Ann\n");
    EXPECT_TRUE(exporter->SaveButton.Value() && exporter->PreviewButton.Visible());
    sheet->NameField.SetText("Bea");  // unsaved edits are exported too
    for (const char* form : {"Text", "Summary", "Wiki Code"}) {
        exporter->PopupMenu1.SetText(form);
        EXPECT_EQ(exporter->EditField1.Text() + Str(exporter->PreviewButton.Visible()), "\n<r>Bea</r>\n0") << form;
    }
    exporter->PopupMenu1.SetText("Custom");
    EXPECT_EQ(exporter->EditField1.Text(), std::string(kXmlDeclaration) + "\n<r>Bea</r>\n");
    exporter->PopupMenu1.SetText("XML");
    EXPECT_TRUE(exporter->SaveButton.Value());  // XML leaves it as it was
    EXPECT_FALSE(exporter->PreviewButton.Visible());
}

TEST_F(ExportTest, AMissingStylesheetIsAskedForAndABrokenOneReported) {
    exporter->PopupMenu1.SetText("Summary");  // missing, and the question cancelled
    EXPECT_EQ(scripted.Messages(), std::vector<std::string>{"Please locate the zepsummary.xsl file."});
    EXPECT_EQ(exporter->EditField1.Text(), "");
    EXPECT_TRUE(exporter->SaveButton.Value());

    folder.Write("zepwiki.xsl", "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'><xsl:template match='/'><xsl:value-of select='1 +'/></xsl:template></xsl:stylesheet>");
    exporter->EditField1.SetText("edited");
    exporter->PopupMenu1.SetText("Wiki Code");
    EXPECT_EQ(exporter->EditField1.Text(), "");
    ASSERT_EQ(scripted.Messages().size(), 2u);
    EXPECT_NE(scripted.Messages()[1].find("\n At node: " + folder.At("zepwiki.xsl") + " on: "),
              std::string::npos);
}

TEST_F(ExportTest, SavingRewritesTheNameAndPreviewShowsTheFieldInTheBrowser) {
    Stylesheet("zephtml.xsl", "html");
    exporter->PopupMenu1.SetText("HTML");
    exporter->EditField1.SetText("<p>edited</p>");
    scripted.QueueAnswer(folder.At("a.b.htm"));
    exporter->SaveButton_Action();
    EXPECT_EQ(ReadWholeFile(folder.At("a.html")), "<p>edited</p>\n");
    EXPECT_EQ(scripted.Transcript().end()[-2], "dialog: save text Ann.html -> " + folder.At("a.b.htm"));
    EXPECT_EQ(scripted.Messages().back(), "Ann.html Saved.");

    exporter->PreviewButton_Action();
    const std::string url = scripted.Transcript().back();
    ASSERT_EQ(url.substr(0, 12), "url: file://");
    EXPECT_EQ(url.substr(url.size() - 5), ".html");
    EXPECT_EQ(ReadWholeFile(url.substr(12)), "<p>edited</p>\n");
}

}  // namespace
}  // namespace zeph::testing
