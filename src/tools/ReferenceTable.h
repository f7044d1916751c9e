// The reference tables of the rule data: one view per use of a Help > Reference item, with the
// table's columns, headings, widths and rows as the rule data gives them.
#pragma once

#include <memory>
#include <string>

#include "tools/ToolModel.h"

namespace zeph {

class Platform;
class RuleData;

class ReferenceWindow : public ToolModel {
  public:
    // The view of the table named `table`, sized by its widths and rows; throws XmlError.
    ReferenceWindow(const RuleData& rules, const std::string& table);

    // Headings are never pressed into a sort: rows stand in document order.
    ListItem ListBox1{items_, "ListBox1", 0, {}};
};

// The action of the reference menu item `text`: its table's view, or null once a failure of the
// rule data has been shown.
std::unique_ptr<ReferenceWindow> ReferenceTableMenuItem_Action(const RuleData& rules,
                                                               Platform& platform,
                                                               const std::string& text);

}  // namespace zeph
