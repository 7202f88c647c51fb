#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace qxtab {

/// What systems do differently: on each of them file names are UTF-8 texts in here, and the standard
/// streams pass every byte on as it is.

#ifdef _WIN32
using Argument = wchar_t; ///< what main's argument texts are made of
#else
using Argument = char;
#endif

/// Makes the standard streams pass bytes on.
void prepareStreams();

/// The arguments of main, without the program's name.
std::vector<std::string> arguments(int count, Argument** texts);

/// A file name as a path.
std::filesystem::path pathOf(std::string const& name);

/// A path as a file name.
std::string nameOf(std::filesystem::path const& path);

/// Opens a file to read its bytes; negative, with errno set, when that fails.
int openFile(std::string const& name);
/// The standard input, which closeFile() leaves open.
int standardInput();
/// Reads up to `size` bytes as soon as there are any; 0 at the end, negative with errno set on failure.
long long readFile(int file, char* buffer, std::size_t size);
void closeFile(int file);
/// The size of a file; 0 for what has none, such as a pipe.
std::uint64_t sizeOfFile(int file);

/// The standard streams that may be terminals.
enum class Stream { Input, Output, Error };
bool isTerminal(Stream stream);

/// The lines of the terminal that standard output is; 0 when it is none.
std::size_t terminalLines();

/// Sends standard output through a program, such as one that shows page after page, from here on; false
/// when there is no such program. waitForPager() waits until it ends.
bool startPager(std::string const& command);
void waitForPager();

/// Ends the program as one is ended that writes to a closed pipe.
[[noreturn]] void endByClosedPipe();

} // namespace qxtab
