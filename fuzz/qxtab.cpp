// A command of qxtab on files of delimiter-separated values. The first line of the input is the command,
// letters for its flags, and its list or path; the files follow, separated by lines of "====".

#include "fuzz/require.h"
#include "qxtab/commands.h"
#include "qxtab/csvparser.h"
#include "qxtab/failure.h"
#include "qxtab/operand.h"
#include "qxtab/reader.h"
#include "qxtab/tablebuilder.h"
#include "qxtab/writer.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <new>
#include <optional>
#include <sstream>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace qxtab {
namespace {

using Table = QX::Ptr<QX::Table const>;

/// Keeps what is told on standard error away while it lives.
class Silence {
public:
    Silence() : former_(std::cerr.rdbuf(swallowed_.rdbuf())) {}
    ~Silence() { std::cerr.rdbuf(former_); }
    Silence(Silence const&) = delete;
    Silence& operator=(Silence const&) = delete;

private:
    std::ostringstream swallowed_;
    std::streambuf* former_;
};

/// A file in memory, to be opened by its name.
class MemoryFile {
public:
    explicit MemoryFile(std::string const& text) : descriptor_(memfd_create("input", 0)) {
        bool const whole = write(descriptor_, text.data(), text.size()) == ssize_t(text.size());
        QX::require(whole, "a file in memory");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;

    std::string name() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

/// What `action` gives; nothing when it fails as qxtab fails.
template <typename Action>
auto attempt(Action const& action) -> std::optional<decltype(action())> {
    Silence const silence;
    try {
        return action();
    } catch (Failure const&) {
    } catch (ListError const&) {
    } catch (QX::Except const&) {
    } catch (std::bad_alloc const&) {
    }
    return std::nullopt;
}

std::optional<Table> readWhole(std::string const& text, std::string const& delimiter) {
    MemoryFile const file(text);
    return attempt([&]() -> Table { return readTable(file.name(), delimiter); });
}

std::optional<Table> readInPieces(std::string const& text, std::string const& delimiter,
                                  std::size_t size) {
    return attempt([&]() -> Table {
        QX::Ptr<QX::Table> const table(new QX::Table);
        TableBuilder builder("input", table);
        CsvParser parser("input", delimiter.empty() ? ',' : delimiter.front(), builder);
        for (std::size_t k = 0; k < text.size(); k += size) {
            std::string const piece = text.substr(k, size);
            parser.parse(piece.data(), piece.size());
        }
        parser.finish();
        builder.finish();
        return table;
    });
}

/// Everything about a cell that is written and read again. What has no text of its own comes back as a
/// text: a number that is not finite, and the empty name of a lone index, since a line without text
/// names nothing.
std::string content(QX::Cell const& cell, bool loneName) {
    QX::Str text;
    double number = 0;
    cell.get(text, 0);
    cell.get(number);
    bool const becomesText = !std::isfinite(number) || (loneName && cell.empty());
    return std::to_string(becomesText ? QX::Cell::StringCell : cell.isA()) + ' ' +
           std::to_string(std::bit_cast<std::uint64_t>(becomesText ? 0.0 : number)) + ' ' + bytes(text) +
           '\n';
}

/// Everything about the cells of a table that was read, as a rectangle.
std::string contents(QX::Table const& table) {
    std::string all;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        for (std::size_t j = 0; j < table.items(0); ++j) {
            all += content(table.get(i, j), j == 0 && table.indices() == 1);
        }
        all += "----\n";
    }
    return all;
}

bool hasMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") || text.starts_with("\xFF\xFE") ||
           text.starts_with("\xFE\xFF");
}

/// Reads a text; the result does not depend on the pieces, and reads back from what is written of it.
Table checkedTable(std::string const& text, std::string const& delimiter) {
    std::optional<Table> const table = readWhole(text, delimiter);
    if (!hasMark(text)) {
        std::optional<Table> const pieces = readInPieces(text, delimiter, 1 + text.size() % 7);
        QX::require(table.has_value() == pieces.has_value(), "pieces can be read as the whole can");
        QX::require(!table || contents(**table) == contents(**pieces), "pieces read as the whole");
    }
    if (!table) {
        return nullptr;
    }
    std::ostringstream written;
    writeSeparated(written, **table, delimiter.empty() ? ',' : delimiter.front());
    std::optional<Table> const again = readWhole(written.str(), delimiter);
    QX::require(again.has_value(), "what is written can be read", written.str());
    QX::require(contents(**again) == contents(**table), "what is written reads back", written.str());
    return *table;
}

struct Line {
    Command const* command = nullptr;
    Options options;
    bool bad = false;
};

Line parsed(std::string const& text) {
    Line line;
    std::istringstream in(text);
    std::string name;
    std::string flags;
    std::string list;
    in >> name >> flags >> std::ws;
    std::getline(in, list);
    for (Command const& command : commands()) {
        line.command = command.name == name ? &command : line.command;
    }
    auto const has = [&](char flag) { return flags.find(flag) != std::string::npos; };
    Options& options = line.options;
    options.delimiter = has(';') ? ";" : has('t') ? "\t" : "";
    options.descending = options.ignoreCase = has('d');
    options.exclude = options.byName = has('x');
    options.keepEmpty = options.emptyOverwrites = has('e');
    options.keepUnmatched = options.matchedOnly = has('u');
    options.distinct = has('1');
    options.invert = options.operandItems = has('v');
    options.addIndices = has('a');
    options.rows = has('r') ? 20 : 0;
    options.path = list;
    if (has('h')) {
        options.head = 2;
    }
    std::string const command = name;
    auto const read = [&](auto reader) {
        return attempt([&] { return reader(list); }).value_or(nullptr);
    };
    if (command == "filter") {
        options.conditions = {read(readCondition)};
        line.bad = !options.conditions.front();
    } else if (command == "sort" || command == "select" || command == "fill") {
        options.operand = read(command == "sort"     ? readNames
                               : command == "select" ? readRenames
                                                     : readValues);
        line.bad = !options.operand;
    } else if (command == "sum" && !list.empty()) {
        options.operand = read(readNames);
        line.bad = !options.operand;
    }
    return line;
}

std::vector<std::string> split(std::string const& text) {
    std::string const border = "\n====\n";
    std::vector<std::string> files;
    std::size_t from = 0;
    for (std::size_t to = 0; files.size() < 3 && (to = text.find(border, from)) != std::string::npos;) {
        files.push_back(text.substr(from, to + 1 - from));
        from = to + border.size();
    }
    files.push_back(text.substr(from));
    return files;
}

void run(Line const& line, Inputs const& inputs) {
    std::optional<Outcome> const outcome =
        attempt([&] { return line.command->run(line.options, inputs); });
    if (!outcome) {
        return;
    }
    QX::require(static_cast<bool>(outcome->table), "a command that succeeds gives a table");
    for (std::string const& format : formatNames()) {
        Options options = line.options;
        options.as = format;
        std::ostringstream written;
        attempt([&] { return writeTable(written, outcome->table, options), true; });
    }
}

} // namespace
} // namespace qxtab

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::size_t const end = std::min(text.find('\n'), text.size());
    qxtab::Line const line = qxtab::parsed(text.substr(0, end));
    qxtab::Inputs inputs;
    for (std::string const& file : qxtab::split(text.substr(std::min(end + 1, text.size())))) {
        if (qxtab::Table const table = qxtab::checkedTable(file, line.options.delimiter)) {
            inputs.push_back({"input", table});
        }
    }
    if (line.command == nullptr || line.bad || inputs.empty()) {
        return 0;
    }
    while (inputs.size() < static_cast<std::size_t>(line.command->fewestFiles)) {
        inputs.push_back(inputs.front());
    }
    if (line.command->mostFiles != qxtab::Command::anyNumber) {
        inputs.resize(static_cast<std::size_t>(line.command->mostFiles));
    }
    qxtab::run(line, inputs);
    return 0;
}
