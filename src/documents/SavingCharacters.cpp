#include "documents/SavingCharacters.h"

#include <filesystem>

#include "documents/CharacterFile.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "platform/Platform.h"
#include "sheet/CharacterSheet.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const char* const kSavingNotice = "Saving character. Please wait...";

bool allowedInXml(char32_t c) {
    if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
    return c != 0xFFFE && c != 0xFFFF;
}

// The length of the UTF-8 sequence at `at` and its code point; 0 for a byte that begins none.
std::size_t decodeUtf8(std::string_view text, std::size_t at, char32_t& c) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    std::size_t length = 0;
    char32_t lowest = 0;
    if (lead < 0x80) return c = lead, 1;
    if ((lead & 0xE0) == 0xC0) length = 2, c = lead & 0x1F, lowest = 0x80;
    else if ((lead & 0xF0) == 0xE0) length = 3, c = lead & 0x0F, lowest = 0x800;
    else if ((lead & 0xF8) == 0xF0) length = 4, c = lead & 0x07, lowest = 0x10000;
    else return 0;
    if (at + length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return 0;
        c = (c << 6) | (byte(at + i) & 0x3F);
    }
    const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
    if (c < lowest || c > 0x10FFFF || surrogate) return 0;
    return length;
}

std::string fileNameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

// The companion picture: the dropped portrait beside the character file, under its name and
// ".pict". A failure here is not the save's to handle.
void writePortrait(CharacterSheet& sheet, const std::string& characterPath) {
    if (!sheet.portraitImage) return;
    const std::string picturePath = characterPath + ".pict";
    auto picture = sheet.Host().CreateOutputFile(picturePath);
    if (!picture || !picture->Write(*sheet.portraitImage) || !picture->Commit())
        throw std::runtime_error("The portrait could not be written to " + picturePath + ".");
    sheet.portraitPath = picturePath;
}

// Writes the document into the created file. A disk that fills leaves the old file as it was
// and the save unfinished, with a message that says so.
bool writeCharacter(CharacterSheet& sheet, OutputFile& file, const std::string& path) {
    if (file.Write(CharacterFileText(sheet)) && file.Commit()) return true;
    sheet.Host().MsgBox("The character could not be saved to " + path +
                        ". The disk may be full. The file was left as it was before.");
    return false;
}

void recordRecentFile(CharacterSheet& sheet, const std::string& path) {
    RemoveRecentOpenItems(sheet.Data());
    PushRecentFile(sheet.Data(), fileNameOf(path), path);
}

// The closing question; true keeps the character open.
bool askKeepOpen(CharacterSheet& sheet) {
    switch (sheet.Host().AskSaveChanges(
        "Do you want to save changes to " + sheet.NameField.Text() + " before closing?",
        "If you don't save, your changes will be lost.")) {
        case SaveChangesAnswer::Save:
            FileSave_Action(sheet);
            return false;
        case SaveChangesAnswer::DontSave:
            return false;
        case SaveChangesAnswer::Cancel:
            break;
    }
    return true;
}

}  // namespace

std::string SanitiseForXml(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char32_t c = 0;
        const std::size_t length = decodeUtf8(text, at, c);
        if (length == 0) {
            clean += "\xEF\xBF\xBD";
            ++at;
            continue;
        }
        if (allowedInXml(c)) clean.append(text.substr(at, length));
        at += length;
    }
    return clean;
}

std::string CharacterFileText(CharacterSheet& sheet) {
    return SanitiseForXml(SaveXMLChar(sheet).Serialise()) + "\n";
}

void SaveFile(CharacterSheet& sheet) {
    Platform& platform = sheet.Host();
    const std::string path = sheet.fileSaveString;
    if (path.empty()) return;
    auto file = platform.CreateOutputFile(path);
    if (!file) return;
    const int notice = platform.ShowNotice(kSavingNotice);
    writePortrait(sheet, path);
    if (!writeCharacter(sheet, *file, path)) return;
    platform.MsgBox(sheet.NameField.Text() + " Saved.");
    sheet.savedChar = true;
    RemoveRecoveryCopy(sheet);
    recordRecentFile(sheet, AbsolutePath(path));
    platform.CloseNotice(notice);
}

void SaveAsFile(CharacterSheet& sheet) {
    Platform& platform = sheet.Host();
    const auto chosen = platform.SaveFileDialog(FileTypes::Text, sheet.NameField.Text() + ".xml");
    if (!chosen) return;
    std::filesystem::path path(*chosen);
    std::string name = path.filename().string();
    if (!EqualsNoCase(Right(name, 4), ".xml")) name = NthField(name, ".", 1) + ".xml";
    path.replace_filename(name);

    auto file = platform.CreateOutputFile(path.string());
    if (!file) return;
    const int notice = platform.ShowNotice(kSavingNotice);
    writePortrait(sheet, AbsolutePath(path.string()));
    if (!writeCharacter(sheet, *file, path.string())) return;
    sheet.title = name;
    sheet.fileSaveString = AbsolutePath(path.string());
    recordRecentFile(sheet, sheet.fileSaveString);
    platform.MsgBox(sheet.NameField.Text() + " Saved.");
    sheet.savedChar = true;
    RemoveRecoveryCopy(sheet);
    platform.CloseNotice(notice);
}

void FileSave_Action(CharacterSheet& sheet) {
    if (!sheet.fileSaveString.empty()) SaveFile(sheet);
    else SaveAsFile(sheet);
}

void FileSaveAsCharacterFile_Action(CharacterSheet& sheet) { SaveAsFile(sheet); }

bool Event_CancelClose(CharacterSheet& sheet) {
    // The journal's closing writes its text into the sheet, before the question.
    if (sheet.journalWindowIsOpen && sheet.journalWindowHandle) sheet.journalWindowHandle->Close();
    if (sheet.portraitWindowIsOpen && sheet.portraitWindowHandle) sheet.portraitWindowHandle->Close();
    if (!sheet.savedChar && askKeepOpen(sheet)) return true;
    // Saved or given up by the user: either way nothing is left to recover.
    RemoveRecoveryCopy(sheet);
    return false;
}

void AddSavingOperations(OperationTable& table) {
    AddOperation(table, "SaveFile", SaveFile);
    AddOperation(table, "SaveAsFile", SaveAsFile);
    AddOperation(table, "_FileSave_Action", FileSave_Action);
    AddOperation(table, "_FileSaveAsCharacterFile_Action", FileSaveAsCharacterFile_Action);
    AddResultOperation(table, "Event_CancelClose", [](CharacterSheet& sheet) {
        return std::string(Event_CancelClose(sheet) ? "true" : "false");
    });
    AddOperationWithArgument(table, "LoadXMLCharSheet", LoadXMLCharSheet);
}

}  // namespace zeph
