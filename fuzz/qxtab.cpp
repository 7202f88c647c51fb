// A command line of qxtab on two files in memory. The first line of the input is the command line, its words
// separated by blanks or, when one begins it, by tabs; the words A and B stand for the files, which follow,
// separated by a line of "====".

#include "fuzz/require.h"
#include "qxtab/commandline.h"
#include "qxtab/failure.h"
#include "qxtab/reader.h"
#include "qxtab/writer.h"

#include <qx/ioerror.h>

#include <algorithm>
#include <iostream>
#include <new>
#include <optional>
#include <sstream>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace qxtab {
namespace {

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
    explicit MemoryFile(std::string_view text) : descriptor_(memfd_create("input", 0)) {
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
    } catch (QX::Except const&) {
    } catch (QX::IoError const&) {
    } catch (std::bad_alloc const&) {
    }
    return std::nullopt;
}

std::string written(Data const& data, char const* format) {
    std::ostringstream os;
    formatNamed(format).write(os, data, {});
    return os.str();
}

std::string_view takeUntil(std::string_view& text, std::string_view end) {
    std::size_t const stop = std::min(text.find(end), text.size());
    std::string_view const taken = text.substr(0, stop);
    text.remove_prefix(std::min(stop + end.size(), text.size()));
    return taken;
}

std::vector<std::string> wordsOf(std::string_view line, std::string const& a, std::string const& b) {
    char const separator = line.starts_with('\t') ? '\t' : ' ';
    line.remove_prefix(separator == '\t' ? 1 : 0);
    std::vector<std::string> words;
    while (!line.empty()) {
        std::string word(takeUntil(line, std::string_view(&separator, 1)));
        words.push_back(word == "A" ? a : word == "B" ? b : word);
    }
    return words;
}

// Writes no log, opens no other file, and takes no more memory than there is.
bool isHarmless(CommandLine const& line, std::string const& a, std::string const& b) {
    std::vector<std::string> const inputs = line.inputs();
    bool const own = std::all_of(inputs.begin(), inputs.end(),
                                 [&](std::string const& each) { return each == a || each == b; });
    bool const small = std::all_of(line.steps.begin(), line.steps.end(), [](Step const& step) {
        return std::string(step.verb->name) != "fill" || step.arguments.count("rows").value_or(0) < 1000;
    });
    return own && small && line.logFile.empty();
}

Data runSteps(CommandLine const& line) {
    std::vector<std::string> files = line.steps.front().arguments.files();
    Data data = readFile(files.front(), line.read);
    for (Step const& step : line.steps) {
        std::vector<Data> others;
        files = step.arguments.files();
        for (std::size_t k = &step == &line.steps.front() ? 1 : 0; k < files.size(); ++k) {
            others.push_back(readFile(files[k], line.read));
        }
        data = step.action(data, others).data;
    }
    return data;
}

/// What was read and written comes back when it is read and written again, byte for byte.
void checkPassing(std::string const& file) {
    std::optional<Data> const data = attempt([&] { return readFile(file, {}); });
    if (!data) {
        return;
    }
    std::string const once = written(*data, "csv");
    MemoryFile const again(once);
    ReadOptions any;
    any.anyBytes = true;
    std::optional<Data> const back = attempt([&] { return readFile(again.name(), any); });
    QX::require(back.has_value(), "what is written can be read");
    QX::require(written(*back, "csv") == once, "what is read is written as it was");
}

void check(std::string_view text) {
    std::string_view const line = takeUntil(text, "\n");
    MemoryFile const a(takeUntil(text, "====\n"));
    MemoryFile const b(text);
    checkPassing(a.name());
    std::optional<CommandLine> const command =
        attempt([&] { return readCommandLine(wordsOf(line, a.name(), b.name())); });
    if (!command || !isHarmless(*command, a.name(), b.name())) {
        return;
    }
    std::optional<Data> const result = attempt([&] { return runSteps(*command); });
    if (result) {
        QX::require(result->types.size() == result->columns(), "each column has a type");
        attempt([&] { return written(*result, command->format->name); });
        std::string const shown = written(*result, "text");
        bool const visible = std::all_of(shown.begin(), shown.end(), [](char c) {
            return c == '\n' || static_cast<unsigned char>(c) >= 0x20;
        });
        QX::require(visible, "what people see holds no control characters");
    }
}

} // namespace
} // namespace qxtab

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    qxtab::check({reinterpret_cast<char const*>(data), size});
    return 0;
}
