#include "commandline.h"

#include "failure.h"
#include "list.h"

#include <algorithm>
#include <cstring>

namespace qxtab {

namespace {

char const* const formatWords = "text csv tsv json jsonl values indices";

std::vector<std::vector<std::string>> splitAtThen(std::vector<std::string> const& words) {
    std::vector<std::vector<std::string>> parts(1);
    for (std::string const& word : words) {
        if (word == "then") {
            parts.emplace_back();
        } else {
            parts.back().push_back(word);
        }
    }
    return parts;
}

std::string delimiterOf(Arguments const& shared) {
    if (!shared.has("delimiter")) {
        return "";
    }
    std::string const text = shared.text("delimiter");
    std::string const delimiter = text == "tab" || text == "\\t" ? "\t" : text;
    if (delimiter.size() != 1 || std::strchr("\"\r\n", delimiter.front()) != nullptr) {
        throw Misuse("--delimiter: one character, not a quote or a line end, or the word tab");
    }
    return delimiter;
}

std::string inputFormat(Arguments const& shared) {
    std::string const format = shared.text("from");
    if (!format.empty() && format != "csv" && format != "tsv" && format != "json" && format != "jsonl") {
        throw Misuse("--from: '" + format + "' is not csv, tsv, json or jsonl");
    }
    return format;
}

std::map<std::string, ColumnType> typesOf(Arguments const& shared) {
    std::map<std::string, ColumnType> types;
    for (std::string const& list : shared.texts("types")) {
        for (ListEntry const& entry : readList(list, ListValues::Must)) {
            types[entry.name] = typeNamed(*entry.value);
        }
    }
    return types;
}

void takeShared(CommandLine& line, Arguments const& shared) {
    line.read.delimiter = delimiterOf(shared);
    line.read.format = inputFormat(shared);
    line.read.types = typesOf(shared);
    line.read.exact = shared.has("exact");
    line.read.anyBytes = shared.has("any-bytes");
    line.write.exact = line.read.exact;
    line.format = &formatNamed(shared.text("as", line.steps.back().verb->format));
    line.head = shared.count("head");
    line.logFile = shared.text("log");
    line.verbose = shared.has("verbose");
    line.plain = shared.has("plain");
    if (shared.has("log") && line.logFile.empty()) {
        throw Misuse("--log: the name of the log file is empty");
    }
}

Step readStep(std::vector<std::string> const& words, bool first, Arguments& shared) {
    if (words.empty()) {
        throw Misuse(first ? "a verb is missing" : "a verb is missing behind 'then'");
    }
    Step step;
    step.verb = &verbNamed(words.front());
    try {
        step.arguments = Arguments(step.verb->syntax, sharedOptions(), {words.begin() + 1, words.end()},
                                   first, &shared);
        step.action = step.verb->prepare(step.arguments);
    } catch (Misuse const& e) {
        throw Misuse(std::string(step.verb->name) + ": " + e.what());
    }
    return step;
}

// A file behind the last verb is the one that the first verb works on.
void takeTrailingFile(std::vector<Step>& steps) {
    for (Step const& step : steps) {
        std::string const& file = step.arguments.trailingFile();
        if (!file.empty() && (&step != &steps.back() || !steps.front().arguments.lacksFile())) {
            throw Misuse(std::string(step.verb->name) + ": '" + file + "' is one argument too many");
        }
    }
    if (!steps.back().arguments.trailingFile().empty()) {
        steps.front().arguments.setFile(steps.back().arguments.trailingFile());
    }
}

} // namespace

std::vector<Option> const& sharedOptions() {
    static std::vector<Option> const all = {
        {"as", "FORMAT", "What to write: text, csv, tsv, json, jsonl, values or indices", 0, false,
         false, formatWords},
        {"head", "N", "Write the first N rows only, and read no further than that takes"},
        {"types", "LIST", "The types of columns: zip=text,price=number,day=date", 0, false, true},
        {"from", "FORMAT", "What the files are, if not as their names end: csv, tsv, json or jsonl", 0,
         false, false, "csv tsv json jsonl"},
        {"delimiter", "CHAR", "What separates fields: one character, or tab", 'd'},
        {"exact", nullptr, "JSON holds everything about a table, its attributes too"},
        {"any-bytes", nullptr, "Read also what holds zero bytes, and so is no text"},
        {"plain", nullptr, "Neither colours nor pages on a terminal"},
        {"log", "FILE", "Add what is done to the end of a file"},
        {"verbose", nullptr, "Log more; on standard error when there is no log file", 'v'},
    };
    return all;
}

std::vector<std::string> CommandLine::inputs() const {
    std::vector<std::string> all;
    for (Step const& step : steps) {
        all.insert(all.end(), step.arguments.files().begin(), step.arguments.files().end());
    }
    return all;
}

std::size_t CommandLine::rowsNeeded() const {
    std::size_t rows = QX::Table::npos;
    for (Step const& step : steps) {
        if (!step.verb->rowByRow) {
            return rows;
        }
        if (std::strcmp(step.verb->name, "head") == 0) {
            std::size_t const few = 10;
            rows = std::min(rows, step.arguments.count("rows").value_or(few));
        }
    }
    return std::min(rows, head.value_or(QX::Table::npos));
}

CommandLine readCommandLine(std::vector<std::string> const& words) {
    CommandLine line;
    Arguments shared;
    for (std::vector<std::string> const& part : splitAtThen(words)) {
        line.steps.push_back(readStep(part, line.steps.empty(), shared));
    }
    takeShared(line, shared);
    takeTrailingFile(line.steps);
    std::vector<std::string> const inputs = line.inputs();
    if (std::count(inputs.begin(), inputs.end(), "-") > 1) {
        throw Misuse("standard input can be read only once");
    }
    return line;
}

} // namespace qxtab
