#include "io/jsonmarks.h"

#include "qx/rows.h"
#include "qx/text.h"
#include "qx/values.h"

#include <charconv>
#include <string>

namespace QX {

namespace {

char const marksName[] = "$json";

bool takeNumber(std::string_view& text, std::size_t& number) {
    auto const read = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return read.ec == std::errc();
}

/// Reads "index/item string" or "index/item number".
bool readMark(std::string_view text, JsonMarked& marked) {
    if (!takeNumber(text, marked.index) || !text.starts_with('/')) {
        return false;
    }
    text.remove_prefix(1);
    if (!takeNumber(text, marked.item)) {
        return false;
    }
    marked.mark = text == " string"   ? JsonMark::String
                  : text == " number" ? JsonMark::Number
                                      : JsonMark::None;
    return marked.mark != JsonMark::None;
}

} // namespace

void keepMarks(Table& table, std::vector<JsonMarked> const& marks, std::size_t from) {
    if (marks.size() == from) {
        return;
    }
    std::vector<Cell> cells = {textCell(marksName)};
    for (; from < marks.size(); ++from) {
        JsonMarked const& marked = marks[from];
        cells.push_back(textCell(std::to_string(marked.index) + "/" + std::to_string(marked.item) +
                                 (marked.mark == JsonMark::String ? " string" : " number")));
    }
    Ptr<Table> const attributes(new Table("Attributes"));
    addIndex(*attributes, std::move(cells));
    table.setAttributes(attributes);
}

JsonMarks::JsonMarks(Table const& table) {
    Cell first;
    (void)table.getAttribute(marksName, first);
    if (first.isA() != Cell::StringCell) {
        return;
    }
    Ptr<Table const> const attributes = table.getAttributes();
    std::size_t const items = attributes->items(0);
    for (std::size_t j = 1; j < items; ++j) {
        JsonMarked marked{};
        if (readMark(textIn(attributes->get(Str(marksName), j)), marked)) {
            marks_.emplace(std::pair(marked.index, marked.item), marked.mark);
        }
    }
}

} // namespace QX
