#include "tools/About.h"

#include "Version.h"
#include "ruledata/RuleData.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

// This view's own table of book names; the character file's book check has one of its own,
// spelt differently, and the two stay apart.
struct BookName {
    const char* code;
    const char* appended;
};
constexpr BookName kBooks[] = {{"Arm", "Armageddeon, "},
                               {"AC", "Abomination Codex, "},
                               {"AFMBE", "All Flesh Must Be Eaten, "},
                               {"MC", "Mystery Codex, "},
                               {"Hod", "Book of Hod, "},
                               {"WC", "Witchcraft, "}};

std::string bookName(const std::string& field) {
    for (const BookName& book : kBooks)
        if (EqualsNoCase(field, book.code)) return book.appended;
    return field + ", ";
}

}  // namespace

AboutWindow::AboutWindow(const RuleData& rules, const std::string& books)
    : ToolModel("About Zephalon", 440, 300) {
    AddOperation("Event_MouseDown", [this](const std::string&) { Close(); });
    Event_Open(rules, books);
}

void AboutWindow::Event_Open(const RuleData& rules, const std::string& codes) {
    std::string books;
    XmlNodeList root = rules.Query("//zephalondata");
    if (!root.Empty() && !root.Item(0).Attribute("fullref").empty()) {
        books = root.Item(0).Attribute("fullref");
    } else {
        // An empty list is one empty field, which leaves "." in the end.
        std::vector<std::string> fields = SplitFields(codes, ' ');
        if (fields.empty()) fields.emplace_back();
        for (const std::string& field : fields) books += bookName(field);
        books = books.substr(0, books.size() - 2) + ".";
    }
    VersionText.SetText(kZephalonVersion);
    BooksinUseText.SetText("Books Currently in Use: " + books);
}

}  // namespace zeph
