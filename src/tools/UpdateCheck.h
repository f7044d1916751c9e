// The update check: fetches the latest version's number from the project's web host and
// offers the download. Nothing is compared: both versions stand for the user to read.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tools/ToolModel.h"

namespace zeph {

class Platform;

// The project's web host, "name" or "name:port" (port 80 when none is given).
inline constexpr const char* kProjectWebHost = "zephalon.example.org";

class CheckUpdatesWindow : public ToolModel {
  public:
    // Opens and starts the fetch from `webHost`.
    CheckUpdatesWindow(Platform& platform, std::string webHost = kProjectWebHost);

    void Event_Open();
    void httpSocket1_DownloadComplete(const std::optional<std::string>& file);
    void httpSocket1_Error(int code);
    void GrabNewVersionText_MouseDown();

    TextItem CurrentVersionText{items_, "CurrentVersionText", ItemKind::Label};
    TextItem LatestAvailText{items_, "LatestAvailText", ItemKind::Label,
                             "The latest available online is"};
    TextItem OnlineVersionText{items_, "OnlineVersionText", ItemKind::Label, "", false};
    TextItem GrabNewVersionText{items_, "GrabNewVersionText", ItemKind::Label, "Get it!", false};
    // The activity indicator: only its visibility counts.
    TextItem ProgressWheel1{items_, "ProgressWheel1", ItemKind::Label};

  private:
    Platform& platform_;
    std::string webHost_;
    // Lets a fetch that ends after the view closed find nothing to write to.
    std::shared_ptr<CheckUpdatesWindow*> self_ = std::make_shared<CheckUpdatesWindow*>(this);
};

}  // namespace zeph
