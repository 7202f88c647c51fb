#pragma once

#include "io/jsoninput.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

// Lengths of strings beyond 4 GiB, too.
#define RAPIDJSON_NO_SIZETYPEDEFINE
namespace rapidjson {
typedef std::size_t SizeType; // NOLINT(modernize-use-using): as the library's documentation writes it
}
#include <rapidjson/error/error.h>
#include <rapidjson/reader.h>

namespace QX {

/// Raised for the escape of a surrogate that stands alone, behind which the input is.
struct LoneSurrogate {};

/// UTF-8 as the parser reads it from a JsonInput: a character is taken with all plain ones behind it.
struct JsonUtf8 : rapidjson::UTF8<char> {
    /// Writes the character of an escape.
    template <typename Output>
    static void Encode(Output& output, unsigned character) {
        if (character >= 0xD800U && character <= 0xDFFFU) {
            throw LoneSurrogate();
        }
        UTF8<char>::Encode(output, character);
    }
    /// Copies at least one character; false when the bytes are none.
    template <typename Output>
    static bool Validate(JsonInput& input, Output& output) {
        if (static_cast<unsigned char>(input.Peek()) >= 0x80U && !UTF8<char>::Validate(input, output)) {
            return false;
        }
        std::string_view const plain = input.takePlain();
        if (!plain.empty()) {
            std::memcpy(output.Push(plain.size()), plain.data(), plain.size());
        }
        return true;
    }
};

using JsonParser = rapidjson::GenericReader<JsonUtf8, JsonUtf8>;

inline constexpr char loneSurrogate[] = "a surrogate stands alone";

/// What a parser's error means, told at the place where the input stands.
std::string parseFault(rapidjson::ParseErrorCode code, JsonInput& input);

} // namespace QX
