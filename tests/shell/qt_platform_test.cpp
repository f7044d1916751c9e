// What the Qt platform answers without showing a dialog: folders and file filters.
#include <gtest/gtest.h>

#include <QDir>

#include "platform/qt/QtPlatform.h"
#include "shell/gui_test_app.h"

namespace zeph {
namespace {

// Sets an environment variable for one test and puts the old value back.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, const QByteArray& value)
        : name_(name), had_(qEnvironmentVariableIsSet(name)), old_(qgetenv(name)) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }
    ~ScopedEnv() {
        if (had_)
            qputenv(name_, old_);
        else
            qunsetenv(name_);
    }

  private:
    const char* name_;
    bool had_;
    QByteArray old_;
};

TEST(QtPlatform, PreferencesLiveInTheXdgConfigFolder) {
    QtPlatform platform;
    ScopedEnv config("XDG_CONFIG_HOME", "/tmp/zeph-config");
    EXPECT_EQ(platform.PreferencesFolder(), "/tmp/zeph-config/zephalon");
}

TEST(QtPlatform, PreferencesDefaultToDotConfigInHome) {
    QtPlatform platform;
    ScopedEnv config("XDG_CONFIG_HOME", QByteArray());
    EXPECT_EQ(platform.PreferencesFolder(), (QDir::homePath() + "/.config/zephalon").toStdString());
}

TEST(QtPlatform, ARelativeConfigFolderIsIgnored) {
    QtPlatform platform;
    ScopedEnv config("XDG_CONFIG_HOME", "relative/config");
    EXPECT_EQ(platform.PreferencesFolder(), (QDir::homePath() + "/.config/zephalon").toStdString());
}

TEST(QtPlatform, FoldersOfTheApplicationAndForTemporaryFiles) {
    test::GuiTestApp();
    QtPlatform platform;
    EXPECT_EQ(platform.ApplicationFolder(), QCoreApplication::applicationDirPath().toStdString());
    EXPECT_EQ(platform.TemporaryFolder(), QDir::tempPath().toStdString());
}

TEST(QtPlatform, FileFiltersListTheExtensionsOfTheType) {
    EXPECT_EQ(FileDialogFilter(FileTypes::Text), "text (*.xml *.xsl)");
    EXPECT_EQ(FileDialogFilter(FileTypes::TextXml), "text/xml (*.xml)");
}

}  // namespace
}  // namespace zeph
