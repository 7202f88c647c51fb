#include "io/jsonexact.h"
#include "io/jsonnumber.h"
#include "io/jsonwriter.h"
#include "io/numberform.h"
#include "qx/values.h"

#include <cmath>

namespace QX {

namespace {

std::string hexadecimal(std::string_view bytes) {
    static char const digits[] = "0123456789abcdef";
    std::string text;
    for (char const c : bytes) {
        auto const byte = static_cast<unsigned char>(c);
        text += {digits[byte >> 4U], digits[byte & 0xFU]};
    }
    return text;
}

} // namespace

void JsonWriter::openBracket(char bracket) {
    begun_.push_back(false);
    if (!isOutermost() || options_.layout != JsonLayout::Lines) {
        text_.put(bracket);
    }
}

void JsonWriter::closeBracket(char bracket) {
    bool const begun = begun_.back();
    bool const lines = isOutermost() && options_.layout == JsonLayout::Lines;
    bool const rows = isOutermost() && options_.layout == JsonLayout::Rows;
    if (begun && (lines || rows)) {
        text_.put('\n');
    } else if (begun) {
        text_.putLine(begun_.size() - 1);
    }
    begun_.pop_back();
    if (!lines) {
        text_.put(bracket);
    }
}

void JsonWriter::separate() {
    bool const begun = begun_.back();
    begun_.back() = true;
    if (isOutermost() && options_.layout == JsonLayout::Lines) {
        text_.put(begun ? "\n" : "");
    } else if (isOutermost() && options_.layout == JsonLayout::Rows) {
        text_.put(begun ? ",\n  " : "\n  ");
    } else {
        text_.put(begun ? "," : "");
        text_.putLine(begun_.size());
    }
}

void JsonWriter::putKey(std::string_view key) {
    text_.putString(key);
    text_.put(options_.layout == JsonLayout::Indented ? ": " : ":");
}

bool JsonWriter::putCell(std::size_t index, std::size_t item) {
    Frame const& frame = top();
    Cell const& cell = frame.table->get(index, item);
    switch (cell.isA()) {
    case Cell::EmptyCell:
        text_.put("null");
        return false;
    case Cell::StringCell:
        putText(cell, frame.marks ? frame.marks->of(index, item) : JsonMark::None);
        return false;
    case Cell::NumericCell:
        putNumber(cell);
        return false;
    case Cell::ErrorCell:
        putError(cell);
        return false;
    case Cell::TableCell:
        break;
    }
    Ptr<Table const> table;
    (void)cell.get(table);
    // The first item of an index may not be an object, lest all items are read as columns.
    open(*table, table, frame.form == JsonForm::Exact && item == 0);
    return true;
}

void JsonWriter::putText(Cell const& cell, JsonMark mark) {
    std::string_view const text = textIn(cell);
    bool const truth = mark != JsonMark::String && (text == trueText || text == falseText);
    if (truth) {
        text_.put(text == trueText ? "true" : "false");
    } else if (mark == JsonMark::Number && isJsonNumber(text)) {
        text_.put(text);
    } else if (options_.exact && !isUtf8(text)) {
        putForm(ExactKey::bytes, hexadecimal(text));
    } else {
        text_.putString(text);
    }
}

void JsonWriter::putNumber(Cell const& cell) {
    AnalyticDouble number;
    (void)cell.get(number);
    if (number.isValid() && std::isfinite(number.get())) {
        text_.putNumber(number.get());
        return;
    }
    if (!options_.exact) {
        requireFit(!number.isValid(), "a number that is not finite");
        text_.put("null");
        return;
    }
    std::string written;
    appendNumber(written, number.get());
    if (number.isValid()) {
        putForm(ExactKey::number, written);
        return;
    }
    openBracket('{');
    separate();
    putKey(ExactKey::undefined);
    if (std::isfinite(number.get())) {
        text_.put(written);
    } else {
        text_.putString(written);
    }
    closeBracket('}');
}

void JsonWriter::putError(Cell const& cell) {
    if (options_.exact) {
        Status status;
        (void)cell.get(status);
        Str const message = status.message(false);
        putForm(ExactKey::error, {message.data(), message.size()});
        return;
    }
    requireFit(false, "an error");
    Str marked;
    (void)cell.get(marked, 0);
    text_.putString({marked.data(), marked.size()});
}

void JsonWriter::putForm(std::string_view key, std::string_view text) {
    openBracket('{');
    separate();
    putKey(key);
    text_.putString(text);
    closeBracket('}');
}

void JsonWriter::requireFit(bool fits, char const* what) const {
    if (options_.strict && !fits) {
        throw IoError(options_.name, 0, 0, std::string("JSON has no place for ") + what);
    }
}

bool JsonWriter::isLeftOut(Cell const& cell, JsonForm form) const {
    if (cell.isA() != Cell::NumericCell || !cell.empty()) {
        return false;
    }
    return !options_.exact || (form == JsonForm::Records && isMissing(cell));
}

} // namespace QX
