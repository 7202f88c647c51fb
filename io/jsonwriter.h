#pragma once

#include "io/jsonmarks.h"
#include "io/jsonshape.h"
#include "io/jsontext.h"
#include "qx/json.h"

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace QX {

/// Writes a table and those nested in it as JSON; open tables are kept on a stack of its own.
class JsonWriter {
public:
    /// Keeps references to all.
    JsonWriter(std::ostream& out, Table const& table, JsonWriteOptions const& options)
        : text_(out, options), root_(table), options_(options) {}

    void write();

private:
    /// A table that is being written.
    struct Frame {
        Table const* table;
        Ptr<Table const> held;
        JsonForm form;
        std::size_t items;
        std::size_t index = 0; // of the next cell
        std::size_t item = 0;
        bool begun = false;
        std::unique_ptr<JsonMarks> marks = nullptr;
        std::vector<std::string> keys = {}; // of Records
    };

    Frame& top() { return frames_.back(); }
    void open(Table const& table, Ptr<Table const> const& held, bool exact);
    /// Goes on with the top, up to the next nested table, which is then the top; false at its end.
    bool step();
    bool stepObject();
    bool stepElements();
    bool stepRecords();
    bool stepExact();
    void beginExact();
    void close();

    void openBracket(char bracket);
    void closeBracket(char bracket);
    /// Writes what stands between two members or elements, or before the first.
    void separate();
    void putKey(std::string_view key);
    /// Writes a cell; true when it is a table, which is then the top.
    bool putCell(std::size_t index, std::size_t item);
    void putText(Cell const& cell, JsonMark mark);
    void putNumber(Cell const& cell);
    void putError(Cell const& cell);
    void putForm(std::string_view key, std::string_view text);
    void requireFit(bool fits, char const* what) const;
    /// True for a member that an object is written without.
    bool isLeftOut(Cell const& cell, JsonForm form) const;
    bool isOutermost() const { return begun_.size() == 1 && outerArray_; }

    JsonText text_;
    Table const& root_;
    JsonWriteOptions const& options_;
    std::vector<Frame> frames_;
    std::vector<bool> begun_; // for each open bracket whether something stands in it
    bool outerArray_ = false; // whether the first bracket is that of an array
    std::unordered_set<Table const*> deep_;
};

} // namespace QX
