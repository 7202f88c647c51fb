// JSON, read with any options, in pieces, and back from what is written of it, plainly and exactly.

#include "fuzz/bytes.h"
#include "fuzz/pieces.h"
#include "fuzz/require.h"

#include <qx/json.h>

#include <algorithm>
#include <new>
#include <string>

namespace QX {
namespace {

/// What `read` reads; null when it can't.
template <typename Read>
Ptr<Table> attempt(Read const& read) {
    try {
        return read();
    } catch (IoError const&) {
        return nullptr;
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

void check(std::string const& text, JsonReadOptions const& options, std::size_t piece) {
    Ptr<Table> const table = attempt([&] { return readJsonText(text, options); });
    Ptr<Table> const pieces = attempt([&] { return readJson(piecesOf(text, piece), options); });
    require(table.isNull() == pieces.isNull(), "pieces can be read as the whole can");
    if (table.isNull()) {
        return;
    }
    JsonWriteOptions writing;
    writing.replaceInvalid = true;
    std::string const written = writeJsonText(*table, writing);
    require(writeJsonText(*pieces, writing) == written, "pieces read as the whole does", written);
    JsonReadOptions plain;
    if (!options.exact) {
        require(writeJsonText(*readJsonText(written, plain), writing) == written,
                "what is written reads back", written);
    }
    plain.exact = writing.exact = true;
    std::string const exact = writeJsonText(*table, writing);
    require(writeJsonText(*readJsonText(exact, plain), writing) == exact, "exactly, too", exact);
}

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static QX::JsonBig const bigs[] = {QX::JsonBig::Text, QX::JsonBig::Nearest, QX::JsonBig::Raise};
    QX::Bytes bytes(data, size);
    QX::JsonReadOptions options;
    std::size_t const flags = bytes.byte();
    options.exact = (flags & 1U) != 0;
    options.sequence = (flags & 2U) != 0;
    options.uniqueKeys = (flags & 4U) != 0;
    options.big = bigs[flags / 8U % 3U];
    std::size_t const piece = 1 + bytes.below(9);
    QX::check(bytes.rest(), options, piece);
    return 0;
}
