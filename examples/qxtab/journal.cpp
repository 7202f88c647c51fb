#include "journal.h"

#include "failure.h"
#include "system.h"
#include "utf8.h"

#include <cerrno>
#include <cstring>
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

void checkInputs(std::string const& name, std::vector<std::string> const& inputs) {
    for (std::string const& input : inputs) {
        std::error_code none; // what doesn't exist is not the same file
        if (std::filesystem::equivalent(pathOf(input), pathOf(name), none)) {
            throw Failure(name + ": the log can't be written to an input");
        }
    }
}

// The library's way to open a file replaces it and is silent when that fails.
std::ofstream& openLog(Journal& journal, std::string const& name) {
    errno = 0;
    journal.file.open(pathOf(name), std::ios::app);
    if (!journal.file) {
        throw Failure(name + ": the log can't be opened: " + std::strerror(errno));
    }
    return journal.file;
}

} // namespace

void startLog(std::string const& file, bool verbose, std::vector<std::string> const& inputs) {
    Journal& started = journal();
    started.log.setLevel(verbose ? QX::Log::Debug : QX::Log::Info);
    if (!file.empty()) {
        checkInputs(file, inputs);
        started.log.setStream(&openLog(started, file), false);
        started.log.report();
    } else if (verbose) {
        started.log.setStream(&std::cerr, false);
        started.onScreen = true;
    }
}

void log(std::string const& message, QX::Log::LogLevel level) {
    journal().log.send(text(visible(message)), level);
}

void tell(std::string const& message, QX::Log::LogLevel level) {
    std::cerr << "qxtab: " << visible(message) << '\n';
    if (!journal().onScreen) {
        log(message, level);
    }
}

void finishLog() {
    if (!journal().file) {
        throw Failure("the log can't be written");
    }
}

} // namespace qxtab
