#include "cli/ExportCommand.h"

#include <filesystem>
#include <map>

#include "documents/CharacterFile.h"
#include "documents/ExportWindow.h"
#include "documents/PdfSheet.h"
#include "platform/Files.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "app/App.h"
#include "app/SheetOperations.h"
#include "sheet/CharacterSheet.h"

namespace zeph {
namespace {

const std::map<std::string, std::string> kFormsByOption = {
    {"html", "HTML"},           {"text", "Text"},     {"summary", "Summary"},
    {"wiki", "Wiki Code"},      {"custom", "Custom"}, {"xml", "XML"},
    {"pdf", "PDF"}};

struct ExportRequest {
    std::string data, format, character, output;
    PageSize page = LocalePageSize();
};

bool parse(const std::vector<std::string>& arguments, ExportRequest& request) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--data" && hasValue) request.data = arguments[++i];
        else if (argument == "--format" && hasValue) request.format = arguments[++i];
        else if (argument == "-o" && hasValue) request.output = arguments[++i];
        else if (argument == "--page" && hasValue) {
            const auto page = PageSizeNamed(arguments[++i]);
            if (!page) return false;
            request.page = *page;
        }
        else if (request.character.empty() && argument.rfind('-', 0) != 0) request.character = argument;
        else return false;
    }
    return !request.data.empty() && !request.format.empty() && !request.character.empty();
}

}  // namespace

int RunExportCommand(const std::vector<std::string>& arguments, const std::string& applicationFolder,
                     std::ostream& out, std::ostream& err) {
    ExportRequest request;
    if (!parse(arguments, request)) {
        err << kExportUsage;
        return 2;
    }
    const auto form = kFormsByOption.find(request.format);
    if (form == kFormsByOption.end()) {
        err << "unknown format " << request.format << "\n";
        return 2;
    }
    const std::string stylesheet = FindExportForm(form->second)->stylesheet;
    const std::string stylesheetPath = StylesheetPath(applicationFolder, stylesheet);
    if (!stylesheet.empty() && !IsExistingFile(stylesheetPath)) {
        err << "cannot find the stylesheet " << stylesheetPath << "\n";
        return 2;
    }
    if (!IsExistingFile(request.character)) {
        err << "cannot read the character file " << request.character << "\n";
        return 2;
    }

    ScriptedPlatform platform("", applicationFolder, std::filesystem::temp_directory_path().string());
    // Messages (a book warning, a failure) are worth telling; the notices are not.
    platform.SetLineSink([&err](const std::string& line) {
        if (line.rfind("message: ", 0) == 0) err << line << "\n";
    });
    DataModule data;
    App app(data, platform);
    if (!app.LoadDataFile(AbsolutePath(request.data))) return 2;
    CharacterSheet sheet(data, platform, SheetOperations());
    LoadXMLCharSheet(sheet, request.character);
    if (sheet.characterClosed) return 2;

    ExportWindow exporter(sheet);
    const std::size_t messagesBefore = platform.Messages().size();
    exporter.PopupMenu1.SetText(form->second);
    if (platform.Messages().size() > messagesBefore) return 2;  // the transformation failed
    std::string result = exporter.EditField1.Text() + "\n";
    if (form->second == "PDF") {
        PdfResult made = RenderPdf(result, request.page, platform.TemporaryFolder());
        if (made.pdf.empty()) {
            err << made.failure << "\n";
            return 2;
        }
        result = std::move(made.pdf);
    }
    if (request.output.empty()) {
        out << result;
        return 0;
    }
    if (!WriteFileAtomically(request.output, result)) {
        err << "cannot write " << request.output << "\n";
        return 2;
    }
    return 0;
}

}  // namespace zeph
