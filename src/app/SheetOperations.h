// The table of every operation of a sheet by name: the sheet's own, each rule area's and the
// saving and opening of its file.
// A sheet is made with it, and the window and the console call operations through it.
#pragma once

#include "sheet/Operations.h"

namespace zeph {

const OperationTable& SheetOperations();

}  // namespace zeph
