#include "commandline.h"
#include "failure.h"
#include "help.h"
#include "journal.h"
#include "output.h"
#include "run.h"
#include "system.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace qxtab {

namespace {

int const misused = 2;

int fail(std::string const& message, int exitCode) {
    tell(message, QX::Log::Error);
    return exitCode;
}

int failMisuse(std::string const& message) {
    fail(message, misused);
    tell("'qxtab --help' lists the verbs, 'qxtab VERB --help' tells about one");
    return misused;
}

template <typename ActionToRun>
int runToExitCode(ActionToRun action, int failed) {
    try {
        return action();
    } catch (QX::Except const& e) {
        return fail(bytes(e.report().message(false)), failed);
    } catch (Misuse const& e) {
        return failMisuse(e.what());
    } catch (std::bad_alloc const&) {
        return fail("out of memory", failed);
    } catch (std::exception const& e) {
        return fail(e.what(), failed);
    }
}

int runVerbs(std::vector<std::string> const& words) {
    CommandLine const line = readCommandLine(words);
    return runToExitCode(
        [&] {
            startLog(line.logFile, line.verbose, line.inputs());
            for (std::string const& word : words) {
                log("  argument: " + word, QX::Log::Debug);
            }
            return run(line);
        },
        line.steps.back().verb->failed);
}

bool isHelp(std::string const& word) {
    return word == "--help" || word == "-h";
}

int main(std::vector<std::string> const& words) {
    bool const helped = std::any_of(words.begin(), words.end(), isHelp);
    if (!words.empty() && words.front() == "--version") {
        std::cout << "qxtab " QX_VERSION "\n";
    } else if (!words.empty() && (helped || words.front() == "help")) {
        std::string const topic =
            words.front() == "help" ? (words.size() > 1 ? words[1] : "") : words.front();
        if (topic.empty() || isHelp(topic)) {
            writeHelp(std::cout);
        } else {
            writeHelp(std::cout, topic);
        }
    } else {
        return runVerbs(words);
    }
    flushOutput();
    return 0;
}

} // namespace

} // namespace qxtab

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
#else
int main(int argc, char** argv) {
#endif
    qxtab::prepareStreams();
    return qxtab::runToExitCode([&] { return qxtab::main(qxtab::arguments(argc, argv)); }, 1);
}
