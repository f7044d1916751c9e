// Runs a console script against one sheet: one command per line, every operation of the sheet
// reachable by name. Exit status: 0 when every expectation held, 1 when one failed, 2 for a
// script error, 3 when an operation failed in a way nothing handled.
#pragma once

#include <istream>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/StateSnapshot.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "app/App.h"
#include "sheet/CharacterSheet.h"
#include "tools/RandomSource.h"
#include "tools/ToolModel.h"

namespace zeph {

class ScriptRunner {
public:
    ScriptRunner(std::ostream& out, std::ostream& err, const std::string& preferencesFolder,
                 const std::string& applicationFolder);
    int Run(std::istream& script);
    // The sheet the commands act on when no tool is the target.
    CharacterSheet& Sheet() { return *sheet_; }
    // The script commands, one a line with its usage, in the order of the command table.
    static void PrintCommands(std::ostream& out);

private:
    struct ScriptError {
        std::string message;
    };
    // What a command or an application operation does with the rest of its line.
    using Handler = void (*)(ScriptRunner& runner, const std::string& rest);
    struct Command {
        const char* name;
        const char* usage;  // what follows the name, and what the command does
        Handler run;
    };
    static const std::vector<Command>& commands();
    // The steps of the application that `do` runs besides the sheet's operations.
    static const std::map<std::string, Handler>& appOperations();
    // A handler whose command takes a first word and the rest: `act(word, rest)`.
    template <void (ScriptRunner::*act)(const std::string&, const std::string&)>
    static void splitAtFirstWord(ScriptRunner& runner, const std::string& rest);
    // The same for an edit of the sheet's item named by the first word: one step of the sheet.
    template <void (ScriptRunner::*act)(const std::string&, const std::string&)>
    static void editStep(ScriptRunner& runner, const std::string& rest);

    void runLine(const std::string& line);
    void failUnreachedExpectations(std::istream& script);
    void queueRolls(const std::string& draws);
    void expect(const std::string& name, const std::string& expected);
    // `set ITEM TEXT`, also a property or, as `set LIST[r] ...`, a row.
    void setItem(const std::string& name, const std::string& text);
    // `set LIST[r] c0|c1|...`: writes the first cells of row r, a new row when r is the count.
    void setRow(const std::string& name, const std::string& index, const std::string& cells);
    void chooseRow(const std::string& name, const std::string& text);
    void setFlag(const std::string& name, const std::string& text);
    void selectRow(const std::string& name, const std::string& text);
    // `written` as the script has it, `\n` standing for a line end.
    void doOperation(const std::string& name, const std::string& written);
    // The lines `print NAME` shows, as (name, value) pairs.
    std::vector<std::pair<std::string, std::string>> values(const std::string& name);
    Item& item(const std::string& name);
    // Makes the model of a tool window the target, as its menu item opens the window.
    void openTool(const std::string& kind, const std::string& name);
    // Opens the character file into a new sheet, which becomes the target if it stays open.
    void openCharacter(const std::string& path);
    void chooseRecentItem(const std::string& caption);
    // The target's state now becomes what the next `expect changed` compares with.
    void rebase();
    // `expect changed NAME=TEXT ; NAME=TEXT ...`: exactly these entries changed since the last
    // one (or since the target became the target), each item among them told its observers;
    // `messages` holds the messages shown meanwhile, joined by " / ". Names sharing a text may
    // be written as one: `Quality{Name,Note}Field=`.
    void expectChanged(const std::string& expected);

    std::ostream& out_;
    std::ostream& err_;
    ScriptedPlatform platform_;
    DataModule data_;
    App app_;

    // Every sheet opened, the first one empty; `sheet_` is the one the commands act on.
    std::vector<std::unique_ptr<CharacterSheet>> sheets_;
    CharacterSheet* sheet_ = nullptr;
    // The tools opened; while `tool_` is set the commands act on it instead of the sheet.
    std::vector<std::unique_ptr<ToolModel>> tools_;
    ToolModel* tool_ = nullptr;
    // What the dice rollers' dice show: the draws `rolls` queued.
    QueuedRandom rolls_;
    // Declared after the sheets and tools it watches, so that it goes first.
    ChangeWitness witness_;
    StateSnapshot baseline_;
    std::size_t messagesSeen_ = 0;
    bool freshTarget_ = false;  // a tool just opened: its first state was never told
    int lineNumber_ = 0;
    bool expectationFailed_ = false;
};

}  // namespace zeph
