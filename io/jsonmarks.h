#pragma once

#include "qx/table.h"

#include <cstddef>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace QX {

/// What a text cell stands for when its bytes alone don't tell.
enum class JsonMark {
    None,
    String, ///< a string although it reads TRUE or FALSE
    Number  ///< a number that no double holds
};

/// A mark and the cell that it is for.
struct JsonMarked {
    std::size_t index;
    std::size_t item;
    JsonMark mark;
};

/// The texts of the truth values.
inline constexpr std::string_view trueText = "TRUE";
inline constexpr std::string_view falseText = "FALSE";

/// Keeps the marks from number `from` on in the table's attributes; nothing without marks.
void keepMarks(Table& table, std::vector<JsonMarked> const& marks, std::size_t from);

/// The marks of a table that has some.
class JsonMarks {
public:
    /// Reads what keepMarks() has kept, leaving out what it has not.
    explicit JsonMarks(Table const& table);

    bool empty() const { return marks_.empty(); }
    JsonMark of(std::size_t index, std::size_t item) const {
        if (marks_.empty()) {
            return JsonMark::None;
        }
        auto const found = marks_.find({index, item});
        return found == marks_.end() ? JsonMark::None : found->second;
    }

private:
    std::map<std::pair<std::size_t, std::size_t>, JsonMark> marks_;
};

} // namespace QX
