#include <tuple>

#include "platform/Files.h"
#include "app/App.h"
#include "support/SheetFixture.h"

using namespace zeph;
using Lines = std::vector<std::string>;

namespace {

const char* const kRules =
    R"(<zephalondata books="ZSB WC"><tabledata><table name="Ranges"/><table name="Levels"/>)"
    R"(</tabledata></zephalondata>)";
const char* const kMissing = "Please locate a data file in XML format for Zephalon to use.";

// A start with a preferences folder of its own.
class DataLoading : public ::testing::Test {
protected:
    void writePrefs(const std::string& path) {
        folder.Write(kPreferencesFileName, "<zephalonprefs><pathtodatafile>" + path + "</pathtodatafile></zephalonprefs>");
    }

    zeph::testing::TempFolder folder{"load"};
    const std::string prefsPath = folder.At(kPreferencesFileName);
    ScriptedPlatform platform{folder.path.string(), "/nonexistent", "/tmp"};
    DataModule data;
    App app{data, platform};
};

}  // namespace

TEST_F(DataLoading, PreferencesRoundTripKeepingOrderAndTheSeparator) {
    folder.Write(kPreferencesFileName, "old");
    data.SaveDataFilePreferences(platform);
    EXPECT_EQ(*ReadWholeFile(prefsPath), "old") << "nothing is written without a data file path";
    EXPECT_EQ(App(data, platform).GetDataFile(), "");  // preferences that are not XML are told
    EXPECT_EQ(platform.Messages(), Lines{"Start tag expected, '<' not found\n At node: " + prefsPath + " on: 1"});
    data.datafilepath = folder.Write("rules.xml", kRules);
    for (int load = 0; load < 2; ++load) ASSERT_TRUE(app.LoadDataFile(data.datafilepath));
    EXPECT_EQ(data.referenceTables, (Lines{"Ranges", "Levels"})) << "each load anew";
    data.knowndatafiles = {std::string("Sample\rsample.xml\r/a/sample.xml"),
                           std::string("Mine & yours\rmine.xml\r/b/\"mine\".xml")};
    data.recentItemsName = {"vera.xml", "olaf.xml"};
    data.recentItemsPaths = {"/c/vera.xml", "/c/olaf.xml"};
    data.SaveDataFilePreferences(platform);

    EXPECT_EQ(ReadWholeFile(prefsPath)->find('\n'), ReadWholeFile(prefsPath)->size() - 1);  // one line, no indentation

    DataModule reread;
    EXPECT_EQ(App(reread, platform).GetDataFile(), data.datafilepath);
    EXPECT_EQ(std::tie(reread.knowndatafiles, reread.recentItemsName, reread.recentItemsPaths),
              std::tie(data.knowndatafiles, data.recentItemsName, data.recentItemsPaths));
}

// A start after the preferences name a data file that is gone, empty, relative or not XML.
TEST_F(DataLoading, AStoredPathThatCannotBeLoaded) {
    const std::string rules = folder.Write("rules.xml", kRules), junk = folder.Write("junk.xml", "not xml");
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"/gone/rules.xml", kMissing, true},
        {"", kMissing, true},
        {"rules.xml", "The preferences file is invalid.", false},
        {junk, "Start tag expected, '<' not found\n At node: " + junk + " on: 1", false}};
    for (const auto& [path, message, done] : cases) {
        writePrefs(path);
        ScriptedPlatform scripted(folder.path.string(), "/nonexistent", "/tmp");
        DataModule loaded;
        App started(loaded, scripted);
        scripted.QueueAnswer(rules);
        started.LoadData();
        EXPECT_EQ(scripted.Messages(), Lines{message}) << path;
        EXPECT_EQ(started.doneloading, done) << path;
        EXPECT_EQ(loaded.datafilepath, done ? rules : path);
        EXPECT_EQ(loaded.xdata->Query("//zephalondata").Empty(), !done);
    }
}

// The user guide missing beside the program: told, and then found where the user points.
TEST_F(DataLoading, TheUserGuideIsSoughtWhereTheUserPointsWhenItIsMissing) {
    platform.QueueAnswer(folder.path.string());
    app.HelpHelp_Action();
    EXPECT_EQ(std::to_string(platform.Messages().size()) + platform.Transcript().back(),
              "1url: file://" + folder.At("index.html"));
}
