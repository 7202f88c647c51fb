#pragma once

#include <iosfwd>
#include <string>

namespace qxtab {

/// Writes what all verbs are.
void writeHelp(std::ostream& os);
/// Writes about a verb or another topic: expressions, types, formats, status, or the files that go with
/// the program: man, bash, zsh. Raises Misuse for other words.
void writeHelp(std::ostream& os, std::string const& topic);

/// The manual page, and the completions for two shells.
void writeManualPage(std::ostream& os);
void writeBashCompletion(std::ostream& os);
void writeZshCompletion(std::ostream& os);

/// What the help and the manual page say about things other than verbs.
struct Topic {
    char const* name;
    char const* title;
    char const* text; ///< lines; those that begin with blanks are examples
};
extern Topic const topics[];
extern std::size_t const topicCount;
/// The lines on functions of expressions.
std::string functionLines();

} // namespace qxtab
