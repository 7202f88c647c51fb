#pragma once

#include <cstdio>
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

/// Makes the standard streams pass bytes on, and writing to a closed pipe an error like any other.
void prepareStreams();

/// The arguments of main, without the program's name.
std::vector<std::string> arguments(int count, Argument** texts);

/// A file name as a path.
std::filesystem::path pathOf(std::string const& name);

/// A path as a file name.
std::string nameOf(std::filesystem::path const& path);

/// Opens a file to read its bytes; null, with errno set, when that fails.
std::FILE* openFile(std::string const& name);

} // namespace qxtab
