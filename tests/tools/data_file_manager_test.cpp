// The Load Data window over real files: the list from the preferences, removing, adding,
// loading, and the list kept on the way out.
#include <gtest/gtest.h>

#include "app/App.h"
#include "support/SheetFixture.h"
#include "tools/DataFileManager.h"

namespace zeph {
namespace {

std::string rules(const std::string& tag) {
    return "<zephalondata fullref=\"Ref " + tag + "\"><tabledata><table name=\"T " + tag +
           "\"/></tabledata></zephalondata>";
}

// The rows as shown: bold ones marked "*", the selected one followed by " <".
std::string shown(const ListItem& list) {
    std::string text;
    for (int row = 0; row < list.ListCount(); ++row)
        text += std::string(row ? ", " : "") + (list.CellBold(row, 0) ? "*" : "") +
                list.Cell(row, 0) + "|" + list.Cell(row, 1) + (list.Selected(row) ? " <" : "");
    return text;
}

struct Manager {
    explicit Manager(const std::string& tag) : folder(tag) { data.datafilepath = "/rules.xml"; }
    std::unique_ptr<LoadDataWindow> Open() {
        return std::make_unique<LoadDataWindow>(
            data, platform, [this](const std::string& path) { return app.LoadDataFile(path); });
    }
    testing::TempFolder folder;
    ScriptedPlatform platform{folder.path.string(), "", ""};
    DataModule data;
    App app{data, platform};
};

TEST(LoadDataWindow, ListsRemovesAndLoadsTheKnownFiles) {
    Manager m("datafiles-list");
    const std::string one = m.folder.Write("one.xml", rules("1")),
                      two = m.folder.Write("two.xml", rules("2"));
    m.folder.Write("zephalonprefs.xml",
                   "<zephalonprefs><datafiles name=\"One\" filename=\"one.xml\" path=\"" + one +
                       "\"/><datafiles name=\"Two\" filename=\"two.xml\" path=\"" + two +
                       "\"/><datafiles name=\"Gone\" path=\"/no/gone.xml\"/></zephalonprefs>");
    m.data.datafilepath = two;
    m.data.knowndatafiles = {"As read at start\rone.xml\r" + one};  // replaced at closing
    auto window = m.Open();
    EXPECT_EQ(shown(window->ListBox1), "One|one.xml, *Two|two.xml <, Gone|");
    EXPECT_TRUE(window->ListBox1.CellBold(1, 2) && window->PathText.Visible());
    // Name on 60% of the width, file name on 40%; the path shows below, not in the list.
    EXPECT_EQ(Str(window->ListBox1.ShownColumns().value_or(0)) + " " + window->ListBox1.ColumnWidths(),
              "2 60%,40%");
    EXPECT_EQ(window->PathText.Text(), "Path to folder-- " + two);

    window->ListBox1.SetListIndex(2);
    window->LoadButton_Action();
    EXPECT_EQ(m.platform.Messages().back(),
              "This file can no longer be located. It has been removed from the list. Please "
              "choose another.");
    EXPECT_EQ(shown(window->ListBox1), "One|one.xml, *Two|two.xml");
    window->LoadButton_Action();  // nothing selected now: nothing happens
    EXPECT_FALSE(window->Closed() || window->PathText.Visible());

    window->ListBox1.SetListIndex(1);
    window->ListBox1_KeyDown("9");
    EXPECT_EQ(window->ListBox1.ListCount(), 2);
    window->ListBox1_KeyDown("16");
    window->ListBox1.SetListIndex(0);
    // Declining the switch (the report of what it would change) keeps the file in use.
    std::string asked;
    window->SetConfirmSwitch([&](const std::string& path) { return asked = path, false; });
    window->LoadButton_Action();
    EXPECT_EQ(asked + " " + m.data.datafilepath, one + " " + two);
    EXPECT_FALSE(window->Closed());
    window->SetConfirmSwitch([](const std::string&) { return true; });
    window->LoadButton_Action();
    EXPECT_TRUE(window->Closed());
    EXPECT_EQ(m.data.datafilepath + " " + m.data.referenceTables.at(0), one + " T 1");
    EXPECT_EQ(shown(m.Open()->ListBox1), "*One|one.xml <");  // the list stored on the way out
}

TEST(LoadDataWindow, AddsFilesOneByOneAndFromAFolderTree) {
    Manager m("datafiles-add");
    auto window = m.Open();
    EXPECT_EQ(window->ListBox1.ListCount(), 0);  // no preferences file yet
    m.platform.QueueAnswer(m.folder.Write("one.xml", rules("1")));
    window->AddFileButton_Action();
    EXPECT_EQ(shown(window->ListBox1), "Ref 1|one.xml <");

    std::filesystem::create_directories(m.folder.path / "tree/b");
    m.folder.Write("tree/a.xml", rules("a"));
    m.folder.Write("tree/b/bad.xml", "<zephalondata>");
    m.folder.Write("tree/b/c.xml", rules("c"));  // after the bad file: not searched
    m.folder.Write("tree/d.XML", "<zephalondata/>");
    m.folder.Write("tree/e.txt", rules("e"));
    m.folder.Write("tree/f.xml", "<other/>");
    m.platform.QueueAnswer(m.folder.At("tree"));
    window->AddfromFolderButton_Action();
    EXPECT_EQ(shown(window->ListBox1), "Ref 1|one.xml <, Ref a|a.xml, |d.XML");
    const std::string& failure = m.platform.Messages().back();
    EXPECT_EQ(failure.substr(failure.find('\n')), "\nIn file: bad.xml\nFile note added.");

    m.platform.QueueAnswer(m.folder.At("tree/b/bad.xml"));
    EXPECT_THROW(window->AddFileButton_Action(), XmlError);  // left to the application
}

TEST(LoadDataWindow, MarksTheFilesWithMistakesAndChecksTheChosenOne) {
    Manager m("datafiles-check");
    auto window = m.Open();
    for (const char* file : {"several.xml", "separators.xml", "leaves.xml"}) {
        m.platform.QueueAnswer(ZEPHALON_SOURCE_DIR "/tests/data/lint/" + std::string(file));
        window->AddFileButton_Action();
    }
    m.platform.QueueAnswer(m.folder.Write("clean.xml", rules("1")));
    window->AddFileButton_Action();
    EXPECT_EQ(window->LintMark(0) + window->LintMark(1) + window->LintMark(3), "errorswarnings");
    window->CheckButton_Action();  // the last added is selected
    EXPECT_EQ(window->CheckReport.Text(), "No mistakes found in " + m.folder.At("clean.xml") + ".");
    window->ListBox1.SetListIndex(2);
    window->CheckButton_Action();
    EXPECT_EQ(window->CheckedFindings().size(), 7u);
    EXPECT_EQ(window->CheckReport.Text(), FindingsAsText(window->CheckedFindings()));
    window->ListBox1.SetListIndex(-1);
    window->CheckButton_Action();
    EXPECT_FALSE(window->CheckReport.Visible());
}

TEST(LoadDataWindow, WithoutAPreferencesFolderAsksForADataFile) {
    DataModule data;
    ScriptedPlatform platform("", "", "");
    platform.QueueAnswer("/some/rules.xml");
    LoadDataWindow window(data, platform, [](const std::string&) { return true; });
    EXPECT_EQ(platform.Messages(), std::vector<std::string>{kChooseDataFileMessage});
    EXPECT_EQ(data.datafilepath, "/some/rules.xml");
    EXPECT_THROW(LoadDataWindow(data, platform, [](const std::string&) { return true; }),
                 QuitRequest);
    EXPECT_TRUE(platform.QuitCalled() && platform.QuitCode() == 0);
}

}  // namespace
}  // namespace zeph
