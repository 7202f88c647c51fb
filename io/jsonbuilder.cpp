#include "io/jsonbuilder.h"

#include "io/jsonexact.h"
#include "io/jsonnames.h"
#include "io/jsonnumber.h"
#include "io/message.h"
#include "io/namecell.h"
#include "qx/rows.h"
#include "qx/text.h"

#include <algorithm>
#include <utility>

namespace QX {

JsonBuilder::JsonBuilder(JsonReadOptions const& options, JsonReport& report)
    : options_(options), report_(report) {
    frames_.push_back({Kind::Root, 0, 0, 0, nullptr, nullptr});
}

void JsonBuilder::boolean(bool value) {
    scalar(textCell(value ? trueText : falseText));
}

bool JsonBuilder::number(std::string_view literal) {
    double value = 0;
    JsonNumberFit const fit = readJsonNumber(literal, value);
    if (fit == JsonNumberFit::Held) {
        scalar(Cell(value));
        return true;
    }
    if (fit == JsonNumberFit::Beyond) {
        fault_ = beyondRange;
        return false;
    }
    ++report_.bigNumbers;
    switch (options_.big) {
    case JsonBig::Text:
        scalar(textCell(literal), JsonMark::Number);
        break;
    case JsonBig::Nearest:
        scalar(Cell(value));
        break;
    case JsonBig::Raise:
        fault_ = "the number " + quotedForMessage(literal) + " has more digits than can be held";
        return false;
    }
    return true;
}

void JsonBuilder::string(std::string_view text) {
    bool const truth = text == trueText || text == falseText;
    scalar(textCell(text), truth ? JsonMark::String : JsonMark::None);
}

bool JsonBuilder::key(std::string_view key) {
    if (options_.uniqueKeys && !isNewKey(key)) {
        fault_ = "the key " + quotedForMessage(key) + " is twice in one object";
        return false;
    }
    if (frames_.back().kind == Kind::Row) {
        bool const special = options_.exact && isExactKey(key);
        if (!special && records().key(key)) {
            return true;
        }
        leaveRecords();
    }
    names_.push_back(nameCell(key));
    return true;
}

void JsonBuilder::put(Cell&& cell, JsonMark mark) {
    if (frames_.back().kind == Kind::Records) {
        unfold();
    }
    Frame const& top = frames_.back();
    if (top.kind == Kind::Row) {
        records().place(std::move(cell), mark);
        return;
    }
    values_.push_back(std::move(cell));
    if (mark != JsonMark::None) {
        std::size_t const count = values_.size() - top.values;
        bool const object = top.kind == Kind::Object;
        marks_.push_back({object ? count - 1 : 0, object ? 1 : count, mark});
    }
}

void JsonBuilder::open(Kind kind) {
    frames_.push_back({kind, names_.size(), values_.size(), marks_.size(), nullptr, nullptr});
    report_.depth = std::max(report_.depth, frames_.size() - 1);
}

void JsonBuilder::beginObject() {
    Frame& top = frames_.back();
    if (top.kind == Kind::Array && top.values == values_.size()) {
        top.kind = Kind::Records;
        top.records = std::make_unique<JsonRecords>();
    } else if (top.kind == Kind::Records && top.records->isSparse()) {
        unfold();
    }
    if (frames_.back().kind == Kind::Records) {
        frames_.back().records->beginRow();
        open(Kind::Row);
    } else {
        open(Kind::Object);
    }
}

void JsonBuilder::endObject() {
    Frame const frame = std::move(frames_.back());
    if (frame.kind == Kind::Row) {
        frames_.pop_back();
        return;
    }
    std::size_t const members = names_.size() - frame.names;
    Cell made;
    if (!options_.exact ||
        !readExactForm(names_.data() + frame.names, values_.data() + frame.values, members, made)) {
        made = Cell(makeObject(frame.names, frame.values, frame.marks));
    }
    close(frame);
    put(std::move(made), JsonMark::None);
}

void JsonBuilder::beginArray() {
    open(Kind::Array);
}

void JsonBuilder::endArray() {
    if (frames_.back().kind == Kind::Records && frames_.back().records->isSparse()) {
        unfold();
    }
    Ptr<Table> made;
    if (frames_.back().kind == Kind::Records) {
        made = frames_.back().records->takeTable();
        if (!made) {
            unfold();
        }
    }
    if (!made) {
        made = makeArray(JsonName::array, frames_.back());
    }
    Frame const frame = std::move(frames_.back());
    close(frame);
    put(Cell(made), JsonMark::None);
}

void JsonBuilder::close(Frame const& frame) {
    names_.resize(frame.names);
    values_.resize(frame.values);
    marks_.resize(frame.marks);
    frames_.pop_back();
}

void JsonBuilder::unfold() {
    Frame& top = frames_.back();
    std::unique_ptr<JsonRecords> const records = std::move(top.records);
    top.kind = Kind::Array;
    for (std::size_t row = 1; row <= records->rows(); ++row) {
        std::size_t const names = names_.size();
        std::size_t const values = values_.size();
        std::size_t const marks = marks_.size();
        records->takeRow(row, names_, values_, marks_);
        Cell const object(makeObject(names, values, marks));
        names_.resize(names);
        values_.resize(values);
        marks_.resize(marks);
        values_.push_back(object);
    }
}

void JsonBuilder::leaveRecords() {
    auto keys = std::move(frames_.back().keys);
    frames_.pop_back();
    unfold();
    Ptr<Table> unfinished; // its last element is the object that is still open
    (void)values_.back().get(unfinished);
    values_.pop_back();
    open(Kind::Object);
    frames_.back().keys = std::move(keys);
    openAgain(*unfinished);
}

void JsonBuilder::openAgain(Table& object) {
    JsonMarks const kept(object);
    for (std::size_t i = 0; i < object.indices(); ++i) {
        names_.push_back(std::move(object.at(i, 0)));
        values_.push_back(std::move(object.at(i, 1)));
        if (kept.of(i, 1) != JsonMark::None) {
            marks_.push_back({i, 1, kept.of(i, 1)});
        }
    }
}

bool JsonBuilder::isNewKey(std::string_view key) {
    auto& keys = frames_.back().keys;
    if (!keys) {
        keys = std::make_unique<std::unordered_set<std::string>>();
    }
    return keys->emplace(key).second;
}

Ptr<Table> JsonBuilder::makeObject(std::size_t names, std::size_t values, std::size_t marks) {
    Ptr<Table> const table(new Table(JsonName::object));
    for (std::size_t i = 0; i < names_.size() - names; ++i) {
        Cell* const place = &table->at(i, 1);
        *place = std::move(values_[values + i]);
        table->at(i, 0) = std::move(names_[names + i]);
    }
    keepMarks(*table, marks_, marks);
    return table;
}

Ptr<Table> JsonBuilder::makeArray(char const* name, Frame const& frame) {
    Ptr<Table> const table(new Table(name));
    auto const first = values_.begin() + static_cast<std::ptrdiff_t>(frame.values);
    if (first != values_.end()) {
        elements_.push_back(textCell(JsonName::elements));
        elements_.insert(elements_.end(), std::move_iterator(first), std::move_iterator(values_.end()));
        addIndex(*table, std::move(elements_));
        elements_.clear();
    }
    keepMarks(*table, marks_, frame.marks);
    return table;
}

Ptr<Table> JsonBuilder::take() {
    Ptr<Table> table;
    if (values_.back().get(table).ok()) {
        return table;
    }
    return makeArray(JsonName::root, frames_.front());
}

} // namespace QX
