#include "celltext.h"
#include "commands.h"
#include "failure.h"
#include "journal.h"
#include "reader.h"
#include "system.h"
#include "writer.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

namespace qxtab {

namespace {

int const misused = 2;

std::string readDelimiter(std::string& text) {
    if (text == "tab" || text == "\\t") {
        text = "\t";
    }
    bool const usable = text.size() == 1 && std::strchr("\"\r\n", text.front()) == nullptr;
    return usable ? "" : "a delimiter is one character, not a quote or a line end, or the word tab";
}

std::string checkCount(std::string const& text) {
    bool const digits = text.find_first_not_of("0123456789") == std::string::npos;
    return digits ? "" : text + " is not a number of rows";
}

std::string checkLogName(std::string const& text) {
    return text.empty() ? "the name of the log file is empty" : "";
}

void addSharedOptions(CLI::App& app, Command const& command, Options& options) {
    app.add_option("file", options.files, "CSV or TSV file with a header row; - is standard input")
        ->required()
        ->expected(command.fewestFiles, command.mostFiles)
        ->allow_extra_args(command.mostFiles == Command::anyNumber) // if so, "[x]" means x, "./[x]" not
        ->type_name("FILE");
    app.add_option("--as", options.as, "What to write")
        ->check(CLI::IsMember(formatNames()))
        ->default_str(command.format);
    app.add_option("--head", options.head, "Write only the first N data rows")
        ->check(CLI::Validator(checkCount, ""))
        ->type_name("N");
    app.add_option("--delimiter", options.delimiter,
                   "What separates the fields of the input: one character or tab; "
                   "when not given, a tab in files that end in .tsv or .tab, a comma in others")
        ->transform(CLI::Validator(readDelimiter, "CHAR"));
    app.add_option("--log", options.logFile, "Add what is done to the end of a log file")
        ->check(CLI::Validator(checkLogName, ""))
        ->type_name("FILE");
    app.add_flag("--verbose", options.verbose, "Log more; on standard error when there is no log file");
}

void add(CLI::App& app, Command const& command, Options& options, Command const*& chosen) {
    CLI::App& added = *app.add_subcommand(command.name, command.summary);
    if (command.help != nullptr) {
        added.footer(command.help);
    }
    addSharedOptions(added, command, options);
    if (command.addOptions != nullptr) {
        command.addOptions(added, options);
    }
    added.callback([&chosen, &command] { chosen = &command; });
}

void check(CLI::App const& app, Options const& options, Command const* chosen) {
    std::vector<std::string> const unknown = app.remaining();
    if (!unknown.empty()) {
        char const* const expected = chosen == nullptr ? " is not a command" : " is not an option here";
        throw CLI::ParseError(unknown.front() + expected, misused);
    }
    if (chosen == nullptr) {
        throw CLI::ParseError("a command is missing", misused);
    }
    if (std::count(options.files.begin(), options.files.end(), "-") > 1) {
        throw CLI::ParseError("standard input can be read only once", misused);
    }
}

void flushOutput() {
    if (!std::cout.flush()) {
        throw Failure(std::string("standard output: ") + std::strerror(errno));
    }
}

std::string sizeText(QX::Table const& table) {
    return std::to_string(dataRows(table)) + " data rows, " + std::to_string(table.indices()) +
           " indices";
}

void logNames(QX::Table const& table) {
    for (std::size_t i = 0; i < table.indices(); ++i) {
        log("  index " + std::to_string(i) + ": " + screenText(table.get(i, 0)), QX::Log::Debug);
    }
}

Input read(std::string const& file, std::string const& delimiter) {
    Input const input = {messageName(file), readTable(file, delimiter)};
    log("Read " + input.file + ": " + sizeText(*input.table));
    logNames(*input.table);
    return input;
}

void write(QX::Ptr<QX::Table const> const& table, Options const& options) {
    writeTable(std::cout, table, options);
    flushOutput();
    std::size_t const rows = dataRows(*table);
    log("Wrote " + std::to_string(std::min(rows, options.head.value_or(rows))) + " data rows as " +
        options.as);
}

int run(Command const& command, Options const& options, std::vector<std::string> const& words) {
    startLog(options);
    log(std::string("Command ") + command.name);
    for (std::string const& word : words) {
        log("  argument: " + word, QX::Log::Debug);
    }
    Inputs inputs;
    for (std::string const& file : options.files) {
        inputs.push_back(read(file, options.delimiter));
    }
    Outcome const outcome = command.run(options, inputs);
    log(std::string("Result of ") + command.name + ": " + sizeText(*outcome.table));
    logNames(*outcome.table);
    write(outcome.table, options);
    finishLog();
    return outcome.exitCode;
}

int fail(std::string const& message, int exitCode) {
    tell(message, QX::Log::Error);
    return exitCode;
}

template <typename Action>
int runToExitCode(Action action, int failed) {
    try {
        return action();
    } catch (QX::Except const& e) {
        return fail(bytes(e.report().message(false)), failed);
    } catch (Failure const& e) {
        return fail(e.what(), failed);
    } catch (std::bad_alloc const&) {
        return fail("out of memory", failed);
    } catch (std::exception const& e) {
        return fail(e.what(), failed);
    }
}

int main(std::vector<std::string> const& arguments) {
    CLI::App app("Works on tables of values in CSV and TSV files.", "qxtab");
    app.set_version_flag("--version", "qxtab " QX_VERSION, "Print the version and exit");
    app.allow_windows_style_options(false); // "/name" is a file on every system
    app.require_subcommand(0, 1);
    Options options;
    Command const* chosen = nullptr;
    for (Command const& command : commands()) {
        add(app, command, options, chosen);
    }
    app.allow_extras(); // check() tells a mistyped command by its name
    try {
        app.parse(
            std::vector<std::string>(arguments.rbegin(), arguments.rend())); // as the parser wants them
        check(app, options, chosen);
    } catch (CLI::ParseError const& e) {
        if (e.get_exit_code() == 0) {
            app.exit(e);
            return runToExitCode([] { return flushOutput(), 0; }, 1);
        }
        return fail(std::string(e.what()) + "\nTry qxtab --help, or --help behind a command.", misused);
    }
    options.as = options.as.empty() ? chosen->format : options.as;
    return runToExitCode([&] { return run(*chosen, options, arguments); }, chosen->failed);
}

} // namespace

} // namespace qxtab

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
#else
int main(int argc, char** argv) {
#endif
    qxtab::prepareStreams();
    return qxtab::main(qxtab::arguments(argc, argv));
}
