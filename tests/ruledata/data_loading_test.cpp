#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/Files.h"
#include "platform/ScriptedPlatform.h"
#include "ruledata/DataModule.h"
#include "shell/App.h"

using namespace zeph;
namespace fs = std::filesystem;

namespace {

const char* const kRules =
    R"(<zephalondata books="ZSB WC"><tabledata><table name="Ranges"/><table name="Levels"/>)"
    R"(</tabledata></zephalondata>)";

class DataLoading : public ::testing::Test {
protected:
    void SetUp() override {
        root = fs::temp_directory_path() /
               ("zeph-load-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(root);
        fs::create_directories(root / "prefs");
        fs::create_directories(root / "app");
        platform = std::make_unique<ScriptedPlatform>((root / "prefs").string(),
                                                      (root / "app").string(), "/tmp");
        app = std::make_unique<App>(data, *platform);
    }
    void TearDown() override { fs::remove_all(root); }

    std::string write(const std::string& name, const std::string& content) {
        std::ofstream((root / name).string()) << content;
        return (root / name).string();
    }
    std::string prefsPath() const { return (root / "prefs" / kPreferencesFileName).string(); }

    fs::path root;
    std::unique_ptr<ScriptedPlatform> platform;
    DataModule data;
    std::unique_ptr<App> app;
};

}  // namespace

TEST_F(DataLoading, FirstRunAsksForAFileLoadsItAndWritesNothingYet) {
    std::string rules = write("rules.xml", kRules);
    platform->QueueAnswer(rules);
    app->LoadData();
    ASSERT_EQ(platform->Messages().size(), 1u);
    EXPECT_EQ(platform->Messages()[0],
              "Please select a data file to use. Zephalon will not operate without an xml data "
              "file.");
    EXPECT_TRUE(app->doneloading);
    EXPECT_EQ(data.datafilepath, rules);
    EXPECT_EQ(data.zephalondata, "ZSB WC");
    EXPECT_EQ(data.referenceTables, (std::vector<std::string>{"Ranges", "Levels"}));
    EXPECT_FALSE(fs::exists(prefsPath()));
}

TEST_F(DataLoading, FirstRunCancelQuitsWithZeroAndLeavesNoPreferences) {
    platform->QueueAnswer("cancel");
    EXPECT_THROW(app->LoadData(), QuitRequest);
    EXPECT_TRUE(platform->QuitCalled());
    EXPECT_EQ(platform->QuitCode(), 0);
    EXPECT_FALSE(fs::exists(prefsPath()));
}

TEST_F(DataLoading, TheFirstDialogOpensWhereTheBundledSampleLives) {
    fs::create_directories(root / "data" / "rules");
    platform = std::make_unique<ScriptedPlatform>((root / "prefs").string(),
                                                  (root / "build" / "bin").string(), "/tmp");
    fs::create_directories(root / "build" / "bin");
    App located(data, *platform);
    platform->QueueAnswer("cancel");
    EXPECT_THROW(located.LoadData(), QuitRequest);
    EXPECT_EQ(platform->LastDialogFolder(), (root / "data" / "rules").string());
}

TEST_F(DataLoading, PreferencesRoundTripKeepingOrderAndTheSeparator) {
    std::string rules = write("rules.xml", kRules);
    data.datafilepath = rules;
    data.knowndatafiles = {std::string("Sample\rsample.xml\r/a/sample.xml"),
                           std::string("Mine & yours\rmine.xml\r/b/\"mine\".xml")};
    data.recentItemsName = {"vera.xml", "olaf.xml"};
    data.recentItemsPaths = {"/c/vera.xml", "/c/olaf.xml"};
    data.SaveDataFilePreferences(*platform);

    std::string text = *ReadWholeFile(prefsPath());
    EXPECT_EQ(text.back(), '\n');
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);  // one line, no indentation

    DataModule reread;
    App second(reread, *platform);
    EXPECT_EQ(second.GetDataFile(), rules);
    EXPECT_EQ(reread.knowndatafiles, data.knowndatafiles);
    EXPECT_EQ(reread.recentItemsName, data.recentItemsName);
    EXPECT_EQ(reread.recentItemsPaths, data.recentItemsPaths);
    EXPECT_TRUE(platform->Messages().empty());
}

TEST_F(DataLoading, NothingIsWrittenWithoutADataFilePath) {
    write("prefs/zephalonprefs.xml", "old");
    data.SaveDataFilePreferences(*platform);
    EXPECT_EQ(*ReadWholeFile(prefsPath()), "old");
}

TEST_F(DataLoading, AVanishedDataFileIsAskedForOnceAndReplaced) {
    write("prefs/zephalonprefs.xml",
          "<zephalonprefs><pathtodatafile>/gone/rules.xml</pathtodatafile></zephalonprefs>");
    std::string rules = write("rules.xml", kRules);
    platform->QueueAnswer(rules);
    app->LoadData();
    ASSERT_EQ(platform->Messages().size(), 1u);
    EXPECT_EQ(platform->Messages()[0], "Please locate a data file in XML format for Zephalon to use.");
    EXPECT_EQ(data.datafilepath, rules);
    EXPECT_TRUE(app->doneloading);
}

TEST_F(DataLoading, AnEmptyStoredPathIsTakenAsAMissingFile) {
    write("prefs/zephalonprefs.xml", "<zephalonprefs><pathtodatafile/></zephalonprefs>");
    EXPECT_EQ(app->GetDataFile(), "");
    platform->QueueAnswer("cancel");
    EXPECT_THROW(app->LoadData(), QuitRequest);
}

TEST_F(DataLoading, ADamagedPreferencesFileShowsTheReportAndYieldsNoPath) {
    write("prefs/zephalonprefs.xml",
          "<zephalonprefs><pathtodatafile>/x.xml</pathtodatafile><datafiles name='a'/>");
    EXPECT_EQ(app->GetDataFile(), "");
    ASSERT_EQ(platform->Messages().size(), 1u);
    EXPECT_NE(platform->Messages()[0].find("\n At node: "), std::string::npos);
    EXPECT_NE(platform->Messages()[0].find(" on: "), std::string::npos);
}

TEST_F(DataLoading, ADataFileThatIsNotXmlLeavesAnEmptyDocumentAndGoesOn) {
    std::string rules = write("rules.xml", "this is not xml");
    write("prefs/zephalonprefs.xml",
          "<zephalonprefs><pathtodatafile>" + rules + "</pathtodatafile></zephalonprefs>");
    app->LoadData();
    EXPECT_FALSE(app->doneloading);
    ASSERT_EQ(platform->Messages().size(), 1u);
    EXPECT_NE(platform->Messages()[0].find(" At node: "), std::string::npos);
    EXPECT_TRUE(data.xdata->Query("//zephalondata").Empty());
}

TEST_F(DataLoading, AnotherRootLoadsWithNoBooksAndNoTables) {
    std::string rules = write("rules.xml", "<character/>");
    platform->QueueAnswer(rules);
    app->LoadData();
    EXPECT_TRUE(app->doneloading);
    EXPECT_EQ(data.zephalondata, "");
    EXPECT_TRUE(data.referenceTables.empty());
}

TEST_F(DataLoading, ARelativeStoredPathIsAnInvalidPreferencesFile) {
    write("prefs/zephalonprefs.xml",
          "<zephalonprefs><pathtodatafile>rules.xml</pathtodatafile></zephalonprefs>");
    app->LoadData();
    EXPECT_FALSE(app->doneloading);
    ASSERT_EQ(platform->Messages().size(), 1u);
    EXPECT_EQ(platform->Messages()[0], "The preferences file is invalid.");
}
