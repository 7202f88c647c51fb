#pragma once

#include "qx/cell.h"

#include <string_view>

namespace QX {

/// The cell that names an index: what Cell(Str const&) makes of the name, so that the index is found by
/// it, unless that would be written otherwise.
Cell nameCell(std::string_view name);

} // namespace QX
