// Fuzzes the reading of style runs: any `sr` nodes become a styled text that reaches an item,
// and that text written again reads back to the same runs.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "documents/StyledTextCodec.h"
#include "documents/XmlDocument.h"
#include "ruledata/RuleData.h"
#include "ruledata/XmlError.h"
#include "sheet/Item.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    std::unique_ptr<zeph::RuleData> document;
    try {
        document = zeph::RuleData::LoadText(
            std::string_view(reinterpret_cast<const char*>(bytes), size));
    } catch (const zeph::XmlError&) {
        return 0;
    }
    const zeph::StyledText read = zeph::ConvertXMLToStyledText(document->Query("//sr"));
    zeph::ItemRegistry registry;
    zeph::TextItem field(registry, "NotesField", zeph::ItemKind::Styled);
    zeph::StyledTextQuick(field, read);
    if (field.Text().empty()) return 0;
    // A run of no text is written without a text child, and such a node reads back as a line
    // end: by design, so the round trip below holds only for runs that have text.
    for (const zeph::StyleRun& run : field.Styled().runs)
        if (run.text.empty()) return 0;

    zeph::XmlDocument written;
    xmlNode* root = written.AppendRoot("character");
    zeph::ConvertStyledTextToXML(field.Styled(), root, "notes");
    const auto again = zeph::RuleData::LoadText(written.Serialise());
    const zeph::StyledText back = zeph::ConvertXMLToStyledText(again->Query("//notes/sr"));
    // Written runs come back whole: same count, same text.
    if (back.runs.size() != field.Styled().runs.size() || back.Text() != field.Text()) std::abort();
    return 0;
}
