// The table of every operation of a sheet by name: the sheet's own and each rule area's.
// A sheet is made with it, and the window and the console call operations through it.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

const OperationTable& SheetOperations();

}  // namespace zeph
