#pragma once

#include "qx/table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace QX {

/// The forms that a table takes as JSON.
enum class JsonForm {
    Object,   ///< a member for each index
    Elements, ///< an array of the items of the only index
    Records,  ///< an array with an object for each row
    Value,    ///< the only value alone
    Exact     ///< an object that names the table and lists its indices
};

/// The form that a table suggests by its name and shape.
JsonForm formOf(Table const& table);

/// True when reading that form makes an equal table again, nested tables apart.
bool readsBack(Table const& table, JsonForm form);

/// True for what stands in an array of objects where one lacks a key.
bool isMissing(Cell const& cell);

/// The text of a cell that names an index.
std::string nameText(Cell const& name);

/// The keys of the objects of an array: the names of the indices, told apart where they are equal or empty.
std::vector<std::string> recordKeys(Table const& table);

} // namespace QX
