#include "cli/ScriptRunner.h"

#include "cli/StateSnapshot.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>
#include <regex>

#include "documents/CharacterFile.h"
#include "documents/RecentFiles.h"
#include "documents/SavingCharacters.h"
#include "platform/Files.h"
#include "app/SheetOperations.h"
#include "app/SheetSteps.h"
#include "text/TextHelpers.h"
#include "tools/About.h"
#include "tools/DataFileManager.h"
#include "tools/DiceRoller.h"
#include "tools/ReferenceTable.h"
#include "tools/UpdateCheck.h"

namespace zeph {
namespace {

// "Quality{Name,Note}Field" stands for QualityNameField and QualityNoteField.
std::vector<std::string> ExpandBraces(const std::string& name) {
    const std::size_t open = name.find('{'), close = name.find('}', open);
    if (open == std::string::npos || close == std::string::npos) return {name};
    std::vector<std::string> names;
    for (const std::string& middle : SplitFields(name.substr(open + 1, close - open - 1), ','))
        for (const std::string& rest : ExpandBraces(name.substr(close + 1)))
            names.push_back(name.substr(0, open) + middle + rest);
    return names;
}

// Splits off the first word at the first blank; the rest keeps its blanks.
std::pair<std::string, std::string> firstWord(const std::string& text) {
    std::size_t blank = text.find(' ');
    if (blank == std::string::npos) return {text, ""};
    return {text.substr(0, blank), text.substr(blank + 1)};
}

}  // namespace

ScriptRunner::ScriptRunner(std::ostream& out, std::ostream& err,
                           const std::string& preferencesFolder,
                           const std::string& applicationFolder)
    : out_(out),
      err_(err),
      platform_(preferencesFolder, applicationFolder,
                std::filesystem::temp_directory_path().string()),
      app_(data_, platform_) {
    sheets_.push_back(std::make_unique<CharacterSheet>(data_, platform_, SheetOperations()));
    sheet_ = sheets_.back().get();
    witness_.Watch(sheet_->Items());
    rebase();
    platform_.SetLineSink([this](const std::string& line) { out_ << line << "\n"; });
}

int ScriptRunner::Run(std::istream& script) {
    std::string line;
    while (std::getline(script, line)) {
        ++lineNumber_;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        // A line ending in " \\" goes on in the next one, whose leading blanks go.
        std::string more;
        while (line.size() >= 2 && line.ends_with(" \\") && std::getline(script, more)) {
            ++lineNumber_;
            line.pop_back();
            line += more.substr(std::min(more.find_first_not_of(' '), more.size()));
        }
        try {
            runLine(line);
        } catch (const ScriptError& error) {
            err_ << "line " << lineNumber_ << ": " << error.message << "\n";
            return 2;
        } catch (const QuitRequest&) {
            failUnreachedExpectations(script);
            break;
        } catch (const std::exception& failure) {
            // What no operation handles ends the program, as in the app, after one message.
            platform_.MsgBox(failure.what());
            err_ << "line " << lineNumber_ << ": unhandled failure\n";
            return 3;
        }
    }
    return expectationFailed_ ? 1 : 0;
}

void ScriptRunner::failUnreachedExpectations(std::istream& script) {
    // Nothing runs after a quit, but a script must not pass by stopping early.
    const int quitLine = lineNumber_;
    std::string line;
    while (std::getline(script, line)) {
        ++lineNumber_;
        if (firstWord(line).first != "expect") continue;
        expectationFailed_ = true;
        out_ << "line " << lineNumber_ << ": not reached: the program quit at line " << quitLine
             << "\n";
    }
}

Item& ScriptRunner::item(const std::string& name) {
    Item* found = tool_ ? tool_->Items().Find(name) : sheet_->Items().Find(name);
    if (found == nullptr) throw ScriptError{"unknown item " + name};
    return *found;
}

template <void (ScriptRunner::*act)(const std::string&, const std::string&)>
void ScriptRunner::splitAtFirstWord(ScriptRunner& runner, const std::string& rest) {
    auto [word, more] = firstWord(rest);
    (runner.*act)(word, more);
}

template <void (ScriptRunner::*act)(const std::string&, const std::string&)>
void ScriptRunner::editStep(ScriptRunner& runner, const std::string& rest) {
    auto [word, more] = firstWord(rest);
    const Item* edited = runner.tool_ ? nullptr : runner.sheet_->Items().Find(word.substr(0, word.find('[')));
    if (edited == nullptr) return (runner.*act)(word, more);
    RunEditStep(*runner.sheet_, *edited, [&] { (runner.*act)(word, more); });
}

const std::vector<ScriptRunner::Command>& ScriptRunner::commands() {
    static const std::vector<Command> table = {
        {"data", "PATH (loads the rule data file)",
         [](ScriptRunner& runner, const std::string& path) {
             runner.data_.datafilepath = AbsolutePath(path);
             runner.app_.doneloading = runner.app_.LoadDataFile(runner.data_.datafilepath);
         }},
        {"save", "PATH (Save As to PATH, answering its dialog)",
         [](ScriptRunner& runner, const std::string& path) {
             runner.platform_.QueueAnswer(path);
             SaveAsFile(*runner.sheet_);
         }},
        {"open", "PATH (opens the character into a new sheet, which becomes the target)",
         [](ScriptRunner& runner, const std::string& path) { runner.openCharacter(path); }},
        {"tool", "dice|reference NAME|about|datafiles|updates (a tool's model becomes the target)",
         splitAtFirstWord<&ScriptRunner::openTool>},
        {"sheet", "(the sheet becomes the target again)",
         [](ScriptRunner& runner, const std::string&) {
             runner.tool_ = nullptr;
             runner.rebase();
         }},
        {"rolls", "N N ... (queues what the dice show next)",
         [](ScriptRunner& runner, const std::string& draws) { runner.queueRolls(draws); }},
        {"answer", "TEXT (next dialog answer: a path, cancel, or a button caption)",
         [](ScriptRunner& runner, const std::string& text) {
             runner.platform_.QueueAnswer(UnescapeLineEnds(text));
         }},
        {"do", "OPERATION [ARG] (runs an operation of the target or the application)",
         splitAtFirstWord<&ScriptRunner::doOperation>},
        {"print", "NAME (NAME.visible, NAME.ListIndex, NAME[r], NAME[r].bold...)",
         [](ScriptRunner& runner, const std::string& name) {
             for (const auto& [entry, value] : runner.values(name))
                 runner.out_ << entry << " = " << value << "\n";
         }},
        {"expect",
         "NAME TEXT, or expect changed NAME=TEXT ; ... (exactly these changed since the last)",
         splitAtFirstWord<&ScriptRunner::expect>},
        {"set",
         "ITEM TEXT (also a property; \\n is a line end, \\b the backspace key), "
         "or set LIST[r] c0|c1|...",
         editStep<&ScriptRunner::setItem>},
        {"choose", "ITEM TEXT (the row of that text, or the text of a combo)",
         editStep<&ScriptRunner::chooseRow>},
        {"flag", "ITEM on|off", editStep<&ScriptRunner::setFlag>},
        {"select", "LIST N (-1 for none)", editStep<&ScriptRunner::selectRow>},
        {"undo", "(takes back the last step: an operation, or a set, choose, flag or select)",
         [](ScriptRunner& runner, const std::string&) { runner.sheet_->history.Undo(); }},
        {"redo", "(does the step taken back again)",
         [](ScriptRunner& runner, const std::string&) { runner.sheet_->history.Redo(); }},
        {"explain", "ITEM (the terms of the item's figure in the last recomputation)",
         [](ScriptRunner& runner, const std::string& name) {
             const Item* item = runner.sheet_->Items().Find(name);
             if (item == nullptr) throw ScriptError{"unknown item " + name};
             runner.out_ << ExplainFigure(runner.sheet_->figureTerms, name, ItemText(*item));
         }},
    };
    return table;
}

void ScriptRunner::PrintCommands(std::ostream& out) {
    out << "script commands, one a line (# starts a comment):\n";
    for (const Command& command : commands())
        out << "  " << command.name << " " << command.usage << "\n";
}

void ScriptRunner::runLine(const std::string& line) {
    auto [name, rest] = firstWord(line);
    const auto command = std::ranges::find(commands(), name, &Command::name);
    if (command == commands().end()) throw ScriptError{"unknown command " + name};
    command->run(*this, rest);
}

void ScriptRunner::queueRolls(const std::string& draws) {
    for (const std::string& draw : SplitFields(draws, ' ')) {
        if (draw.empty()) continue;
        if (draw.find_first_not_of("0123456789") != std::string::npos)
            throw ScriptError{"rolls takes whole numbers, not " + draw};
        rolls_.Queue(static_cast<int>(Whole(draw)));
    }
}

void ScriptRunner::expect(const std::string& name, const std::string& expected) {
    if (name == "changed") return expectChanged(expected);
    std::vector<std::string> shown;
    for (const auto& value : values(name)) shown.push_back(value.second);
    std::string actual = JoinFields(shown, "\\n");
    if (actual != expected) {
        expectationFailed_ = true;
        out_ << "line " << lineNumber_ << ": expected " << name << " = " << expected << "\n"
             << "line " << lineNumber_ << ": got      " << name << " = " << actual << "\n";
    }
}

void ScriptRunner::setItem(const std::string& name, const std::string& text) {
    if (const std::size_t bracket = name.find('['); bracket != std::string::npos)
        return setRow(name.substr(0, bracket), name.substr(bracket + 1), UnescapeLineEnds(text));
    if (const auto* property = tool_ ? nullptr : sheet_->Properties().Find(name)) {
        property->set(UnescapeLineEnds(text));
        return;
    }
    if (!SetItemText(item(name), UnescapeLineEnds(text)))
        throw ScriptError{"cannot set " + name + "; use flag or select"};
}

void ScriptRunner::chooseRow(const std::string& name, const std::string& text) {
    auto* combo = dynamic_cast<ComboItem*>(&item(name));
    if (combo == nullptr) throw ScriptError{name + " is not a combo or choice"};
    const std::string wanted = UnescapeLineEnds(text);
    for (int row = 0; row < combo->ListCount(); ++row)
        if (combo->List(row) == wanted) return combo->SetListIndex(row);
    if (combo->Kind() == ItemKind::Choice) throw ScriptError{name + " has no row " + wanted};
    combo->SetText(wanted);
}

void ScriptRunner::setFlag(const std::string& name, const std::string& text) {
    auto* flag = dynamic_cast<FlagItem*>(&item(name));
    if (flag == nullptr) throw ScriptError{name + " is not a flag"};
    if (text != "on" && text != "off") throw ScriptError{"flag takes on or off"};
    flag->SetValue(text == "on");
}

void ScriptRunner::selectRow(const std::string& name, const std::string& text) {
    auto* list = dynamic_cast<ListItem*>(&item(name));
    if (list == nullptr) throw ScriptError{name + " is not a list"};
    int row = static_cast<int>(Whole(text));
    if (row < -1 || row >= list->ListCount()) throw ScriptError{name + " has no row " + text};
    list->SetListIndex(row);
}

void ScriptRunner::setRow(const std::string& name, const std::string& index,
                          const std::string& cells) {
    auto* list = dynamic_cast<ListItem*>(&item(name));
    if (list == nullptr) throw ScriptError{name + " is not a list"};
    const int row = static_cast<int>(Whole(index));
    if (row < 0 || row > list->ListCount()) throw ScriptError{name + " has no row " + index};
    if (row == list->ListCount()) list->AddRow("");
    const std::vector<std::string> texts = SplitFields(cells, '|');
    if (static_cast<int>(texts.size()) > list->ColumnCount())
        throw ScriptError{name + " has " + Str(list->ColumnCount()) + " columns"};
    for (std::size_t column = 0; column < texts.size(); ++column)
        list->SetCell(row, static_cast<int>(column), texts[column]);
}

const std::map<std::string, ScriptRunner::Handler>& ScriptRunner::appOperations() {
    static const std::map<std::string, Handler> table = {
        {"App.LoadData", [](ScriptRunner& runner, const std::string&) { runner.app_.LoadData(); }},
        {"App._HelpHelp_Action",
         [](ScriptRunner& runner, const std::string&) { runner.app_.HelpHelp_Action(); }},
        {"App.GetDataFile",
         [](ScriptRunner& runner, const std::string&) {
             // Its messages and dialogs print as it runs, so the value line comes after them.
             const std::string path = runner.app_.GetDataFile();
             runner.out_ << "App.GetDataFile = " << EscapeLineEnds(path) << "\n";
         }},
        {"OpenRecentMenuItem",
         [](ScriptRunner& runner, const std::string& caption) {
             runner.chooseRecentItem(caption);
         }},
        {"DataModule.SaveDataFilePreferences",
         [](ScriptRunner& runner, const std::string&) {
             runner.data_.SaveDataFilePreferences(runner.platform_);
         }},
    };
    return table;
}

void ScriptRunner::doOperation(const std::string& name, const std::string& written) {
    const std::string argument = UnescapeLineEnds(written);
    if (tool_) {
        const ToolModel::Operation* operation = tool_->FindOperation(name);
        if (operation == nullptr) throw ScriptError{"unknown operation " + name};
        return (*operation)(argument);
    }
    if (SheetOperations().count(name)) {
        if (auto result = RunUserOperation(*sheet_, name, argument))
            out_ << name << " = " << EscapeLineEnds(*result) << "\n";
        return;
    }
    const auto step = appOperations().find(name);
    if (step == appOperations().end()) throw ScriptError{"unknown operation " + name};
    step->second(*this, argument);
}

void ScriptRunner::openTool(const std::string& kind, const std::string& name) {
    std::unique_ptr<ToolModel> tool;
    if (kind == "dice") {
        tool = std::make_unique<DiceWindow>(rolls_);
    } else if (kind == "reference") {
        tool = ReferenceTableMenuItem_Action(*data_.xdata, platform_, name);
        if (!tool) return;  // the failure is shown; no view opens
    } else if (kind == "about") {
        tool = std::make_unique<AboutWindow>(*data_.xdata, data_.zephalondata);
    } else if (kind == "datafiles") {
        tool = std::make_unique<LoadDataWindow>(
            data_, platform_, [this](const std::string& path) { return app_.LoadDataFile(path); });
    } else if (kind == "updates") {
        tool = std::make_unique<CheckUpdatesWindow>(platform_);
    } else {
        throw ScriptError{"unknown tool " + kind + "; dice, reference, about, datafiles or updates"};
    }
    tools_.push_back(std::move(tool));
    tool_ = tools_.back().get();
    witness_.Watch(tool_->Items());
    rebase();
    // What the window shows as it opens counts as changed; nothing was there to tell.
    baseline_.clear();
    freshTarget_ = true;
}

void ScriptRunner::openCharacter(const std::string& path) {
    auto opened = std::make_unique<CharacterSheet>(data_, platform_, SheetOperations());
    // As a new window does: the recent submenu refilled, nothing unsaved yet.
    RemoveRecentOpenItems(data_);
    RebuildRecentOpenItems(data_);
    // What the opening filled in counts as changed, from the new sheet's defaults.
    StateSnapshot fresh = TakeSnapshot(opened->Items(), &opened->Properties());
    witness_.Watch(opened->Items());
    LoadXMLCharSheet(*opened, path);
    // Kept even when it closed itself, as the witness still follows its items.
    sheets_.push_back(std::move(opened));
    if (sheets_.back()->characterClosed) {
        out_ << "open: the character closed\n";
        return;
    }
    baseline_ = std::move(fresh);
    sheet_ = sheets_.back().get();
}

void ScriptRunner::rebase() {
    baseline_ = tool_ ? TakeSnapshot(tool_->Items(), nullptr)
                      : TakeSnapshot(sheet_->Items(), &sheet_->Properties());
    witness_.Clear();
    messagesSeen_ = platform_.Messages().size();
}

void ScriptRunner::expectChanged(const std::string& expectedText) {
    std::map<std::string, std::string> expected;
    for (std::size_t from = 0; from < expectedText.size();) {
        const std::size_t end = std::min(expectedText.find(" ; ", from), expectedText.size());
        const std::string entry = expectedText.substr(from, end - from);
        const std::size_t equals = entry.find('=');
        if (equals == std::string::npos) throw ScriptError{"expect changed takes NAME=TEXT ; ..."};
        for (const std::string& name : ExpandBraces(entry.substr(0, equals)))
            expected[name] = entry.substr(equals + 1);
        from = end + 3;
    }
    const StateSnapshot before = std::move(baseline_);
    const std::set<std::string> told = witness_.Told();
    const std::size_t messagesSeen = messagesSeen_;
    rebase();
    const bool fresh = std::exchange(freshTarget_, false);
    std::map<std::string, std::string> changed = ChangedEntries(before, baseline_);
    // The messages shown meanwhile count as a change, all in one entry.
    const std::vector<std::string>& messages = platform_.Messages();
    if (messages.size() > messagesSeen)
        changed["messages"] = EscapeLineEnds(JoinFields(
            std::vector<std::string>(messages.begin() + static_cast<long>(messagesSeen), messages.end()), " / "));
    const ItemRegistry& items = tool_ ? tool_->Items() : sheet_->Items();
    std::vector<std::string> faults, got;
    for (const auto& [name, value] : changed) {
        got.push_back(name + "=" + value);
        auto wanted = expected.find(name);
        if (wanted == expected.end()) faults.push_back(name + " changed to " + value + " unexpectedly");
        else if (wanted->second != value)
            faults.push_back(name + " = " + value + ", expected " + wanted->second);
        const std::string item = ItemOfEntry(name);
        if (!fresh && items.Find(item) != nullptr && !told.count(item))
            faults.push_back(item + " changed without telling its observers");
    }
    for (const auto& [name, value] : expected)
        if (!changed.count(name)) faults.push_back(name + " did not change; expected " + value);
    if (faults.empty()) return;
    expectationFailed_ = true;
    for (const std::string& fault : faults) out_ << "line " << lineNumber_ << ": " << fault << "\n";
    out_ << "line " << lineNumber_ << ": got changed " << JoinFields(got, " ; ") << "\n";
}

void ScriptRunner::chooseRecentItem(const std::string& caption) {
    const int notice = OpenRecentMenuItem_Action(data_, platform_, caption);
    LoadingRecentCharacterTimer(data_, platform_, notice,
                                [this](const std::string& path) { openCharacter(path); });
}

std::vector<std::pair<std::string, std::string>> ScriptRunner::values(const std::string& name) {
    // NAME, NAME.attribute, NAME[r] or NAME[r].bold
    static const std::regex shape(R"(^([A-Za-z_][A-Za-z0-9_.]*?)(?:\[(-?\d+)\])?(?:\.(visible|enabled|ListIndex|ListCount|rows|runs|heading|headings|ColumnWidths|bold))?$)");
    std::smatch parts;
    if (!std::regex_match(name, parts, shape)) throw ScriptError{"cannot read " + name};
    const std::string base = parts[1];
    const bool hasRow = parts[2].matched;
    const int row = hasRow ? std::stoi(parts[2]) : 0;
    const std::string attribute = parts[3];
    auto one = [&](std::string value) {
        return std::vector<std::pair<std::string, std::string>>{{name, EscapeLineEnds(value)}};
    };

    if (!hasRow && attribute.empty() && tool_) {
        if (base == "Title") return one(tool_->Title());
        if (base == "Width") return one(Str(tool_->Width()));
        if (base == "Height") return one(Str(tool_->Height()));
        if (base == "Closed") return one(BoolText(tool_->Closed()));
    }
    if (!hasRow && attribute.empty()) {
        if (const auto* property = tool_ ? nullptr : sheet_->Properties().Find(base))
            return one(property->get());
        if (base == "App.doneloading") return one(BoolText(app_.doneloading));
        if (base == "undo") return one(sheet_->history.UndoName());
        if (base == "redo") return one(sheet_->history.RedoName());
        if (base == "DataModule.zephalondata") return one(data_.zephalondata);
        if (base == "DataModule.datafilepath") return one(data_.datafilepath);
        if (base == "DataModule.knowndatafiles") return one(JoinFields(data_.knowndatafiles, ","));
        if (base == "DataModule.recentItemsName") return one(JoinFields(data_.recentItemsName, ","));
        if (base == "DataModule.recentItemsPaths")
            return one(JoinFields(data_.recentItemsPaths, ","));
        if (base == "DataModule.recentMenuItems") return one(JoinFields(data_.recentMenuItems, "|"));
        if (base == "DataModule.recentItemPath") return one(data_.recentItemPath);
        if (base == "DataModule.referenceTables") return one(JoinFields(data_.referenceTables, ","));
    }

    Item& target = item(base);
    auto* list = dynamic_cast<ListItem*>(&target);
    auto* combo = dynamic_cast<ComboItem*>(&target);
    auto* text = dynamic_cast<TextItem*>(&target);
    if (hasRow) {
        if (list == nullptr) throw ScriptError{base + " is not a list"};
        if (row < 0 || row >= list->ListCount()) throw ScriptError{base + " has no row " + parts[2].str()};
        if (attribute == "bold") return one(BoolText(list->CellBold(row, 0)));
        if (!attribute.empty()) throw ScriptError{"cannot read " + name};
        return one(ListRowText(*list, row));
    }
    if (attribute == "visible") return one(BoolText(target.Visible()));
    if (attribute == "enabled") return one(BoolText(target.Enabled()));
    if (attribute == "ListIndex" && list) return one(Str(list->ListIndex()));
    if (attribute == "ListIndex" && combo) return one(Str(combo->ListIndex()));
    if (attribute == "ListCount" && list) return one(Str(list->ListCount()));
    if (attribute == "ListCount" && combo) return one(Str(combo->ListCount()));
    if (attribute == "rows" && combo) return one(JoinFields(combo->Rows(), "|"));
    if (attribute == "heading" && list) return one(list->Heading(0));
    if (attribute == "headings" && list) return one(HeadingsText(*list));
    if (attribute == "ColumnWidths" && list) return one(list->ColumnWidths());
    if (attribute == "runs" && text) return one(RunsText(text->Styled()));
    if (!attribute.empty()) throw ScriptError{"cannot read " + name};
    if (list) {
        std::vector<std::pair<std::string, std::string>> lines;
        for (int r = 0; r < list->ListCount(); ++r)
            lines.emplace_back(base + "[" + std::to_string(r) + "]",
                               EscapeLineEnds(ListRowText(*list, r)));
        return lines;
    }
    return one(ItemText(target));
}

}  // namespace zeph
