// The HTML character sheet laid out on pages as a PDF, by headless Chromium: the browser that
// the sheet is written for, so the PDF looks as the sheet does on screen and its text stays
// text. The page size goes in as a CSS @page rule; the sheet's own print CSS does the rest.
#pragma once

#include <optional>
#include <string>

namespace zeph {

struct PageSize {
    std::string name;
    double widthMm, heightMm;
};
inline const PageSize kA4{"A4", 210, 297};
inline const PageSize kLetter{"Letter", 215.9, 279.4};

// "a4" or "letter", in any case.
std::optional<PageSize> PageSizeNamed(const std::string& name);
// The paper of the user's locale (LC_PAPER): Letter where its width is the letter's, else A4.
PageSize LocalePageSize();

// `html` with an @page rule of the size, which wins over any the sheet sets before it.
std::string WithPageSize(const std::string& html, const PageSize& page);

// The renderer: chromium on the PATH; "" when missing.
std::string FindPdfRenderer();

struct PdfResult {
    std::string pdf;      // the file's bytes, empty on failure
    std::string failure;  // what to tell the user when there is no PDF
};

// Lays `html` out on pages of `page`, working in a folder of its own under `temporaryFolder`.
// Never throws: a missing or failing renderer is a failure message.
PdfResult RenderPdf(const std::string& html, const PageSize& page, const std::string& temporaryFolder);

// Hands the PDF file to the print spooler (CUPS `lp`) for `printer`; the failure message, or "".
std::string PrintPdfFile(const std::string& pdfPath, const std::string& printer, int copies);

}  // namespace zeph
