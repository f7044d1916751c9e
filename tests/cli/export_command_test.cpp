#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "cli/ExportCommand.h"
#include "platform/Files.h"
#include "support/SheetFixture.h"

namespace zeph {
namespace {

const std::string kSource = ZEPHALON_SOURCE_DIR;
const std::string kStylesheets = kSource + "/data/stylesheets";

struct Exported {
    int status;
    std::string out, err;
};

Exported Export(const std::string& format, const std::string& character,
                const std::string& folder = kStylesheets) {
    std::ostringstream out, err;
    const int status = RunExportCommand({"--data", kSource + "/data/rules/sample.xml", "--format",
                                         format, character},
                                        folder, out, err);
    return {status, out.str(), err.str()};
}

TEST(ExportCommand, MissingFilesAndBadArgumentsEndWithStatusTwo) {
    const std::string character = kSource + "/tests/data/sample_character.xml";
    Exported noStylesheet = Export("wiki", character, "/nonexistent");
    EXPECT_EQ(noStylesheet.status, 2);
    EXPECT_EQ(noStylesheet.err, "cannot find the stylesheet /nonexistent/zepwiki.xsl\n");
    EXPECT_EQ(Export("xml", character, "/nonexistent").status, 0);  // needs no stylesheet
    Exported noCharacter = Export("html", "/nonexistent/c.xml");
    EXPECT_EQ(noCharacter.status, 2);
    EXPECT_EQ(noCharacter.err, "cannot read the character file /nonexistent/c.xml\n");
    EXPECT_EQ(Export("rtf", character).status, 2);
    const Exported noRenderer = [&] {
        const testing::ScopedEnv path("PATH", "/nonexistent");  // the renderer missing is told, not a crash
        return Export("pdf", character);
    }();
    EXPECT_EQ(Str(noRenderer.status) + noRenderer.err, "2The PDF cannot be made: its renderer, Chromium, is not installed. Install the Debian package chromium.\n");
    EXPECT_EQ(Export("html", kSource + "/data/rules/sample.xml").status, 0);  // no character: blank
    const testing::TempFolder folder("not-xslt");
    Exported notXml = Export("html", kSource + "/README.md");
    EXPECT_EQ(notXml.status, 2);
    EXPECT_NE(notXml.err.find("message: "), std::string::npos);
    const std::string broken = folder.Write("custom.xsl", "<xsl:stylesheet");  // the parser's first report
    EXPECT_EQ(Export("custom", character, folder.path.string()).err,
              "message: Namespace prefix xsl on stylesheet is not defined\\n At node: " + broken + " on: 1\n");
    // XML but no XSLT: where it stands and what went wrong, as with a failure while running.
    const std::string notXslt = folder.Write("custom.xsl", "<notxsl/>");
    EXPECT_EQ(Export("custom", character, folder.path.string()).err,
              "message: compilation error: file " + notXslt + " line 1 element notxsl\\nxsltParseStylesheetProcess "
              ": document is not a stylesheet\\n At node: " + notXslt + " on: 1\n");

    std::ostringstream out, err;
    EXPECT_EQ(RunExportCommand({"--format", "html", character}, kStylesheets, out, err), 2);
    EXPECT_EQ(RunExportCommand({"--data", "d", "--format", "pdf", "--page", "a5", character}, kStylesheets, out, err), 2);
    EXPECT_NE(err.str().find("usage: zephalon-cli export"), std::string::npos);
}

// A custom stylesheet may only read the character: writing a file (also in a new folder or over
// the network) or fetching a URL is refused with a message naming its line, and nothing is made.
TEST(ExportCommand, AHostileStylesheetIsRefusedAndWritesNothing) {
    const testing::TempFolder folder("hostile-xsl");
    const struct { const char *body, *element, *refusal; } cases[] = {
        {"<xsl:document href='FOLDER/out.txt' method='text'>x</xsl:document>", "document", "File write for FOLDER/out.txt refused"},
        {"<xsl:document href='FOLDER/new/out.txt' method='text'>x</xsl:document>", "document", "File write for FOLDER/new/out.txt refused"},
        {"<xsl:document href='http://127.0.0.1:9/out.txt' method='text'>x</xsl:document>", "document", "File write for http://127.0.0.1:9/out.txt refused"},
        {"<xsl:value-of select=\"document('http://127.0.0.1:9/x.xml')\"/>", "value-of", "Network file read for http://127.0.0.1:9/x.xml refused"},
    };
    for (const auto& c : cases) {
        auto here = [&](std::string text) { return std::regex_replace(text, std::regex("FOLDER"), folder.path.string()); };
        const std::string xsl = folder.Write("custom.xsl", here("<xsl:stylesheet version='1.1' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>\n"
                                        "<xsl:template match='/'>\n" + std::string(c.body) + "</xsl:template></xsl:stylesheet>"));
        const Exported exported = Export("custom", kSource + "/tests/data/sample_character.xml", folder.path.string());
        EXPECT_EQ(exported.status, 2) << c.body;
        // Where it stands and what went wrong, and nothing the refusal sets off after it.
        EXPECT_EQ(exported.err, "message: runtime error: file " + xsl + " line 3 element " + c.element + "\\n" +
                                    here(c.refusal) + "\\n At node: " + xsl + " on: 3\n");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1) << c.body;
    }
}

}  // namespace
}  // namespace zeph
