#include "tools/UpdateCheck.h"

#include "Version.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "text/TextHelpers.h"

namespace zeph {

CheckUpdatesWindow::CheckUpdatesWindow(Platform& platform, std::string webHost)
    : ToolModel("Check for New Updates", 360, 160),
      platform_(platform),
      webHost_(std::move(webHost)) {
    AddOperation("GrabNewVersionText_MouseDown",
                 [this](const std::string&) { GrabNewVersionText_MouseDown(); });
    AddOperation("ClosePushButton_Action", [this](const std::string&) { Close(); });
    Event_Open();
}

void CheckUpdatesWindow::Event_Open() {
    CurrentVersionText.SetText(kZephalonVersion);
    ProgressWheel1.SetVisible(true);
    std::weak_ptr<CheckUpdatesWindow*> window = self_;
    platform_.FetchToFile(
        "http://" + webHost_ + "/Zephalon/zfversion.txt",
        JoinPath(platform_.TemporaryFolder(), "zephalonversion.txt"),
        [window](const std::optional<std::string>& file) {
            if (auto alive = window.lock()) (*alive)->httpSocket1_DownloadComplete(file);
        },
        [window](int code) {
            if (auto alive = window.lock()) (*alive)->httpSocket1_Error(code);
        });
}

void CheckUpdatesWindow::httpSocket1_DownloadComplete(const std::optional<std::string>& file) {
    const std::optional<std::string> text = file ? ReadWholeFile(*file) : std::nullopt;
    if (text) {
        OnlineVersionText.SetText(text->substr(0, text->find_first_of("\r\n")));
        OnlineVersionText.SetVisible(true);
        GrabNewVersionText.SetVisible(true);
    } else {
        platform_.MsgBox("Unable to get the latest version number.");
    }
    ProgressWheel1.SetVisible(false);
}

void CheckUpdatesWindow::httpSocket1_Error(int code) {
    // The wheel keeps turning and no version shows until the view closes.
    platform_.MsgBox("Error: \n\n" + Str(code));
}

void CheckUpdatesWindow::GrabNewVersionText_MouseDown() {
    platform_.ShowURL("http://" + webHost_ + "/Zephalon/Zephalon_Mac.zip");
}

}  // namespace zeph
