#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qxtab {

/// A byte that is no part of UTF-8 counts as a character of its own, from here on.
std::uint32_t const invalidByte = 0x110000;

/// The character at a byte of a text, which is moved behind it.
std::uint32_t nextCharacter(std::string_view text, std::size_t& at);

/// Whether a text is UTF-8.
bool isUtf8(std::string_view text);

/// How many columns a character takes on a terminal: 2 for wide ones, 0 for those that join the one
/// before, otherwise 1.
std::size_t widthOf(std::uint32_t character);

/// How many columns a text takes.
std::size_t widthOf(std::string_view text);

/// A text fit for a terminal and for logs: what could steer or confuse them is written visibly. That is
/// control characters of ASCII (\n, \t, \x1B), those of Unicode (\u009B), marks that turn the direction
/// of text (\u202E), line separators, and bytes that are no UTF-8 (\xFF).
std::string visible(std::string_view text);

/// Appends that text; `keepLines` leaves line feeds and tabs as they are.
void appendVisible(std::string& out, std::string_view text, bool keepLines = false);

} // namespace qxtab
