#pragma once

#include "reader.h"
#include "verb.h"
#include "writer.h"

#include <optional>
#include <string>
#include <vector>

namespace qxtab {

/// A verb with its arguments.
struct Step {
    Verb const* verb = nullptr;
    Arguments arguments;
    Action action;
};

/// What a command line asks for.
struct CommandLine {
    std::vector<Step> steps; ///< separated by the word "then"
    ReadOptions read;
    WriteOptions write;
    Format const* format = nullptr;
    std::optional<std::size_t> head; ///< how many rows to write
    std::string logFile;
    bool verbose = false;
    bool plain = false; ///< neither colours nor pages

    /// Every file that is to be read.
    std::vector<std::string> inputs() const;
    /// How many rows of the first file are needed; Table::npos for all.
    std::size_t rowsNeeded() const;
};

/// The options that every verb has.
std::vector<Option> const& sharedOptions();

/// Understands a command line. The file stands behind the first verb, or behind the last. Raises Misuse; nothing has been read then.
CommandLine readCommandLine(std::vector<std::string> const& words);

} // namespace qxtab
