#pragma once

#include <string_view>

namespace QX {

/// How well a double holds a number.
enum class JsonNumberFit {
    Held,   ///< the nearest one stands for it
    Digits, ///< a whole number would lose digits
    Beyond  ///< none is near
};

/// What is said of a number that is Beyond.
inline constexpr char beyondRange[] = "the number is beyond the range of a double";

/// Reads a number as JSON writes it, into the nearest double.
JsonNumberFit readJsonNumber(std::string_view literal, double& number);

/// True for a text that is a number as JSON writes it.
bool isJsonNumber(std::string_view text);

} // namespace QX
