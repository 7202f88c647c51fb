#include "output.h"

#include "failure.h"
#include "journal.h"
#include "system.h"
#include "utf8.h"

#include <qx/ioerror.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <streambuf>

namespace qxtab {

namespace {

/// Passes lines on with everything visible in them that could steer a terminal.
class VisibleLines : public std::streambuf {
public:
    explicit VisibleLines(std::ostream& os) : os_(os), to_(os.rdbuf(this)) {}
    VisibleLines(VisibleLines const&) = delete;
    VisibleLines& operator=(VisibleLines const&) = delete;
    ~VisibleLines() override {
        pass();
        os_.rdbuf(to_);
    }

protected:
    int_type overflow(int_type c) override {
        line_ += traits_type::to_char_type(c);
        return c == '\n' ? passOr(c) : c;
    }
    std::streamsize xsputn(char const* text, std::streamsize size) override {
        line_.append(text, static_cast<std::size_t>(size));
        bool const ends = line_.find('\n') != std::string::npos;
        return !ends || pass() ? size : 0;
    }
    int sync() override { return pass() ? to_->pubsync() : -1; }

private:
    int_type passOr(int_type c) { return pass() ? c : traits_type::eof(); }
    bool pass() {
        shown_.clear();
        appendVisible(shown_, line_, true);
        line_.clear();
        auto const size = static_cast<std::streamsize>(shown_.size());
        return to_->sputn(shown_.data(), size) == size;
    }

    std::ostream& os_;
    std::streambuf* to_;
    std::string line_;
    std::string shown_;
};

[[noreturn]] void failToWrite(int error) {
    if (error == EPIPE) {
        endByClosedPipe();
    }
    throw Failure(std::string("standard output: ") + std::strerror(error));
}

std::string pagerCommand() {
    for (char const* name : {"QXTAB_PAGER", "PAGER"}) {
        char const* const value = std::getenv(name);
        if (value != nullptr) {
            return value;
        }
    }
    return "less";
}

bool wantsColours() {
    char const* const none = std::getenv("NO_COLOR");
    char const* const terminal = std::getenv("TERM");
    return (none == nullptr || *none == '\0') && terminal != nullptr &&
           std::strcmp(terminal, "dumb") != 0;
}

Data firstRows(Data const& data, std::size_t count) {
    Positions rows = allRows(data);
    if (rows.size() <= count) {
        return data;
    }
    rows.resize(count);
    return pickRows(data, rows);
}

void write(Data const& data, Format const& format, WriteOptions const& options) {
    errno = 0;
    try {
        format.write(std::cout, data, options);
    } catch (QX::IoError const&) {
        if (std::cout) {
            throw; // not the output, but what was to be written
        }
    }
}

} // namespace

void flushOutput() {
    if (!std::cout.flush()) {
        failToWrite(errno == 0 ? EIO : errno);
    }
}

void writeOutput(Data const& data, CommandLine const& line) {
    Data const shown = line.head ? firstRows(data, *line.head) : data;
    Format const& format = *line.format;
    bool const forPeople = format.write == writeText;
    if (!isTerminal(Stream::Output)) {
        write(shown, format, line.write);
    } else {
        std::size_t const headLines = 2;
        std::size_t const lines = terminalLines();
        std::string const pager = line.plain || lines == 0 ? "" : pagerCommand();
        WriteOptions options = line.write;
        options.styled = !line.plain && wantsColours();
        if (!pager.empty() && shown.rows() + headLines >= lines) {
            startPager(pager);
        }
        if (forPeople) {
            write(shown, format, options);
        } else {
            VisibleLines const visibly(std::cout);
            write(shown, format, options);
        }
    }
    flushOutput();
    waitForPager();
    log("Wrote " + std::to_string(shown.rows()) + " data rows as " + format.name);
}

} // namespace qxtab
