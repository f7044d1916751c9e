// The windows that hang from one character (its journal and its portrait) as the sheet sees
// them: something that can be closed, and for the journal the text it shows. A headless sheet
// has none.
#pragma once

#include "sheet/StyledText.h"

namespace zeph {

class AttachedWindow {
public:
    virtual ~AttachedWindow() = default;
    // Closes the window as its close box does, with what its closing does to the sheet.
    virtual void Close() = 0;
};

class JournalWindowHandle : public AttachedWindow {
public:
    virtual StyledText JournalText() const = 0;
};

}  // namespace zeph
