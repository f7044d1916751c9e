// XSLT over a character document, through libxslt.
#pragma once

#include <string>

typedef struct _xmlDoc xmlDoc;

namespace zeph {

// The text the stylesheet at `stylesheetPath` makes of `document`. Throws XmlError when the
// stylesheet cannot be read or the transformation fails. Stylesheets may read files but never
// write them or reach the network.
std::string TransformDocument(xmlDoc* document, const std::string& stylesheetPath);

}  // namespace zeph
