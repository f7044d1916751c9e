#include "documents/CharacterFile.h"

#include <cstdio>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

#include "Version.h"
#include "documents/StyledTextCodec.h"
#include "platform/Platform.h"
#include "ruledata/DataModule.h"
#include "rules/Metaphysics.h"
#include "rules/PointSums.h"
#include "rules/QualityBonuses.h"
#include "sheet/CharacterSheet.h"
#include "sheet/ListColumns.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

const std::string kLineEnd = "\n";
const std::string kChildIndent = kLineEnd + "    ";

const char* const kIllegalCharactersMessage =
    "An error has been found in the character file that prevents Zephalon from loading it as a "
    "proper XML file. This may be due to the presence of characters illegal for XML in the "
    "character file. Zephalon cannot open the character file. Please identify the bad text and "
    "remove it before attempting to open the file again.";

// The three lists as the file holds them: element name, and the highest column read back.
struct ListInFile {
    ListItem CharacterSheet::*list;
    const char* element;
    int readBound;
};
const ListInFile kListsInFile[] = {{&CharacterSheet::QualityListBox, "quality", 27},
                                   {&CharacterSheet::SkillListBox, "skill", 7},
                                   {&CharacterSheet::MetaListBox, "meta", 25}};

struct StyledField {
    TextItem CharacterSheet::*item;
    const char* element;
};
// The four fields that share one place on the Description tab, in the order they are read.
const StyledField kNotesAreaFields[] = {{&CharacterSheet::NotesField, "notes"},
                                        {&CharacterSheet::HistoryField, "history"},
                                        {&CharacterSheet::ContactsField, "contacts"},
                                        {&CharacterSheet::AltFormField, "altforms"}};
const StyledField kEquipmentField = {&CharacterSheet::EquipmentField, "equipment"};
const StyledField kJournalField = {&CharacterSheet::JournalField, "journal"};

std::string sqlDateTime(const LocalDateTime& t) {
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day,
                  t.hour, t.minute, t.second);
    return text;
}

std::string yesNo(bool value) { return value ? "yes" : "no"; }

// The writing side: each child of the root behind its whitespace node.
class Writer {
  public:
    explicit Writer(xmlNode* root) : root_(root) {}

    xmlNode* Element(const std::string& name,
                     std::initializer_list<std::pair<const char*, std::string>> attributes) {
        xmlNode* element = XmlDocument::AppendIndented(root_, kChildIndent, name);
        for (const auto& [attribute, value] : attributes)
            XmlDocument::SetAttribute(element, attribute, value);
        return element;
    }

    void Row(const char* name, const ListItem& list, int row) {
        xmlNode* element = XmlDocument::AppendIndented(root_, kChildIndent, name);
        for (int column = 0; column < list.ColumnCount(); ++column)
            if (column != EntryColumn::Notes)
                XmlDocument::SetAttribute(element, "col" + Str(column), list.Cell(row, column));
        if (!list.Cell(row, EntryColumn::Notes).empty())
            XmlDocument::AppendText(element, list.Cell(row, EntryColumn::Notes));
    }

    void Moves(const char* name, const std::vector<std::string>& entries) {
        for (const std::string& entry : entries)
            Element(name, {{"name", NthField(entry, ",", 1)},
                           {"value", NthField(entry, ",", 2)},
                           {"xps", NthField(entry, ",", 3)}});
    }

    void Styled(CharacterSheet& sheet, const StyledField& field) {
        const TextItem& item = sheet.*field.item;
        if (!item.Text().empty()) ConvertStyledTextToXML(item.Styled(), root_, field.element);
    }

  private:
    xmlNode* root_;
};

void writeCharacter(CharacterSheet& sheet, XmlDocument& document) {
    const LocalDateTime now = sheet.Host().Now();
    document.AppendTopText(kLineEnd);
    xmlNode* root = document.AppendRoot("character");
    XmlDocument::SetAttribute(root, "name", sheet.NameField.Text());
    XmlDocument::SetAttribute(root, "ZephalonVersion", kZephalonVersion);
    XmlDocument::SetAttribute(root, "LastChange", sqlDateTime(now));
    XmlDocument::SetAttribute(root, "books", sheet.Data().zephalondata);

    Writer out(root);
    if (!sheet.PlayerField.Text().empty())
        out.Element("player", {{"name", sheet.PlayerField.Text()}});
    if (!sheet.ConceptBox.Text().empty())
        out.Element("concept", {{"concept", sheet.ConceptBox.Text()}});
    out.Element("charactertype", {{"type", sheet.CharacterTypePopup.Text()},
                                  {"choice", sheet.ChooseCharPopup.Text()}});
    if (!sheet.AssociationCombo.Text().empty() || !sheet.AssociationField.Text().empty()) {
        xmlNode* association =
            out.Element("association", {{"name", sheet.AssociationCombo.Text()}});
        if (!sheet.AssociationField.Text().empty())
            XmlDocument::AppendText(association, sheet.AssociationField.Text());
    }
    for (int attribute = 0; attribute < kAttributeCount; ++attribute) {
        const auto items = sheet.AttributeOf(attribute);
        out.Element(kAttributeKeys[attribute], {{"base", items.field.Text()},
                                                {"bonus", items.bonus.Text()},
                                                {"total", items.total.Text()}});
    }
    out.Element("lifepoints",
                {{"bonus", sheet.LifePointsBonus.Text()}, {"total", sheet.LifePointsTotal.Text()}});
    if (!sheet.ExtraStatsField.Text().empty())
        XmlDocument::AppendText(out.Element("extrastats", {}), sheet.ExtraStatsField.Text());
    if (sheet.DPField.Visible()) {
        out.Element("dramapoints", {{"points", sheet.DPField.Text()}});
    } else {
        out.Element("endurance", {{"bonus", sheet.EnduranceBonus.Text()},
                                  {"total", sheet.EnduranceTotal.Text()}});
        out.Element("speed",
                    {{"bonus", sheet.SpeedBonus.Text()}, {"total", sheet.SpeedTotal.Text()}});
        out.Element("essence",
                    {{"bonus", sheet.EssenceBonus.Text()}, {"total", sheet.EssenceTotal.Text()}});
    }
    out.Element("mentalbonus", {{"value", Str(sheet.mentalBonus)}});
    out.Element("physicalbonus", {{"value", Str(sheet.physicalBonus)}});
    out.Element("optionalpointsystem", {{"value", yesNo(sheet.OptionalSkillPointBox.Value())}});
    out.Element("characterinplay", {{"value", yesNo(sheet.CharacterInPlayBox.Value())}});
    out.Element("experience", {{"saved", sheet.SavedExperienceField.Text()},
                               {"spent", sheet.SpentExperienceField.Text()}});
    out.Element("charpoints", {{"attributes", sheet.AttributeField.Text()},
                               {"qualities", sheet.QualityField.Text()},
                               {"drawbacks", sheet.DrawbackField.Text()},
                               {"skills", sheet.SkillField.Text()},
                               {"meta", sheet.MetaField.Text()}});
    for (const ListInFile& inFile : kListsInFile) {
        const ListItem& list = sheet.*inFile.list;
        for (int row = 0; row < list.ListCount(); ++row) out.Row(inFile.element, list, row);
    }
    out.Moves("martialmaneuver", sheet.martialmaneuvers);
    out.Moves("visualization", sheet.visualizations);
    out.Element("description", {{"gender", sheet.GenderField.Text()},
                                {"age", sheet.AgeField.Text()},
                                {"hair", sheet.HairField.Text()},
                                {"race", sheet.RaceField.Text()},
                                {"height", sheet.HeightField.Text()},
                                {"weight", sheet.WeightField.Text()},
                                {"eyes", sheet.EyesField.Text()}});
    for (const StyledField& field : kNotesAreaFields) out.Styled(sheet, field);
    out.Styled(sheet, kEquipmentField);
    // A save writes what an open journal window shows.
    if (sheet.journalWindowIsOpen && sheet.journalWindowHandle != nullptr)
        StyledTextQuick(sheet.JournalField, sheet.journalWindowHandle->JournalText());
    out.Styled(sheet, kJournalField);
    if (!sheet.portraitPath.empty()) out.Element("portrait", {{"path", sheet.portraitPath}});
}

// The reading side: every element is found by a `//name` query, and the first match counts.
class Reader {
  public:
    explicit Reader(const RuleData& document) : document_(document) {}

    XmlNodeList All(const std::string& name) const { return document_.Query("//" + name); }
    std::optional<XmlNode> First(const std::string& name) const {
        return document_.Record("//" + name);
    }

    // Sets each item from its attribute of the first `name`; no match leaves them as they are.
    bool Fill(const std::string& name,
              std::initializer_list<std::pair<const char*, TextItem*>> attributes) const {
        const auto element = First(name);
        if (!element) return false;
        for (const auto& [attribute, item] : attributes)
            item->SetText(element->Attribute(attribute));
        return true;
    }

    // The `p` lines joined by line ends, when the first has a text.
    void Plain(const StyledField& field, CharacterSheet& sheet) const {
        const XmlNodeList lines = All(std::string(field.element) + "/p");
        if (lines.Empty() || !lines.Item(0).FirstChildValue()) return;
        std::string text = *lines.Item(0).FirstChildValue();
        for (int line = 1; line < lines.Count(); ++line)
            text += kLineEnd + lines.Item(line).FirstChildValue().value_or("");
        (sheet.*field.item).SetText(text);
    }

    // The style runs, when the first has a text; returns whether they were read.
    bool Styled(const StyledField& field, CharacterSheet& sheet) const {
        const XmlNodeList runs = All(std::string(field.element) + "/sr");
        if (runs.Empty() || !runs.Item(0).FirstChildValue()) return false;
        StyledTextQuick(sheet.*field.item, ConvertXMLToStyledText(runs));
        return true;
    }

  private:
    const RuleData& document_;
};

// Selects every row equal to the value, so the last equal one stays selected; adds the value
// as a new last row when none is.
void selectFindOrAdd(ComboItem& combo, const std::string& value) {
    bool found = false;
    for (int row = 0; row < combo.ListCount(); ++row) {
        if (!EqualsNoCase(combo.List(row), value)) continue;
        combo.SetListIndex(row);
        found = true;
    }
    if (found) return;
    combo.AddRow(value);
    combo.SetListIndex(combo.ListCount() - 1);
}

void showItems(std::initializer_list<Item*> items, bool visible) {
    for (Item* item : items) item->SetVisible(visible);
}

void readRows(const Reader& in, CharacterSheet& sheet) {
    for (const ListInFile& inFile : kListsInFile) {
        ListItem& list = sheet.*inFile.list;
        const XmlNodeList rows = in.All(inFile.element);
        // Rows are addressed by the node's index: the list is empty in a new sheet.
        for (int n = 0; n < rows.Count(); ++n) {
            const XmlNode row = rows.Item(n);
            list.AddRow(row.Attribute("col0"));
            for (int column = 1; column <= inFile.readBound; ++column) {
                if (column != EntryColumn::Notes) {
                    list.SetCell(n, column, row.Attribute("col" + Str(column)));
                } else if (const auto notes = row.FirstChildValue()) {
                    list.SetCell(n, column, *notes);
                }
            }
        }
    }
    const auto readMoves = [&](const char* name, std::vector<std::string>& entries) {
        const XmlNodeList moves = in.All(name);
        for (int n = 0; n < moves.Count(); ++n) {
            const XmlNode move = moves.Item(n);
            entries.push_back(move.Attribute("name") + "," + move.Attribute("value") + "," +
                              move.Attribute("xps"));
        }
    };
    readMoves("martialmaneuver", sheet.martialmaneuvers);
    readMoves("visualization", sheet.visualizations);
}

// Step 5 of the reading: the items in the order of the file's table.
void fillItems(const Reader& in, CharacterSheet& sheet) {
    if (const auto character = in.First("character")) {
        sheet.NameField.SetText(character->Attribute("name"));
        sheet.title = "Zephalon CC: " + sheet.NameField.Text();
    }
    in.Fill("player", {{"name", &sheet.PlayerField}});
    if (const auto conceptElement = in.First("concept"))
        selectFindOrAdd(sheet.ConceptBox, conceptElement->Attribute("concept"));
    if (const auto type = in.First("charactertype")) {
        selectFindOrAdd(sheet.CharacterTypePopup, type->Attribute("type"));
        selectFindOrAdd(sheet.ChooseCharPopup, type->Attribute("choice"));
    }
    if (const auto association = in.First("association")) {
        selectFindOrAdd(sheet.AssociationCombo, association->Attribute("name"));
        if (const auto text = association->FirstChildValue()) sheet.AssociationField.SetText(*text);
    }
    for (int attribute = 0; attribute < kAttributeCount; ++attribute) {
        const auto items = sheet.AttributeOf(attribute);
        in.Fill(kAttributeKeys[attribute],
                {{"base", &items.field}, {"bonus", &items.bonus}, {"total", &items.total}});
    }
    in.Fill("lifepoints", {{"bonus", &sheet.LifePointsBonus}, {"total", &sheet.LifePointsTotal}});
    if (!in.Fill("endurance", {{"bonus", &sheet.EnduranceBonus}, {"total", &sheet.EnduranceTotal}}))
        showItems({&sheet.EndText, &sheet.EnduranceBonus, &sheet.EnduranceTotal}, false);
    if (!in.Fill("speed", {{"bonus", &sheet.SpeedBonus}, {"total", &sheet.SpeedTotal}}))
        showItems({&sheet.SpeedText, &sheet.SpeedBonus, &sheet.SpeedTotal}, false);
    if (in.Fill("essence", {{"bonus", &sheet.EssenceBonus}, {"total", &sheet.EssenceTotal}}))
        showItems({&sheet.EssenceLabel, &sheet.EssenceBonus, &sheet.EssenceTotal},
                  !EqualsNoCase(sheet.EssenceTotal.Text(), "0"));
    if (const auto extra = in.First("extrastats"))
        if (const auto text = extra->FirstChildValue()) sheet.ExtraStatsField.SetText(*text);
    if (const auto mental = in.First("mentalbonus"))
        sheet.mentalBonus = Whole(mental->Attribute("value"));
    if (const auto physical = in.First("physicalbonus"))
        sheet.physicalBonus = Whole(physical->Attribute("value"));
    if (const auto optional = in.First("optionalpointsystem"))
        sheet.OptionalSkillPointBox.SetValue(EqualsNoCase(optional->Attribute("value"), "yes"));
    if (const auto inPlay = in.First("characterinplay"))
        sheet.CharacterInPlayBox.SetValue(EqualsNoCase(inPlay->Attribute("value"), "yes"));
    in.Fill("experience",
            {{"spent", &sheet.SpentExperienceField}, {"saved", &sheet.SavedExperienceField}});
    in.Fill("charpoints", {{"attributes", &sheet.AttributeField},
                           {"qualities", &sheet.QualityField},
                           {"drawbacks", &sheet.DrawbackField},
                           {"skills", &sheet.SkillField},
                           {"meta", &sheet.MetaField}});
    readRows(in, sheet);
    in.Fill("description", {{"gender", &sheet.GenderField},
                            {"age", &sheet.AgeField},
                            {"hair", &sheet.HairField},
                            {"race", &sheet.RaceField},
                            {"height", &sheet.HeightField},
                            {"weight", &sheet.WeightField},
                            {"eyes", &sheet.EyesField}});
    for (const StyledField& field : kNotesAreaFields) {
        in.Plain(field, sheet);
        in.Styled(field, sheet);
    }
    // The four share one place on the Description tab; the notes are the one in view.
    sheet.NotesField.SetVisible(true);
    showItems({&sheet.ContactsField, &sheet.HistoryField, &sheet.AltFormField}, false);
    in.Plain(kEquipmentField, sheet);
    in.Styled(kEquipmentField, sheet);
    // The journal's plain lines are written for the stylesheets and never read back.
    if (in.Styled(kJournalField, sheet)) sheet.JournalField.SetVisible(false);
    if (const auto portrait = in.First("portrait"))
        sheet.portraitPath = portrait->Attribute("path");
}

void closeCharacter(CharacterSheet& sheet) { sheet.characterClosed = true; }

}  // namespace

std::string BookWarning(const std::string& characterBooks, const std::string& loadedBooks) {
    int found = 0;
    for (int n = 1; n <= CountFields(characterBooks, " "); ++n)
        if (InStr(loadedBooks, NthField(characterBooks, " ", n)) > 0) ++found;
    if (found == CountFields(loadedBooks, " ")) return "";

    static const std::pair<const char*, const char*> kLongNames[] = {
        {"Arm", "Armageddon"},       {"AFMBE", "All Flesh Must Be Eaten"},
        {"AC", "Abomination Codex"}, {"Hod", "Book of Hod"},
        {"MC", "Mystery Codex"},     {"WC", "Witchcraft"}};
    std::string warning =
        "The data file you have loaded does not support the character you chose to open. The "
        "character will be opened, but you should load a data file with the following listed "
        "books: ";
    for (int n = 1; n <= CountFields(characterBooks, " "); ++n) {
        std::string code = NthField(characterBooks, " ", n);
        for (const auto& [shortName, longName] : kLongNames)
            if (EqualsNoCase(code, shortName)) code = longName;
        warning += code + ", ";
    }
    return Left(warning, Len(warning) - 2) + ".";
}

void LoadXMLCharSheet(CharacterSheet& sheet, const std::string& path) {
    Platform& platform = sheet.Host();
    std::optional<std::string> file;
    if (IsExistingFile(path))
        file = path;
    else
        file = platform.OpenFileDialog(FileTypes::Text, "");
    if (!file) {
        sheet.savedChar = true;
        return closeCharacter(sheet);
    }

    if (IsExistingFolder(*file)) {
        platform.MsgBox("This is a folder, not a file. Please choose a character file.");
        return closeCharacter(sheet);
    }
    const int notice = platform.ShowNotice("Loading character. Please wait...");
    std::unique_ptr<RuleData> document;
    try {
        document = RuleData::LoadFile(*file);
    } catch (const XmlError& failure) {
        // The reading form of the report says " on " where the others say " on: "; the notice
        // stays up on this path.
        platform.MsgBox(failure.message() + kLineEnd + " At node: " + failure.node() + " on " +
                        Str(failure.line()));
        return closeCharacter(sheet);
    }
    sheet.fileSaveString = AbsolutePath(*file);
    // A damaged file leaves the notice up.
    if (FillCharSheet(sheet, *document)) platform.CloseNotice(notice);
}

bool FillCharSheet(CharacterSheet& sheet, const RuleData& document) {
    Platform& platform = sheet.Host();
    const Reader in(document);
    try {
        if (const auto character = in.First("character")) {
            const std::string warning =
                BookWarning(character->Attribute("books"), sheet.Data().zephalondata);
            if (!warning.empty()) platform.MsgBox(warning);
        }
        sheet.loadingCharFile = true;
        fillItems(in, sheet);
    } catch (const QuitRequest&) {
        throw;
    } catch (const std::exception&) {
        // What the reading trips over in a damaged file.
        sheet.loadingCharFile = false;
        platform.MsgBox(kIllegalCharactersMessage);
        closeCharacter(sheet);
        return false;
    }
    sheet.loadingCharFile = false;
    sheet.savedChar = true;
    QualityGetBonus(sheet);
    MetaGetBonus(sheet);
    ShowBonus(sheet);
    // What could be taken back belonged to the sheet before the file.
    sheet.history.Clear();
    return true;
}

XmlDocument SaveXMLChar(CharacterSheet& sheet) {
    XmlDocument document;
    try {
        writeCharacter(sheet, document);
    } catch (const XmlError& failure) {
        sheet.ShowXmlFailure(failure);
    }
    return document;
}

}  // namespace zeph
