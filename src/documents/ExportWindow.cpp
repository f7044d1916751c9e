#include "documents/ExportWindow.h"

#include <unistd.h>

#include <filesystem>

#include "documents/CharacterFile.h"
#include "documents/Transform.h"
#include "platform/Platform.h"
#include "platform/ShippedFiles.h"
#include "ruledata/XmlError.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// The PDF form shows, previews and lays out on pages the HTML sheet.
const ExportForm kForms[] = {{"XML", "", false, false, ".txt"},
                             {"HTML", "zephtml.xsl", false, true, ".html"},
                             {"PDF", "zephtml.xsl", false, true, ".pdf"},
                             {"Text", "zeptext.xsl", true, false, ".txt"},
                             {"Summary", "zepsummary.xsl", true, false, ".txt"},
                             {"Wiki Code", "zepwiki.xsl", true, false, ".txt"},
                             {"Custom", "custom.xsl", false, false, ".txt"}};

const FileType kPdfFile{"application/pdf", ".pdf"};

std::string withoutDeclaration(std::string text) {
    for (std::size_t at = text.find(kXmlDeclaration); at != std::string::npos;
         at = text.find(kXmlDeclaration, at))
        text.erase(at, std::string(kXmlDeclaration).size());
    return text;
}

}  // namespace

const ExportForm* FindExportForm(const std::string& name) {
    for (const ExportForm& form : kForms)
        if (EqualsNoCase(form.name, name)) return &form;
    return nullptr;
}

std::string StylesheetPath(const std::string& applicationFolder, const std::string& fileName) {
    return JoinPath(ShippedFolder(applicationFolder, ShippedFiles::Stylesheets), fileName);
}

ExportWindow::ExportWindow(CharacterSheet& callingWindow) : callingWindow_(callingWindow) {
    // A new form runs the export, whether its row or its text tells the change.
    PopupMenu1.Observe([this](ItemChange change) {
        if (change == ItemChange::Text || change == ItemChange::Selection) PopupMenu1_Change();
    });
}

void ExportWindow::GetXML() {
    xchar_ = SaveXMLChar(callingWindow_);
    title_ = callingWindow_.NameField.Text();
}

std::string ExportWindow::RunTransform(const std::string& fileName) {
    Platform& platform = callingWindow_.Host();
    std::string path = StylesheetPath(platform.ApplicationFolder(), fileName);
    if (!IsExistingFile(path)) {
        platform.MsgBox("Please locate the " + fileName + " file.");
        const auto located = platform.OpenFileDialog(FileTypes::Text, "");
        if (!located) return "";
        path = *located;
    }
    try {
        return TransformDocument(xchar_.raw(), path);
    } catch (const XmlError& failure) {
        callingWindow_.ShowXmlFailure(failure);
        return "";
    }
}

void ExportWindow::PopupMenu1_Change() {
    GetXML();
    const ExportForm* form = FindExportForm(PopupMenu1.Text());
    if (form == nullptr) return;
    if (std::string(form->name) != "XML") SaveButton.SetValue(true);
    std::string result = *form->stylesheet ? RunTransform(form->stylesheet) : xchar_.Serialise();
    EditField1.SetText(form->withoutDeclaration ? withoutDeclaration(result) : result);
    PreviewButton.SetVisible(form->preview);
}

void ExportWindow::PreviewButton_Action() {
    Platform& platform = callingWindow_.Host();
    static int previews = 0;
    const std::string path = JoinPath(platform.TemporaryFolder(),
                                      "zephalon-preview-" + std::to_string(::getpid()) + "-" +
                                          std::to_string(++previews) + ".html");
    auto file = platform.CreateOutputFile(path);
    if (!file || !file->Write(EditField1.Text() + "\n") || !file->Commit()) return;
    platform.ShowURL("file://" + path);
}

void ExportWindow::SaveButton_Action() {
    Platform& platform = callingWindow_.Host();
    const ExportForm* form = FindExportForm(PopupMenu1.Text());
    const bool pdf = form != nullptr && std::string(form->name) == "PDF";
    const std::string extension = form != nullptr ? form->extension : ".txt";
    const std::string defaultName = title_ + extension;
    const auto chosen = platform.SaveFileDialog(pdf ? kPdfFile : FileTypes::Text, defaultName);
    if (!chosen) return;
    // The name is always rewritten: the text behind its first "." never starts with one.
    std::filesystem::path path(*chosen);
    path.replace_filename(NthField(path.filename().string(), ".", 1) + extension);
    std::string content = EditField1.Text() + "\n";
    if (pdf) {
        const int notice = platform.ShowNotice("Making the PDF. Please wait...");
        PdfResult made = RenderPdf(content, pdfPage, platform.TemporaryFolder());
        platform.CloseNotice(notice);
        if (made.pdf.empty()) {
            platform.MsgBox(made.failure);
            return;
        }
        content = std::move(made.pdf);
    }
    auto file = platform.CreateOutputFile(path.string());
    if (!file) return;
    if (!file->Write(content) || !file->Commit()) {
        platform.MsgBox("The export could not be saved to " + path.string() +
                        ". The disk may be full.");
        return;
    }
    platform.MsgBox(defaultName + " Saved.");
}

}  // namespace zeph
