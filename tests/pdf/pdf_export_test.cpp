// `zephalon-cli export --format pdf` run for real and read back with poppler's pdfinfo, pdftotext
// and pdfimages. Exits 77 (skipped) where the renderer or poppler is not installed.
#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "documents/PdfSheet.h"
#include "platform/Programs.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

std::string cli;  // the console's binary, from the command line
const std::string kSource = ZEPHALON_SOURCE_DIR;

std::string Output(const std::vector<std::string>& arguments) {
    const ProgramRun run = RunProgram(arguments, 300);
    EXPECT_EQ(run.status, 0) << arguments[0] << ": " << run.output;
    return run.output;
}

class PdfExport : public ::testing::Test {
protected:
    // The PDF of `character` on `page`, exported from the sample rule data.
    std::string Export(const std::string& character, const std::string& page) {
        const std::string pdf = folder.At(page + ".pdf");
        Output({cli, "export", "--data", kSource + "/data/rules/sample.xml", "--format", "pdf", "--page", page,
             character, "-o", pdf});
        return pdf;
    }
    std::string Info(const std::string& pdf) { return Output({FindProgram("pdfinfo"), pdf}); }
    // The text of each page: pdftotext ends each with a form feed.
    std::vector<std::string> Pages(const std::string& pdf) {
        std::vector<std::string> pages;
        std::istringstream text(Output({FindProgram("pdftotext"), pdf, "-"}));
        for (std::string page; std::getline(text, page, '\f');) pages.push_back(page);
        return pages;
    }
    TempFolder folder{"pdf-export-real"};
};

TEST_F(PdfExport, TheSampleSheetOnLetterIsSearchableText) {
    const std::string pdf = Export(kSource + "/tests/data/sample_character.xml", "letter");
    EXPECT_NE(Info(pdf).find("612 x 792 pts (letter)"), std::string::npos);
    std::string text;
    for (const std::string& page : Pages(pdf)) text += page;
    for (const char* shown : {"Ilse Marković", "Occult Librarian", "Essence Channeling", "Warder's Circle",
                              "Lore of the supernatural"})
        EXPECT_NE(text.find(shown), std::string::npos) << shown;
}

// A long list runs over pages between its rows, each row of three lines whole on one page; the
// portrait stands on the first page.
TEST_F(PdfExport, ALongSheetOnA4BreaksBetweenRowsWithThePortraitFirst) {
    std::string character = *ReadWholeFile(kSource + "/tests/data/sample_character.xml");
    const std::string png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x02\0\0\0\x02\x08\x02\0\0\0\xfd\xd4\x9as\0\0\0\x10IDATx\x9c"
                          "c8\xa0\xa0\0D\x0c\x10\n\0\x1e\x8e\x04\x01\x97\x8b" "A\x9c\0\0\0\0IEND\xae" "B`\x82", 73);
    character = std::regex_replace(character, std::regex("/home/[^\"]*"), folder.Write("portrait.png", png));
    std::string skills;
    const std::string words = " a long note that wraps over three lines of the notes column in the skills table of the sheet";
    for (int row = 0; row < 70; ++row)
        skills += "<skill col0=\"Lore " + std::to_string(row) + "\" col1=\"1\" col2=\"1\" col3=\"0\" col5=\"\" col6=\"Regular\" col7=\"\">"
                  "begin" + std::to_string(row) + words + " end" + std::to_string(row) + "</skill>\n";
    character.insert(character.find("<skill "), skills);
    const std::string pdf = Export(folder.Write("long.xml", character), "a4");

    const std::vector<std::string> text = Pages(pdf);
    EXPECT_TRUE(std::regex_search(Info(pdf), std::regex("Pages: +" + Str(text.size()) + "\n(.*\n)*Page size: .*\\(A4\\)")));
    EXPECT_GT(text.size(), 2u);
    for (int row = 0; row < 70; ++row) {
        const std::regex begin("\\bbegin" + std::to_string(row) + "\\b"), end("\\bend" + std::to_string(row) + "\\b");
        EXPECT_EQ(std::count_if(text.begin(), text.end(), [&](const std::string& page) {
                      return std::regex_search(page, begin) && std::regex_search(page, end); }), 1) << "row " << row;
    }
    const std::string images = Output({FindProgram("pdfimages"), "-list", "-f", "1", "-l", "1", pdf});
    EXPECT_NE(images.find("\n   1 "), std::string::npos) << images;
}

}  // namespace
}  // namespace zeph::testing

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (argc < 2) return 2;
    zeph::testing::cli = argv[1];
    if (zeph::FindPdfRenderer().empty() || zeph::FindProgram("pdfinfo").empty()) {
        std::cout << "skipped: needs chromium and poppler-utils\n";
        return 77;
    }
    return RUN_ALL_TESTS();
}
