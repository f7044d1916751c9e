// The platform of the desktop app: real dialogs and message boxes, the user's folders, the
// browser, and the Qt event loop for quitting.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <map>
#include <memory>

#include "platform/Platform.h"

class QNetworkAccessManager;

namespace zeph {

class QtPlatform : public Platform {
  public:
    QtPlatform();
    ~QtPlatform() override;
    void MsgBox(const std::string& text) override;
    std::optional<std::string> OpenFileDialog(const FileType& type,
                                              const std::string& folder) override;
    std::optional<std::string> SaveFileDialog(const FileType& type,
                                              const std::string& suggestedName) override;
    std::optional<std::string> SelectFolderDialog(const std::string& prompt) override;
    SaveChangesAnswer AskSaveChanges(const std::string& message,
                                     const std::string& explanation) override;
    bool AskChoice(const std::string& message, const std::string& yes,
                   const std::string& no) override;
    int ShowNotice(const std::string& text) override;
    void CloseNotice(int notice) override;

    std::string PreferencesFolder() override;
    std::string ApplicationFolder() override;
    std::string TemporaryFolder() override;
    std::string StateFolder() override;

    void ShowURL(const std::string& url) override;
    void FetchToFile(const std::string& url, const std::string& path, FetchDone done,
                     FetchFailed failed) override;
    void Quit(int code) override;

  private:
    QNetworkAccessManager& network();

    std::unique_ptr<QNetworkAccessManager> network_;
    std::map<int, QPointer<QWidget>> notices_;
    int nextNotice_ = 0;
};

// The file dialog filter of a file type: ".xml;.xsl" named "text" gives "text (*.xml *.xsl)".
QString FileDialogFilter(const FileType& type);

}  // namespace zeph
