#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace QX {

/// Where bytes come from: fills a buffer with up to `size` bytes, as soon as there are any, and returns
/// their number; 0 at the end. What it raises passes through the reader.
///
///     readCsv([&](char* buffer, std::size_t size) { return unpack(archive, buffer, size); })
using ByteSource = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Told now and then how far a reader has come: the bytes taken from the source, and the rows, or values,
/// read. May raise an exception to stop the reader, which passes it on.
using IoProgress = std::function<void(std::uint64_t bytes, std::uint64_t done)>;

} // namespace QX
