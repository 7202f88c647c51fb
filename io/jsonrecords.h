#pragma once

#include "io/jsonmarks.h"
#include "qx/table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace QX {

/// An array of objects as columns, one for each key, while it is read.
class JsonRecords {
public:
    /// Begins the next object.
    void beginRow();
    /// Says which member comes next; false when the object has that key already.
    bool key(std::string_view key);
    /// Puts the value of that member.
    void place(Cell&& value, JsonMark mark);
    /// True when most of the rectangle is empty, so that it could take more memory than the text.
    bool isSparse() const { return columns_.size() * rows_ > 8 * members_ + 16; }

    std::size_t rows() const { return rows_; }
    /// The members of row `row`, counted from 1, in the order of the columns; leaves the row without them.
    void takeRow(std::size_t row, std::vector<Cell>& names, std::vector<Cell>& values,
                 std::vector<JsonMarked>& marks);
    /// The table of all rows; null when there are no keys.
    Ptr<Table> takeTable();

private:
    struct Column {
        std::string key;
        std::vector<Cell> cells; // the name first
    };

    std::size_t find(std::string_view key);

    std::vector<Column> columns_;
    std::unordered_map<std::string, std::size_t> places_; // once there are many columns
    std::vector<JsonMarked> marks_;                       // by rows
    std::size_t nextMark_ = 0;                            // of takeRow()
    std::size_t rows_ = 0;
    std::size_t members_ = 0;
    std::size_t current_ = 0; // the column of the next value
    std::size_t expected_ = 0;
};

} // namespace QX
