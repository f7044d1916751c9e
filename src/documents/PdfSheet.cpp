#include "documents/PdfSheet.h"

#include <langinfo.h>
#include <locale.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <type_traits>
#include <vector>

#include "platform/Files.h"
#include "platform/Programs.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// A sheet of many pages takes a few seconds; a renderer that hangs is given up on.
constexpr int kRenderSeconds = 120;

// One decimal, written by hand: the printf family would take a decimal comma from the locale.
std::string millimetres(double value) {
    const long tenths = std::lround(value * 10);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "mm";
}

// A program's own last line on a failure, after a blank, to follow a sentence; what it printed
// before that is mostly noise.
std::string lastWords(const std::string& output) {
    const std::size_t end = output.find_last_not_of("\r\n");
    if (end == std::string::npos) return "";
    const std::size_t newline = output.rfind('\n', end);
    const std::size_t start = newline == std::string::npos ? 0 : newline + 1;
    return " " + output.substr(start, end + 1 - start);
}

}  // namespace

std::optional<PageSize> PageSizeNamed(const std::string& name) {
    if (EqualsNoCase(name, "a4")) return kA4;
    if (EqualsNoCase(name, "letter")) return kLetter;
    return std::nullopt;
}

PageSize LocalePageSize() {
    const std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&::freelocale)> paper(
        ::newlocale(LC_PAPER_MASK, "", static_cast<locale_t>(0)), &::freelocale);
    if (!paper) return kA4;
    // glibc gives the paper's width in millimetres as a number in the pointer's place.
    const auto width = reinterpret_cast<std::intptr_t>(::nl_langinfo_l(_NL_PAPER_WIDTH, paper.get()));
    return width == 216 ? kLetter : kA4;
}

std::string WithPageSize(const std::string& html, const PageSize& page) {
    const std::string rule = "<style>@page { size: " + millimetres(page.widthMm) + " " +
                             millimetres(page.heightMm) + "; }</style>";
    const std::size_t at = html.find("</head>");
    return at == std::string::npos ? rule + html : html.substr(0, at) + rule + html.substr(at);
}

std::string FindPdfRenderer() { return FindProgram("chromium"); }

PdfResult RenderPdf(const std::string& html, const PageSize& page, const std::string& temporaryFolder) {
    const std::string renderer = FindPdfRenderer();
    if (renderer.empty())
        return {"", "The PDF cannot be made: its renderer, Chromium, is not installed. "
                    "Install the Debian package chromium."};
    std::string pattern = JoinPath(temporaryFolder, "zephalon-pdf-XXXXXX");
    if (::mkdtemp(pattern.data()) == nullptr)
        return {"", "The PDF cannot be made: no working folder in " + temporaryFolder + "."};
    const std::string folder = pattern;
    const std::string htmlPath = JoinPath(folder, "sheet.html"), pdfPath = JoinPath(folder, "sheet.pdf");
    PdfResult result;
    if (!WriteFileAtomically(htmlPath, WithPageSize(html, page))) {
        result.failure = "The PDF cannot be made: the sheet could not be written to " + folder + ".";
    } else {
        std::vector<std::string> arguments = {
            renderer, "--headless", "--disable-gpu", "--no-first-run", "--disable-extensions",
            "--user-data-dir=" + JoinPath(folder, "profile"), "--no-pdf-header-footer",
            "--print-to-pdf=" + pdfPath, "file://" + htmlPath};
        // Chromium's sandbox refuses the root user; the page is our own sheet.
        if (::geteuid() == 0) arguments.insert(arguments.begin() + 1, "--no-sandbox");
        const ProgramRun run = RunProgram(arguments, kRenderSeconds);
        result.pdf = ReadWholeFile(pdfPath).value_or("");
        if (!run.started || run.status != 0 || !result.pdf.starts_with("%PDF")) {
            result.pdf.clear();
            result.failure = "The PDF cannot be made: " + renderer +
                             (run.started ? " failed." : " could not be started.") + lastWords(run.output);
        }
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return result;
}

std::string PrintPdfFile(const std::string& pdfPath, const std::string& printer, int copies) {
    const std::string spooler = FindProgram("lp");
    if (spooler.empty())
        return "The sheet cannot be printed: the print command lp is not installed. "
               "Install the Debian package cups-client.";
    const ProgramRun run = RunProgram({spooler, "-d", printer, "-n", std::to_string(copies), pdfPath}, 60);
    if (run.started && run.status == 0) return "";
    return "The sheet could not be sent to " + printer + "." + lastWords(run.output);
}

}  // namespace zeph
