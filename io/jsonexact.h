#pragma once

#include "qx/cell.h"

#include <cstddef>
#include <string_view>

namespace QX {

/// The keys of the objects that stand for what JSON has no place for.
namespace ExactKey {
inline constexpr std::string_view number = "$number";
inline constexpr std::string_view undefined = "$undefined";
inline constexpr std::string_view error = "$error";
inline constexpr std::string_view bytes = "$bytes";
inline constexpr std::string_view table = "$table";
inline constexpr std::string_view attributes = "$attributes";
inline constexpr std::string_view indices = "$indices";
} // namespace ExactKey

/// True for a key that such an object begins with.
bool isExactKey(std::string_view key);

/// Makes the cell that such an object stands for; false for any other object. The cells of its values
/// may be used up.
bool readExactForm(Cell const* names, Cell* values, std::size_t members, Cell& made);

} // namespace QX
