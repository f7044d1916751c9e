#include "ruledata/XmlError.h"

#include "text/TextHelpers.h"

namespace zeph {

std::string FormatXmlFailure(const XmlError& e) {
    return e.message() + "\n" + " At node: " + e.node() + " on: " + Str(e.line());
}

}  // namespace zeph
