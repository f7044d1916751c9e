// Fuzzes reading a character file into a new sheet and writing it back out: whatever the
// bytes, the program shows a message or opens the character, and what it writes reads back.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "documents/CharacterFile.h"
#include "documents/SavingCharacters.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "ruledata/RuleData.h"
#include "app/App.h"
#include "app/SheetOperations.h"
#include "sheet/CharacterSheet.h"

namespace {

struct World {
    zeph::ScriptedPlatform platform{"", "", std::filesystem::temp_directory_path().string()};
    zeph::DataModule data;
    std::string path = (std::filesystem::temp_directory_path() /
                        ("zephalon-fuzz-character-" + std::to_string(getpid()) + ".xml"))
                           .string();
    World() {
        // The sample rule data, when the fuzzer runs from the source tree.
        zeph::App app(data, platform);
        app.LoadDataFile(ZEPHALON_SOURCE_DIR "/data/rules/sample.xml");
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static World world;
    {
        std::ofstream file(world.path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    }
    zeph::CharacterSheet sheet(world.data, world.platform, zeph::SheetOperations());
    try {
        zeph::LoadXMLCharSheet(sheet, world.path);
    } catch (const std::exception&) {
        return 0;  // shown as a message by the program
    }
    if (sheet.characterClosed) return 0;
    // What is written of whatever was read must read back as XML.
    const std::string written = zeph::CharacterFileText(sheet);
    zeph::RuleData::LoadText(written);
    return 0;
}
