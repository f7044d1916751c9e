#include "shell/PrintSheet.h"

#include <unistd.h>

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <filesystem>

#include "documents/ExportWindow.h"
#include "documents/PdfSheet.h"
#include "platform/Platform.h"
#include "sheet/CharacterSheet.h"
#include "shell/CoreCall.h"

namespace zeph::gui {
namespace {

// The paper of the dialog, turned when it is to be printed across.
PageSize chosenPage(const QPrinter& printer) {
    const QPageLayout layout = printer.pageLayout();
    QSizeF size = layout.pageSize().size(QPageSize::Millimeter);
    if (layout.orientation() == QPageLayout::Landscape) size.transpose();
    return {layout.pageSize().name().toStdString(), size.width(), size.height()};
}

// Sends the PDF where the dialog points; the failure message, or "".
std::string deliver(const std::string& pdf, const QPrinter& printer, Platform& platform) {
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        const std::string path = printer.outputFileName().toStdString();
        return WriteFileAtomically(path, pdf) ? "" : "The sheet could not be written to " + path + ".";
    }
    const std::string spooled = JoinPath(platform.TemporaryFolder(), "zephalon-print-" + std::to_string(getpid()) + ".pdf");
    if (!WriteFileAtomically(spooled, pdf)) return "The sheet could not be written to " + spooled + ".";
    // lp has copied the file to the spooler by the time it returns.
    const std::string failure = PrintPdfFile(spooled, printer.printerName().toStdString(), printer.copyCount());
    std::error_code ignored;
    std::filesystem::remove(spooled, ignored);
    return failure;
}

}  // namespace

void PrintSheet(CharacterSheet& sheet, QWidget* parent) {
    QPrinter printer;
    printer.setDocName(QString::fromStdString(sheet.NameField.Text()));
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialog.exec() != QDialog::Accepted) return;
    CallCore([&] {
        ExportWindow exporter(sheet);
        exporter.GetXML();
        const std::string html = exporter.RunTransform("zephtml.xsl");
        if (html.empty()) return;  // the export has told why
        Platform& platform = sheet.Host();
        const int notice = platform.ShowNotice("Making the PDF. Please wait...");
        const PdfResult made = RenderPdf(html, chosenPage(printer), platform.TemporaryFolder());
        const std::string failure = made.pdf.empty() ? made.failure : deliver(made.pdf, printer, platform);
        platform.CloseNotice(notice);
        if (!failure.empty()) platform.MsgBox(failure);
    });
}

}  // namespace zeph::gui
