#include "journal.h"

#include "failure.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace qxtab {

namespace {

// The streams outlive the log, which owns neither.
struct Journal {
    std::ofstream file;
    QX::Log log;
    bool onScreen = false;

    Journal() {
        log.setStream(nullptr, false); // a log begins on standard output, which is for data
        log.setName("qxtab");
    }
};

Journal& journal() {
    static Journal theJournal;
    return theJournal;
}

void checkInputs(Options const& options) {
    for (std::string const& input : options.files) {
        std::error_code none; // what doesn't exist is not the same file
        if (std::filesystem::equivalent(input, options.logFile, none)) {
            throw Failure(options.logFile + ": the log can't be written to an input");
        }
    }
}

// The library's way to open a file replaces it and is silent when that fails.
std::ofstream& openFile(Journal& journal, std::string const& name) {
    errno = 0;
    journal.file.open(name, std::ios::app);
    if (!journal.file) {
        throw Failure(name + ": the log can't be opened: " + std::strerror(errno));
    }
    return journal.file;
}

} // namespace

void startLog(Options const& options) {
    Journal& started = journal();
    started.log.setLevel(options.verbose ? QX::Log::Debug : QX::Log::Info);
    if (!options.logFile.empty()) {
        checkInputs(options);
        started.log.setStream(&openFile(started, options.logFile), false);
        started.log.report();
    } else if (options.verbose) {
        started.log.setStream(&std::cerr, false);
        started.onScreen = true;
    }
}

void log(std::string const& text, QX::Log::LogLevel level) {
    journal().log.send(QX::Str(text), level);
}

void tell(std::string const& text, QX::Log::LogLevel level) {
    std::cerr << "qxtab: " << text << '\n';
    if (!journal().onScreen) {
        log(text, level);
    }
}

void finishLog() {
    if (!journal().file) {
        throw Failure("the log can't be written");
    }
}

} // namespace qxtab
