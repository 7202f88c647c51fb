#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qxtab {

/// An option of the command line.
struct Option {
    char const* name;  ///< without the dashes
    char const* value; ///< what the help calls its value; null for a flag
    char const* help;
    char letter = 0;               ///< -x, if not 0
    bool required = false;         ///< whether the verb does nothing without it
    bool several = false;          ///< whether it may be given more than once
    char const* choices = nullptr; ///< the words that it may have, separated by blanks, for completion
};

/// What may stand behind a verb.
struct Syntax {
    std::vector<Option> options;
    std::vector<char const*> words; ///< what the help calls the arguments in front of the files
    bool wordsLast = false;         ///< they stand behind the files instead
    std::size_t fewestOthers = 0;   ///< files beside the table that the verb works on
    std::size_t mostOthers = 0;     ///< may be anyNumber
    char const* unless = nullptr;   ///< an option in whose presence there are no words

    static constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);
};

/// The arguments of a verb, taken apart.
class Arguments {
public:
    /// Takes the words behind a verb apart; `shared` are options that each verb has, which are put into
    /// `global`. Of the first verb in a command, the files begin with the table to work on. Raises Misuse.
    Arguments(Syntax const& syntax, std::vector<Option> const& shared,
              std::vector<std::string> const& words, bool first, Arguments* global);
    Arguments() = default;

    /// Whether an option was given.
    bool has(std::string const& option) const { return given_.contains(option); }
    /// The value of an option, or `fallback`.
    std::string text(std::string const& option, std::string const& fallback = "") const;
    /// All values of an option that may be given several times.
    std::vector<std::string> texts(std::string const& option) const;
    /// The value as a number of rows; raises Misuse.
    std::optional<std::size_t> count(std::string const& option) const;
    /// The value as a list of names; raises Misuse.
    std::vector<std::string> names(std::string const& option) const;
    /// One of the arguments in front of the files.
    std::string const& word(std::size_t k) const { return words_[k]; }
    bool hasWords() const { return !words_.empty(); }
    /// The files: of the first verb that to work on, then the others.
    std::vector<std::string> const& files() const { return files_; }
    /// Whether the file to work on is standard input because none is named.
    bool lacksFile() const { return lacksFile_; }
    /// Of a later verb, one file more than it takes: that for the first verb to work on, or nothing.
    std::string const& trailingFile() const { return trailingFile_; }
    /// Sets the file to work on.
    void setFile(std::string const& file) { files_.front() = file; }

private:
    void takeOption(std::vector<Option const*> const& options, std::vector<std::string> const& words,
                    std::size_t& k);
    void shareOut(Syntax const& syntax, bool first);

    std::map<std::string, std::vector<std::string>> given_;
    std::vector<std::string> words_;
    std::vector<std::string> files_;
    std::string trailingFile_;
    bool lacksFile_ = false;
};

} // namespace qxtab
