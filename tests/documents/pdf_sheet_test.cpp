#include "documents/PdfSheet.h"

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "documents/ExportWindow.h"
#include "platform/Programs.h"
#include "support/SheetFixture.h"

namespace zeph::testing {
namespace {

// A stand-in program: a shell script made executable in the folder.
std::string Program(const TempFolder& folder, const std::string& name, const std::string& body) {
    const std::string path = folder.Write(name, "#!/bin/sh\n" + body + "\n");
    ::chmod(path.c_str(), 0755);
    return path;
}

// A renderer that "prints" the page it is given: "%PDF", then the HTML file it was pointed at.
const char* kEchoRenderer = "for a; do case $a in --print-to-pdf=*) out=${a#*=};; file://*) in=${a#file://};; esac; done\n"
                            "{ echo %PDF; cat \"$in\"; } > \"$out\"";

TEST(PdfSheet, PageSizesByNameAndAsACssRuleBeforeTheHeadEnds) {
    EXPECT_EQ(PageSizeNamed("A4")->name + " " + Str(PageSizeNamed("letter")->widthMm), "A4 215.9");
    EXPECT_FALSE(PageSizeNamed("legal") || PageSizeNamed(""));
    EXPECT_EQ(WithPageSize("<html><head><style>x</style></head><body/>", kLetter),
              "<html><head><style>x</style><style>@page { size: 215.9mm 279.4mm; }</style></head><body/>");
    EXPECT_EQ(WithPageSize("<p>bare</p>", {"Odd", 99.96, 7}), "<style>@page { size: 100.0mm 7.0mm; }</style><p>bare</p>");
    const ScopedEnv locale("LC_ALL", "C");
    EXPECT_EQ(LocalePageSize().name, "A4");  // the C locale's paper
    const ScopedEnv unknown("LC_ALL", "xx_XX.UTF-8");
    EXPECT_EQ(LocalePageSize().name, "A4");  // no such locale
}

TEST(PdfSheet, TheRendererGetsTheSheetOnItsPageAndLeavesNothingBehind) {
    const TempFolder folder("pdf-render");
    Program(folder, "chromium", kEchoRenderer);
    const ScopedEnv path("PATH", folder.path.string() + ":/usr/bin:/bin"), tmp("TMPDIR", folder.path.string());
    const PdfResult made = RenderPdf("<head></head>é", kA4, folder.path.string());
    EXPECT_EQ(made.pdf + made.failure, "%PDF\n<head><style>@page { size: 210.0mm 297.0mm; }</style></head>é");
    EXPECT_EQ(FolderItems(folder.path.string()), std::vector<std::string>{folder.At("chromium")});
}

TEST(PdfSheet, AMissingOrFailingRendererOrSpoolerIsAMessage) {
    const TempFolder folder("pdf-fail"), unusable("pdf-unusable"), failing("pdf-failing"), silent("pdf-silent");
    unusable.Write("chromium", "x");
    Program(failing, "chromium", "echo noise; echo 'bad page' >&2; exit 3");
    Program(silent, "chromium", "exit 0");
    const std::string missing = "The PDF cannot be made: its renderer, Chromium, is not installed. Install the Debian package chromium.";
    const struct { std::string path, failure; } cases[] = {
        {"/nonexistent", missing},
        {unusable.path.string(), missing},
        {failing.path.string(), "The PDF cannot be made: " + failing.At("chromium") + " failed. bad page"},
        {silent.path.string(), "The PDF cannot be made: " + silent.At("chromium") + " failed."},
    };
    for (const auto& c : cases) {
        const ScopedEnv path("PATH", c.path);
        const PdfResult made = RenderPdf("<p/>", kA4, folder.path.string());
        EXPECT_EQ(made.pdf + made.failure, c.failure);
    }
    EXPECT_EQ(RenderPdf("<p/>", kA4, "/nonexistent").failure, "The PDF cannot be made: no working folder in /nonexistent.");

    Program(folder, "lp", "echo \"$@\" > " + folder.At("spooled") + "; [ \"$2\" = Office ] || { echo 'lp: no such printer'; exit 1; }");
    const ScopedEnv path("PATH", folder.path.string() + ":/usr/bin:/bin");
    EXPECT_EQ(PrintPdfFile("/tmp/a b.pdf", "Office", 2), "");
    EXPECT_EQ(ReadWholeFile(folder.At("spooled")), "-d Office -n 2 /tmp/a b.pdf\n");
    EXPECT_EQ(PrintPdfFile("/tmp/a.pdf", "Attic", 1), "The sheet could not be sent to Attic. lp: no such printer");
    const ScopedEnv noPath("PATH", "/nonexistent");
    EXPECT_EQ(PrintPdfFile("/tmp/a.pdf", "Office", 1),
              "The sheet cannot be printed: the print command lp is not installed. Install the Debian package cups-client.");
}

TEST(PdfSheet, ProgramsAreFoundOnThePathAndTheirOutputKept) {
    const TempFolder folder("programs");
    Program(folder, "hello", "echo out; printf %4093s err >&2; exit 4");  // more than one read
    const ScopedEnv path("PATH", "/nonexistent::" + folder.path.string());
    const auto here = std::filesystem::current_path();  // an empty entry is not the current folder
    std::filesystem::current_path(folder.path);
    EXPECT_EQ(FindProgram("hello"), folder.At("hello"));
    const ScopedEnv emptyEntry("PATH", ":/nonexistent:");
    EXPECT_EQ(FindProgram("hello") + FindProgram("sh") + FindProgram(""), "");
    std::filesystem::current_path(here);
    const ProgramRun run = RunProgram({folder.At("hello")}, 10);
    EXPECT_EQ(Str(run.started) + " " + Str(run.status) + " " + run.output, "1 4 out\n" + std::string(4090, ' ') + "err");
    EXPECT_FALSE(RunProgram({folder.At("none")}, 10).started);
    EXPECT_EQ(RunProgram({"/bin/sleep", "5"}, 0).status, -1);  // killed when its time is up
    // Its input is empty, never the caller's, even where the caller reads a pipe.
    int pipeEnds[2];
    ASSERT_EQ(::pipe(pipeEnds), 0);
    const int ownInput = ::dup(0);
    ::dup2(pipeEnds[0], 0);
    const ProgramRun input = RunProgram({"/bin/sh", "-c", "/usr/bin/readlink /proc/self/fd/0"}, 10);
    ::dup2(ownInput, 0);
    for (int end : {ownInput, pipeEnds[0], pipeEnds[1]}) ::close(end);
    EXPECT_EQ(input.output, "/dev/null\n");
    // What it leaves running (a browser's helpers) goes with it.
    const ProgramRun parent = RunProgram({"/bin/sh", "-c", "/bin/sleep 30 & echo $!"}, 10);
    const std::string helper = "/proc/" + parent.output.substr(0, parent.output.find('\n')) + "/stat";
    std::string state = "R";
    for (int wait = 0; wait < 100 && state != "Z" && state != ""; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const std::string stat = ReadWholeFile(helper).value_or("");
        state = stat.empty() ? "" : stat.substr(stat.find(')') + 2, 1);
    }
    EXPECT_TRUE(state == "Z" || state.empty()) << "the helper is " << state;
}

TEST_F(SheetTest, ThePdfExportShowsTheHtmlSheetAndSavesItsPdf) {
    const TempFolder folder("pdf-export");
    ScriptedPlatform scripted(folder.path.string(), ZEPHALON_SOURCE_DIR "/data/stylesheets", folder.path.string());
    scripted.SetNow({2026, 1, 2, 3, 4, 5});  // the sheet tells when it was made: both makings at one moment
    CharacterSheet character(data, scripted, SheetOperations());
    character.NameField.SetText("Ann");
    ExportWindow exporter(character);
    exporter.PopupMenu1.SetText("HTML");
    const std::string html = exporter.EditField1.Text();
    exporter.PopupMenu1.SetText("PDF");
    EXPECT_TRUE(exporter.EditField1.Text() == html && exporter.SaveButton.Value() && exporter.PreviewButton.Visible());

    exporter.pdfPage = kLetter;
    Program(folder, "chromium", kEchoRenderer);
    const ScopedEnv renderer("PATH", folder.path.string() + ":/usr/bin:/bin");
    scripted.QueueAnswer(folder.At("a.b.txt"));
    exporter.SaveButton_Action();
    EXPECT_EQ(scripted.Transcript().end()[-4], "dialog: save application/pdf Ann.pdf -> " + folder.At("a.b.txt"));
    EXPECT_EQ(ReadWholeFile(folder.At("a.pdf")), "%PDF\n" + WithPageSize(html + "\n", kLetter));
    EXPECT_EQ(scripted.Messages().back(), "Ann.pdf Saved.");
    EXPECT_TRUE(scripted.OpenNotices().empty());

    const ScopedEnv missing("PATH", "/nonexistent");
    scripted.QueueAnswer(folder.At("b.pdf"));
    exporter.SaveButton_Action();
    EXPECT_NE(scripted.Messages().back().find("Install the Debian package chromium."), std::string::npos);
    EXPECT_FALSE(IsExistingFile(folder.At("b.pdf")));
}

}  // namespace
}  // namespace zeph::testing
