#pragma once

#include "qx/table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace QX::Detail {

inline char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline void keepLeast(std::size_t& least, std::size_t other) {
    least = other < least ? other : least;
}

/// How many characters are to be put in, taken out, replaced or exchanged with their neighbour to turn
/// one text into another, whatever their case.
inline std::size_t editsBetween(std::string_view left, std::string_view right) {
    std::vector<std::size_t> before;
    std::vector<std::size_t> above(right.size() + 1);
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= left.size(); ++i) {
        before = above;
        above = row;
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            bool const same = lowerCase(left[i - 1]) == lowerCase(right[j - 1]);
            row[j] = above[j - 1] + (same ? 0U : 1U);
            keepLeast(row[j], above[j] + 1);
            keepLeast(row[j], row[j - 1] + 1);
            if (i > 1 && j > 1 && lowerCase(left[i - 1]) == lowerCase(right[j - 2]) &&
                lowerCase(left[i - 2]) == lowerCase(right[j - 1])) {
                keepLeast(row[j], before[j - 2] + 1);
            }
        }
    }
    return row[right.size()];
}

/// The texts of a table's index names.
inline std::vector<std::string> namesOf(Table const& table) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        Str name;
        if (table.get(i, 0).get(name, 0).ok() && !name.empty()) {
            names.emplace_back(name.data(), name.size());
        }
    }
    return names;
}

/// The message that a table has no index of a name: with the most similar name, or with the first few.
inline std::string unknownIndex(Table const& table, Str const& name) {
    constexpr std::size_t few = 8;
    constexpr std::size_t longest = 64; // longer names are not compared
    std::string message = std::string("No index '") + name.get() + "' in '" + table.name().get() + "'";
    std::vector<std::string> const names = namesOf(table);
    std::string const* nearest = nullptr;
    std::size_t fewest = name.size() < 6 ? 2 : name.size() / 3 + 1;
    for (std::string const& each : names) {
        if (each.size() <= longest && name.size() <= longest) {
            std::size_t const edits = editsBetween({name.data(), name.size()}, each);
            if (edits < fewest) {
                fewest = edits;
                nearest = &each;
            }
        }
    }
    if (nearest != nullptr) {
        return message + ", did you mean '" + *nearest + "'?";
    }
    for (std::size_t k = 0; k < names.size() && k < few; ++k) {
        message += (k == 0 ? ", which has '" : ", '") + names[k] + "'";
    }
    return names.size() > few ? message + ", ..." : message;
}

} // namespace QX::Detail
