// The About view: the version, and the game books the loaded rule data covers.
#pragma once

#include <string>

#include "tools/ToolModel.h"

namespace zeph {

class RuleData;

class AboutWindow : public ToolModel {
  public:
    // Opens with both texts filled; `books` is the short book codes of the rule data.
    AboutWindow(const RuleData& rules, const std::string& books);

    void Event_Open(const RuleData& rules, const std::string& books);

    TextItem VersionText{items_, "VersionText", ItemKind::Label};
    TextItem BooksinUseText{items_, "BooksinUseText", ItemKind::Label};
    TextItem StaticText1{items_, "StaticText1", ItemKind::Label,
                         "Zephalon, a character generator for the Unisystem rules. "
                         "Written by the Zephalon developers, 2024."};
};

}  // namespace zeph
