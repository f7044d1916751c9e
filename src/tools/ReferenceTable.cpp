#include "tools/ReferenceTable.h"

#include <numeric>
#include <vector>

#include "platform/Platform.h"
#include "ruledata/RuleData.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

constexpr int kDefaultWidth = 90;
constexpr int kRowHeight = 22;
constexpr int kScrollBarAllowance = 20;

}  // namespace

ReferenceWindow::ReferenceWindow(const RuleData& rules, const std::string& table)
    : ToolModel(table, 0, 0) {
    AddOperation("_FileClose_Action", [this](const std::string&) { Close(); });
    const std::string path = "zephalondata/tabledata/table[@name=\"" + table + "\"]";
    std::vector<int> widths;

    XmlNodeList headings = rules.Query(path + "/columnheading");
    ListBox1.SetColumnCount(headings.Count());
    for (int i = 0; i < headings.Count(); ++i) {
        XmlNode heading = headings.Item(i);
        // A heading without text takes no width: the widths after it move one place left.
        const std::optional<std::string> text = heading.FirstChildValue();
        if (!text) continue;
        ListBox1.SetHeading(i, *text);
        if (heading.Attribute("align") == "center") ListBox1.SetColumnCentred(i, true);
        const std::string width = heading.Attribute("width");
        widths.push_back(width.empty() ? kDefaultWidth : static_cast<int>(Whole(width)));
    }

    const int rowcount = rules.Query(path + "/row").Count();
    width_ = std::accumulate(widths.begin(), widths.end(), 0) + kScrollBarAllowance;
    height_ = kRowHeight * rowcount;  // no allowance for the heading row
    std::vector<std::string> widthTexts;
    for (int width : widths) widthTexts.push_back(Str(width));
    ListBox1.SetColumnWidths(JoinFields(widthTexts, ","));

    for (int n = 1; n <= rowcount; ++n) {
        XmlNodeList cells = rules.Query(path + "/row[" + Str(n) + "]/column");
        if (cells.Empty()) continue;  // counted in the height all the same
        ListBox1.AddRow(cells.Item(0).FirstChildValue().value_or(" "));
        const int row = ListBox1.LastIndex();
        // Cells beyond the headings have no column to stand in.
        for (int j = 1; j < cells.Count() && j < ListBox1.ColumnCount(); ++j)
            if (auto value = cells.Item(j).FirstChildValue()) ListBox1.SetCell(row, j, *value);
    }
}

std::unique_ptr<ReferenceWindow> ReferenceTableMenuItem_Action(const RuleData& rules,
                                                               Platform& platform,
                                                               const std::string& text) {
    try {
        return std::make_unique<ReferenceWindow>(rules, text);
    } catch (const XmlError& failure) {
        platform.MsgBox(FormatXmlFailure(failure));
        return nullptr;
    }
}

}  // namespace zeph
