#pragma once

#include "qx/cell.h"

#include <type_traits>

// Some compilers sign the pointer to the virtual table with the address of the object that holds it.
#if defined(__has_feature)
#if __has_feature(ptrauth_vtable_pointer_address_discrimination)
#error                                                                                                  \
    "Cells can't be moved by their bytes where the pointer to the virtual table depends on the address"
#endif
#endif

namespace QX {

/// True for a class whose objects move to another place by their bytes alone, the old place being
/// forgotten without a destructor (trivial relocation).
template <typename T>
inline constexpr bool isBytewiseMovable = std::is_trivially_copyable_v<T>;

/// The language promises this of no class with virtual members. It is relied on that a cell is a pointer
/// to the virtual table, the same for all cells wherever they lie, and a content that holds no address
/// within itself: so it is in the C++ ABI of Itanium (g++, clang++) and in that of Microsoft's compiler.
/// Arrays hold cells of the class Cell itself and of no derived class.
template <>
inline constexpr bool isBytewiseMovable<Cell> = true;
static_assert(sizeof(Cell) == sizeof(void*) + sizeof(Detail::CellContent));
static_assert(std::is_polymorphic_v<Cell> && !std::is_polymorphic_v<Detail::CellContent>);
static_assert(alignof(Cell) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__, "storage for arrays is so aligned");

} // namespace QX
