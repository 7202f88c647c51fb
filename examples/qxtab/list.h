#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qxtab {

/// An entry of a list on the command line: a name, and what stands behind its equals sign.
struct ListEntry {
    std::string name;
    std::optional<std::string> value;
};

/// Whether the entries of a list have values.
enum class ListValues { None, May, Must };

/// Reads "a,b" or "a=x,b=y". Names and values are in double quotes when they hold a comma, an equals
/// sign or blanks at an end, with a quote inside them doubled. Raises Misuse.
std::vector<ListEntry> readList(std::string const& text, ListValues values);

/// Reads "a,b".
std::vector<std::string> readNames(std::string const& text);

/// Reads "name=value,value": a name and the values after it.
struct Condition {
    std::string name;
    std::vector<std::string> values;
};
Condition readCondition(std::string const& text);

} // namespace qxtab
