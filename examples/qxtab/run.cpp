#include "run.h"

#include "failure.h"
#include "journal.h"
#include "output.h"

#include <algorithm>

namespace qxtab {

namespace {

std::vector<Data> readOthers(Step const& step, bool first, ReadOptions options) {
    std::vector<Data> others;
    options.rows = QX::Table::npos;
    std::vector<std::string> const& files = step.arguments.files();
    for (std::size_t k = first ? 1 : 0; k < files.size(); ++k) {
        others.push_back(readFile(files[k], options));
    }
    return others;
}

// Columns whose types were said must be in one of the files.
void checkTypes(ReadOptions const& options, std::vector<std::string> const& names) {
    for (auto const& [name, type] : options.types) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            throw Failure(std::string("--types: no file has a column '") + name + "'" +
                          suggestion(name, names));
        }
    }
}

void logResult(Verb const& verb, Data const& data) {
    log(std::string("Result of ") + verb.name + ": " + std::to_string(data.rows()) + " data rows, " +
        std::to_string(data.columns()) + " columns");
}

} // namespace

int run(CommandLine const& line) {
    ReadOptions options = line.read;
    options.rows = line.rowsNeeded();
    // The last tables are never given back: the program ends sooner than their cells could be.
    static std::vector<Data>& kept = *new std::vector<Data>();
    int exitCode = 0;
    kept.push_back(readFile(line.steps.front().arguments.files().front(), options));
    std::vector<std::string> names =
        options.types.empty() ? std::vector<std::string>() : namesOf(kept.back());
    for (Step const& step : line.steps) {
        log(std::string("Verb ") + step.verb->name);
        bool const first = &step == &line.steps.front();
        std::vector<Data> const others = readOthers(step, first, options);
        for (Data const& other : others) {
            std::vector<std::string> const more = namesOf(other);
            names.insert(names.end(), more.begin(), more.end());
        }
        Outcome outcome = step.action(kept.back(), others);
        if (kept.size() > 1) {
            kept.erase(kept.begin());
        }
        kept.push_back(std::move(outcome.data));
        exitCode = outcome.exitCode;
        logResult(*step.verb, kept.back());
    }
    checkTypes(options, names);
    writeOutput(kept.back(), line);
    finishLog();
    return exitCode;
}

} // namespace qxtab
