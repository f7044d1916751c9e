#include "ruledata/DataModule.h"

#include <libxml/tree.h>

#include <filesystem>
#include <memory>

#include "platform/Files.h"
#include "platform/Platform.h"
#include "text/TextHelpers.h"

namespace zeph {
namespace {

struct DocDeleter {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};

void addElement(xmlNode* parent, const char* name,
                std::initializer_list<std::pair<const char*, std::string>> attributes) {
    xmlNode* element = xmlNewChild(parent, nullptr, BAD_CAST name, nullptr);
    for (const auto& [attribute, value] : attributes)
        xmlNewProp(element, BAD_CAST attribute, BAD_CAST value.c_str());
}

// The document's text on one line: declaration and root element, no indentation.
std::string documentText(xmlDoc* doc) {
    xmlBuffer* buffer = xmlBufferCreate();
    xmlNodeDump(buffer, doc, xmlDocGetRootElement(doc), 0, 0);
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    text += reinterpret_cast<const char*>(xmlBufferContent(buffer));
    xmlBufferFree(buffer);
    return text;
}

}  // namespace

void DataModule::SaveDataFilePreferences(Platform& platform) const {
    if (datafilepath.empty()) return;
    std::string folder = platform.PreferencesFolder();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!IsExistingFolder(folder)) return;

    std::unique_ptr<xmlDoc, DocDeleter> doc(xmlNewDoc(BAD_CAST "1.0"));
    xmlNode* root = xmlNewNode(nullptr, BAD_CAST "zephalonprefs");
    xmlDocSetRootElement(doc.get(), root);
    xmlNewTextChild(root, nullptr, BAD_CAST "pathtodatafile", BAD_CAST datafilepath.c_str());
    const std::string separator(1, kKnownDataFileSeparator);
    for (const std::string& entry : knowndatafiles)
        addElement(root, "datafiles",
                   {{"name", NthField(entry, separator, 1)},
                    {"filename", NthField(entry, separator, 2)},
                    {"path", NthField(entry, separator, 3)}});
    for (std::size_t i = 0; i < recentItemsName.size(); ++i)
        addElement(root, "recentitem",
                   {{"filename", recentItemsName[i]},
                    {"path", i < recentItemsPaths.size() ? recentItemsPaths[i] : ""}});

    WriteFileAtomically(JoinPath(folder, kPreferencesFileName), documentText(doc.get()) + "\n");
}

}  // namespace zeph
