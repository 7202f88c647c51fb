#include "utf8.h"

#include "widths.h"

#include <algorithm>
#include <iterator>

namespace qxtab {

namespace {

bool isContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] & 0xC0) == 0x80;
}

template <std::size_t N>
bool isIn(CharacterRange const (&ranges)[N], std::uint32_t character) {
    auto const* const found =
        std::upper_bound(std::begin(ranges), std::end(ranges), character,
                         [](std::uint32_t c, CharacterRange const& range) { return c < range.first; });
    return found != std::begin(ranges) && character <= std::prev(found)->last;
}

bool isPrintableAscii(char c) {
    return c >= ' ' && c < '\x7F';
}

// Marks that turn the direction of what follows, line separators, and C1 controls.
bool steers(std::uint32_t c) {
    return (c >= 0x80 && c < 0xA0) || c == 0x61C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

void appendHex(std::string& out, std::uint32_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        out += "0123456789ABCDEF"[value >> shift & 0xF];
    }
}

void appendEscape(std::string& out, std::uint32_t character) {
    if (character == '\n' || character == '\r' || character == '\t') {
        out += character == '\n' ? "\\n" : character == '\r' ? "\\r" : "\\t";
    } else if (character >= invalidByte || character < 0x80) {
        out += "\\x";
        appendHex(out, character & 0xFF, 2);
    } else {
        out += "\\u";
        appendHex(out, character, 4);
    }
}

} // namespace

std::uint32_t nextCharacter(std::string_view text, std::size_t& at) {
    auto const lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) {
        return lead;
    }
    std::size_t const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    std::uint32_t const least[] = {0, 0x80, 0x800, 0x10000};
    std::uint32_t character = lead & (0x3FU >> more);
    for (std::size_t k = 0; k < more; ++k) {
        if (lead < 0xC2 || lead > 0xF4 || !isContinuation(text, at + k)) {
            return invalidByte + lead;
        }
        character = character << 6 | (static_cast<unsigned char>(text[at + k]) & 0x3FU);
    }
    bool const surrogate = character >= 0xD800 && character < 0xE000;
    if (character < least[more] || character >= invalidByte || surrogate) {
        return invalidByte + lead;
    }
    at += more;
    return character;
}

bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            ++at;
        } else if (nextCharacter(text, at) >= invalidByte) {
            return false;
        }
    }
    return true;
}

std::size_t widthOf(std::uint32_t character) {
    if (character < 0x300) {
        return 1;
    }
    return isIn(wideCharacters, character) ? 2 : isIn(joiningCharacters, character) ? 0 : 1;
}

std::size_t widthOf(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) {
        width += widthOf(nextCharacter(text, at));
    }
    return width;
}

void appendVisible(std::string& out, std::string_view text, bool keepLines) {
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const start = at;
        while (at < text.size() && isPrintableAscii(text[at])) {
            ++at;
        }
        out.append(text, start, at - start);
        if (at == text.size()) {
            return;
        }
        std::size_t const place = at;
        std::uint32_t const character = nextCharacter(text, at);
        bool const kept = keepLines && (character == '\n' || character == '\t');
        bool const plain = character >= 0xA0 && character < invalidByte && !steers(character);
        if (kept || plain) {
            out.append(text, place, at - place);
        } else {
            appendEscape(out, character);
        }
    }
}

std::string visible(std::string_view text) {
    std::string out;
    appendVisible(out, text);
    return out;
}

} // namespace qxtab
