#pragma once

#include "io/jsonmarks.h"
#include "io/jsonrecords.h"
#include "qx/json.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace QX {

/// Makes tables of what a parser meets, member by member and element by element.
///
/// All open objects and arrays keep their members on two common stacks, so that deep nesting costs little.
/// Members that return a bool return false when the input must not be read on; fault() then says why.
class JsonBuilder {
public:
    /// Keeps references to both.
    JsonBuilder(JsonReadOptions const& options, JsonReport& report);

    void null() { scalar(Cell()); }
    void boolean(bool value);
    bool number(std::string_view literal);
    void string(std::string_view text);
    bool key(std::string_view key);
    void beginObject();
    void endObject();
    void beginArray();
    void endArray();

    std::string const& fault() const { return fault_; }
    /// The table of the whole, at the end.
    Ptr<Table> take();

private:
    enum class Kind {
        Root,
        Object,
        Array,
        Records, ///< an array of nothing but objects so far, held as columns
        Row      ///< an object that goes into those columns
    };

    /// An object or array that is open.
    struct Frame {
        Kind kind;
        std::size_t names; // where its own begin on the stacks
        std::size_t values;
        std::size_t marks;
        std::unique_ptr<JsonRecords> records;                  // of Records
        std::unique_ptr<std::unordered_set<std::string>> keys; // where they must differ
    };

    void scalar(Cell&& cell, JsonMark mark = JsonMark::None) {
        ++report_.values;
        put(std::move(cell), mark);
    }
    void put(Cell&& cell, JsonMark mark);
    void open(Kind kind);
    /// Makes the top, an array held as columns, one held as elements.
    void unfold();
    /// Makes the top, a row of columns, an object of its own.
    void leaveRecords();
    /// False when the open object has the key already.
    bool isNewKey(std::string_view key);
    /// A table of the members on top of the stacks.
    Ptr<Table> makeObject(std::size_t names, std::size_t values, std::size_t marks);
    /// Puts an object's members on top of the stacks.
    void openAgain(Table& object);
    Ptr<Table> makeArray(char const* name, Frame const& frame);
    void close(Frame const& frame);
    JsonRecords& records() { return *frames_[frames_.size() - 2].records; }

    JsonReadOptions const& options_;
    JsonReport& report_;
    std::vector<Frame> frames_;
    std::vector<Cell> names_;
    std::vector<Cell> values_;
    std::vector<Cell> elements_; // of the array that is being made
    std::vector<JsonMarked> marks_;
    std::string fault_;
};

} // namespace QX
