#include "io/jsonwriter.h"

#include "io/filewriter.h"
#include "io/jsonexact.h"
#include "qx/rows.h"

#include <sstream>
#include <utility>

namespace QX {

namespace {

constexpr std::size_t deepNesting = 500; // beyond it a table that contains itself is looked for

bool isArray(JsonForm form) {
    return form == JsonForm::Elements || form == JsonForm::Records;
}

} // namespace

void JsonWriter::write() {
    open(root_, nullptr, false);
    outerArray_ = isArray(top().form);
    while (!frames_.empty()) {
        if (!step()) {
            close();
        }
        text_.flushSome();
    }
    text_.put(outerArray_ && options_.layout == JsonLayout::Lines ? "" : "\n");
    text_.flush();
}

void JsonWriter::open(Table const& table, Ptr<Table const> const& held, bool exact) {
    if (frames_.size() > deepNesting && !deep_.insert(&table).second) {
        throw IoError(options_.name, 0, 0, "the table contains itself");
    }
    JsonForm form = exact ? JsonForm::Exact : formOf(table);
    if (options_.exact && !exact && !readsBack(table, form)) {
        form = JsonForm::Exact;
    }
    Frame frame{&table, held, form, table.items(0)};
    auto marks = std::make_unique<JsonMarks>(table);
    if (!marks->empty()) {
        frame.marks = std::move(marks);
    }
    if (form == JsonForm::Records) {
        frame.keys = recordKeys(table);
    }
    frames_.push_back(std::move(frame));
}

void JsonWriter::close() {
    if (frames_.size() - 1 > deepNesting) {
        deep_.erase(top().table);
    }
    frames_.pop_back();
}

bool JsonWriter::step() {
    switch (top().form) {
    case JsonForm::Object:
        return stepObject();
    case JsonForm::Elements:
        return stepElements();
    case JsonForm::Records:
        return stepRecords();
    case JsonForm::Exact:
        return stepExact();
    case JsonForm::Value:
        break;
    }
    return !std::exchange(top().begun, true) && putCell(0, 1);
}

bool JsonWriter::stepObject() {
    if (!std::exchange(top().begun, true)) {
        openBracket('{');
    }
    while (top().index < top().table->indices()) {
        std::size_t const i = top().index++;
        if (isLeftOut(top().table->get(i, 1), JsonForm::Object)) {
            continue;
        }
        separate();
        putKey(nameText(top().table->get(i, 0)));
        if (putCell(i, 1)) {
            return true;
        }
    }
    closeBracket('}');
    return false;
}

bool JsonWriter::stepElements() {
    if (!std::exchange(top().begun, true)) {
        openBracket('[');
        top().item = 1;
    }
    while (top().item < top().items) {
        std::size_t const j = top().item++;
        separate();
        if (putCell(0, j)) {
            return true;
        }
    }
    closeBracket(']');
    return false;
}

bool JsonWriter::stepRecords() {
    std::size_t const width = top().table->indices();
    if (!std::exchange(top().begun, true)) {
        openBracket('[');
        top().item = 1;
    }
    for (; top().item < top().items; ++top().item) {
        if (top().index == 0) {
            separate();
            openBracket('{');
        }
        while (top().index < width) {
            std::size_t const i = top().index++;
            Cell const& cell = top().table->get(i, top().item);
            if (isLeftOut(cell, JsonForm::Records)) {
                continue;
            }
            separate();
            putKey(top().keys[i]);
            if (putCell(i, top().item)) {
                return true;
            }
        }
        closeBracket('}');
        top().index = 0;
        text_.flushSome();
    }
    closeBracket(']');
    return false;
}

bool JsonWriter::stepExact() {
    if (!std::exchange(top().begun, true)) {
        beginExact();
        Ptr<Table const> const attributes = top().table->getAttributes();
        if (attributes->indices() != 0 || attributes->name().size() != 0) {
            open(*attributes, attributes, true);
            return true;
        }
        text_.put("null");
    }
    if (top().index == 0 && top().item == 0) {
        separate();
        putKey(ExactKey::indices);
        openBracket('[');
    }
    for (; top().index < top().table->indices(); ++top().index) {
        if (top().item == 0) {
            separate();
            openBracket('[');
        }
        std::size_t const length = cellsOf(*top().table, top().index).count;
        while (top().item < length) {
            separate();
            if (putCell(top().index, top().item++)) {
                return true;
            }
        }
        closeBracket(']');
        top().item = 0;
    }
    closeBracket(']');
    closeBracket('}');
    return false;
}

void JsonWriter::beginExact() {
    openBracket('{');
    separate();
    putKey(ExactKey::table);
    text_.putString({top().table->name().data(), top().table->name().size()});
    separate();
    putKey(ExactKey::attributes);
}

void writeJson(std::ostream& out, Table const& table, JsonWriteOptions const& options) {
    JsonWriter(out, table, options).write();
}

std::string writeJsonText(Table const& table, JsonWriteOptions const& options) {
    std::ostringstream out;
    writeJson(out, table, options);
    return out.str();
}

void writeJsonFile(std::string const& path, Table const& table, JsonWriteOptions const& options) {
    JsonWriteOptions named = options;
    named.name = options.name.empty() ? path : options.name;
    writeFile(path, [&](std::ostream& out) { writeJson(out, table, named); });
}

} // namespace QX
