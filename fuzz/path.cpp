// A path, with any separator, on a nested table.

#include "fuzz/cellmaker.h"
#include "fuzz/require.h"

#include <new>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace QX {
namespace {

std::string string(Str const& text) {
    return {text.data(), text.size()};
}

std::string displayed(Table const& table) {
    std::ostringstream os;
    os.precision(17);
    table.display(os);
    return os.str();
}

/// Takes the path apart step by step; true when every step has a name and a number that can be read.
bool isPlain(Str const& path, char separator) {
    TblPath rest(path, separator);
    bool plain = true;
    for (std::size_t steps = 0;; ++steps) {
        require(steps <= path.size(), "a path comes to its end");
        Str name("before");
        std::size_t item = 7;
        Status const read = rest.currentPath(name, item, false);
        require(read.ok() || (name == Str("before") && item == Table::npos), "an unreadable step");
        plain = plain && read.ok() && !name.empty();
        Status const inner = rest.currentPath(name, item, true);
        Str next;
        require(rest.nextPath(next).ok(), "the rest of a path");
        if (string(inner.message(false)) == "final table") {
            require(next.empty(), "nothing follows the last step");
            return plain;
        }
        if (next.empty()) {
            return false; // a separator at the end, behind which stands a step without a name
        }
        rest = TblPath(next, separator);
    }
}

void checkText(Str const& path, char separator) {
    TblPath const whole(path, separator);
    Str const stripped = whole.stripPath();
    Str const parent = whole.parent();
    require(stripped.data()[0] == separator, "every step has a separator before it");
    require(parent.data()[0] == separator, "the first step is always written");
    Str name;
    std::size_t item = 0;
    require(!isPlain(path, separator) || whole.finalPath(name, item).ok(), "the last of good steps");
}

/// The values that a path reaches, found step by step; nothing when its first step is none.
std::optional<std::vector<Cell>> reached(Ptr<Table> const& table, Str const& path, char separator) {
    std::vector<Cell> cells{Cell(table)};
    bool begun = false;
    for (Str rest = path;;) {
        TblPath const steps(rest, separator);
        Str name;
        std::size_t item = 0;
        if (!steps.currentPath(name, item, false).ok() || name.empty()) {
            return begun ? std::optional(cells) : std::nullopt;
        }
        std::vector<Cell> values;
        for (Cell const& cell : cells) {
            Table const* const from = nestedIn(cell);
            std::size_t const items = from != nullptr ? from->items(0) : 0;
            for (std::size_t k = 1; item == Table::npos && k < items; ++k) {
                values.push_back(from->get(name, k));
            }
            if (from != nullptr && item != Table::npos) {
                values.push_back(from->get(name, item));
            }
        }
        cells = values;
        begun = true;
        (void)steps.nextPath(rest);
    }
}

void checkValues(Ptr<Table> const& table, Str const& path, char separator) {
    std::optional<std::vector<Cell>> const plain = reached(table, path, separator);
    Ptr<Table> values;
    (void)table->XPath(path, values, separator);
    require((string(values->name()) == "results") == plain.has_value(), "whether a walk begins");
    for (std::size_t k = 0; plain && k < plain->size(); ++k) {
        Cell const& value = values->get(0, k + 1);
        require(value.isA() == (*plain)[k].isA() && value.compare((*plain)[k], false), "values reached");
    }
    require(!plain || values->items(0) == plain->size() + 1, "number of values reached");
}

void checkReading(Table const& table, Str const& path, char separator) {
    Ptr<Table> values;
    require(table.XPath(path, values, separator).ok(), "XPath returns Ok");
    Cell const first = table.atXPath(path, Cell(), separator);
    bool const fromTable = values->name() == Str("Xpath");
    require(first.isA() == values->get(0, 1).isA(), "the first value is item 1 of all");
    require(fromTable || first.compare(values->get(0, 1), false) || first.isA() == Cell::ErrorCell,
            "the first value is item 1 of all");
}

void checkWriting(Table& table, Str const& path, bool create, char separator) {
    Cell const mark{Ptr<Table>(new Table("mark"))};
    try {
        table.atXPath(path, create, separator) = mark;
    } catch (Except const& e) {
        require(string(e.report().message(false)) ==
                    "No value at specified xpath '" + string(path) + "'",
                "what a path that leads nowhere raises");
        return;
    } catch (std::length_error const&) {
        return;
    } catch (std::bad_alloc const&) {
        return; // an item beyond the memory that there is
    }
    std::size_t item = 0;
    Str name;
    bool const named = TblPath(path, separator).finalPath(name, item).ok() && item != 0;
    if (create && named && isPlain(path, separator)) {
        require(table.atXPath(path, Cell(), separator).compare(mark, false), "what is written is read");
    }
}

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    QX::Bytes bytes(data, size);
    std::string const text = bytes.text(60);
    QX::Str const path(text);
    bool const usual = bytes.flip();
    char const separator = usual ? '/' : static_cast<char>(bytes.byte());
    QX::checkText(path, separator);
    QX::CellMaker make(bytes);
    QX::Ptr<QX::Table> const table = make.table(5, 4);
    if (QX::isVast(*table)) {
        return 0;
    }
    std::string const before = QX::displayed(*table);
    QX::checkReading(*table, path, separator);
    QX::checkValues(table, path, separator);
    QX::require(QX::displayed(*table) == before, "reading changes nothing");
    QX::checkWriting(*table, path, false, separator);
    QX::checkWriting(*table, path, true, separator);
    return 0;
}
