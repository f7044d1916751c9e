#include "cli/DiffDataCommand.h"

#include <exception>
#include <memory>

#include "app/App.h"
#include "app/SheetOperations.h"
#include "platform/Files.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "ruledata/RuleData.h"
#include "tools/RuleDataDiff.h"

namespace zeph {
namespace {

// Loads a rule data file as the app does; the failure's report otherwise.
std::string loadRules(DataModule& data, const std::string& path) {
    if (!IsExistingFile(path)) return "cannot read the rule data file " + path;
    ScriptedPlatform platform("", "", "");
    if (App(data, platform).LoadDataFile(path)) return "";
    return path + ": " + platform.Messages().back();
}

int diffData(const std::vector<std::string>& files, std::ostream& out, std::ostream& err) {
    DataModule before, after;
    for (auto [data, path] : {std::pair{&before, files[0]}, std::pair{&after, files[1]}}) {
        if (const std::string failure = loadRules(*data, path); !failure.empty()) {
            err << failure << "\n";
            return 2;
        }
    }
    const std::string& characterPath = files[2];
    if (!IsExistingFile(characterPath)) {
        err << "cannot read the character file " << characterPath << "\n";
        return 2;
    }
    std::unique_ptr<RuleData> character;
    try {
        character = RuleData::LoadFile(characterPath);
    } catch (const XmlError& failure) {
        err << characterPath << ": " << FormatXmlFailure(failure) << "\n";
        return 2;
    }
    if (const std::string reason = ForeignCharacterReason(*character, before); !reason.empty()) {
        err << characterPath << " is not a character of " << files[0] << ": " << reason << "\n";
        return 2;
    }
    const CharacterChanges changes = DiffRuleData(*character, before, after, SheetOperations());
    out << ChangesAsText(changes);
    return changes.Empty() ? 0 : 1;
}

}  // namespace

int RunDiffDataCommand(const std::vector<std::string>& arguments, std::ostream& out,
                       std::ostream& err) {
    if (arguments.size() != 3) {
        err << "usage: zephalon-cli diff-data OLD.xml NEW.xml CHARACTER.xml\n";
        return 2;
    }
    try {
        return diffData(arguments, out, err);
    } catch (const std::exception& failure) {
        err << "diff-data failed: " << failure.what() << "\n";
        return 2;
    }
}

}  // namespace zeph
