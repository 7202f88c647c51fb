// Delimiter-separated text, read with any options, in pieces, and back from what is written of it.

#include "fuzz/bytes.h"
#include "fuzz/pieces.h"
#include "fuzz/require.h"

#include <qx/csv.h>
#include <qx/rows.h>
#include <qx/values.h>

#include <algorithm>
#include <bit>
#include <new>
#include <optional>
#include <string>

namespace QX {
namespace {

CsvReadOptions optionsOf(Bytes& bytes) {
    static CsvType const types[] = {CsvType::Guess, CsvType::Text, CsvType::Number, CsvType::Date};
    static CsvRagged const rows[] = {CsvRagged::PadShort, CsvRagged::Keep, CsvRagged::Raise};
    CsvReadOptions options;
    options.separator = ",;\t"[bytes.below(3)];
    options.quote = "\"'\0"[bytes.below(3)];
    options.type = types[bytes.below(4)];
    options.ragged = rows[bytes.below(3)];
    std::size_t const flags = bytes.byte();
    options.header = (flags & 1U) == 0;
    options.trim = (flags & 2U) != 0;
    options.dropZeros = (flags & 4U) != 0;
    options.strict = (flags & 8U) != 0;
    if ((flags & 16U) != 0) {
        options.empty = {"NA", ""};
    }
    if ((flags & 32U) != 0) {
        options.rows = 2;
    }
    if ((flags & 64U) != 0) {
        options.dateFormat = "dd.mm.yyyy";
    }
    return options;
}

/// A table by its cells; nothing for a text that can't be read.
template <typename Read>
std::optional<std::string> contents(Read const& read) {
    Ptr<Table> table;
    try {
        table = read();
    } catch (IoError const&) {
        return std::nullopt;
    } catch (std::bad_alloc const&) {
        return std::nullopt;
    }
    std::string all;
    for (std::size_t i = 0; i < table->indices(); ++i) {
        IndexCells const cells = cellsOf(*table, i);
        require(cells.count == table->items(0), "a table that was read is a rectangle");
        for (std::size_t j = 0; j < cells.count; ++j) {
            all += std::to_string(cells[j].isA()) + std::string(textIn(cells[j])) +
                   std::to_string(std::bit_cast<std::uint64_t>(numberIn(cells[j]))) + '\n';
        }
        all += "--\n";
    }
    return all;
}

void check(std::string const& text, CsvReadOptions options, std::size_t piece) {
    auto const whole = contents([&] { return readCsvText(text, options); });
    auto const pieces = contents([&] { return readCsv(piecesOf(text, piece), options); });
    require(whole == pieces, "pieces read as the whole does");
    if (!whole || options.type != CsvType::Guess || options.dropZeros) {
        return;
    }
    // As texts, every field is written as it was read: so what a guess makes of it is, too.
    CsvWriteOptions writing;
    writing.separator = options.separator;
    writing.quote = options.quote == '\0' ? '"' : options.quote;
    std::string const written = writeCsvText(*readCsvText(text, options), writing);
    options.type = CsvType::Text;
    require(writeCsvText(*readCsvText(text, options), writing) == written, "a guess changes nothing",
            written);
    CsvReadOptions again;
    again.separator = writing.separator;
    again.quote = writing.quote;
    again.type = CsvType::Text;
    if (readCsvText(text, options)->indices() != 0) {
        require(writeCsvText(*readCsvText(written, again), writing) == written,
                "what is written reads back", written);
    }
}

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    QX::Bytes bytes(data, size);
    QX::CsvReadOptions const options = QX::optionsOf(bytes);
    std::size_t const piece = 1 + bytes.below(9);
    QX::check(bytes.rest(), options, piece);
    return 0;
}
