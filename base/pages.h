#pragma once

#include <cstddef>

namespace QX {

/// Large memory straight from the system, by whole pages where that is known how. Raises std::bad_alloc.
void* takePages(std::size_t bytes);
/// Makes such memory larger; it moves by its pages, not by its bytes.
void* growPages(void* memory, std::size_t bytes, std::size_t wanted);
void givePages(void* memory, std::size_t bytes) noexcept;

/// Has the system provide the pages of memory that is about to be written. To ask for many at once takes
/// a third of the time that it takes to have each provided when it is first touched.
void readyPages(void* memory, std::size_t bytes) noexcept;

} // namespace QX
