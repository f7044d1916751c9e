// Runs a console script against one sheet: one command per line, every operation of the sheet
// reachable by name. Exit status: 0 when every expectation held, 1 when one failed, 2 for a
// script error, 3 when an operation failed in a way nothing handled.
#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/App.h"
#include "sheet/CharacterSheet.h"

namespace zeph {

class ScriptRunner {
public:
    ScriptRunner(std::ostream& out, std::ostream& err, const std::string& preferencesFolder,
                 const std::string& applicationFolder);
    int Run(std::istream& script);

private:
    struct ScriptError {
        std::string message;
    };
    void runLine(const std::string& line);
    void failUnreachedExpectations(std::istream& script);
    void doOperation(const std::string& name, const std::string& argument);
    // The lines `print NAME` shows, as (name, value) pairs.
    std::vector<std::pair<std::string, std::string>> values(const std::string& name);
    Item& item(const std::string& name);

    std::ostream& out_;
    std::ostream& err_;
    ScriptedPlatform platform_;
    DataModule data_;
    App app_;
    CharacterSheet sheet_;
    int lineNumber_ = 0;
    bool expectationFailed_ = false;
};

}  // namespace zeph
