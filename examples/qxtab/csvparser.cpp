#include "csvparser.h"

#include "failure.h"

#include <new>
#include <utility>

namespace qxtab {

namespace {

unsigned char const options = CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL | CSV_EMPTY_IS_NULL;
unsigned char const lenient = CSV_REPALL_NL | CSV_EMPTY_IS_NULL;
std::size_t const fieldBlock = 1 << 16; // the default of 128 bytes makes long fields quadratic

std::size_t lineEnds(char const* text, std::size_t size) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < size; ++i) {
        bool const lineFeed = text[i] == '\n' && (i == 0 || text[i - 1] != '\r');
        count += lineFeed || text[i] == '\r' ? 1 : 0;
    }
    return count;
}

} // namespace

CsvParser::CsvParser(std::string name, char delimiter, CsvRows& rows)
    : name_(std::move(name)), rows_(rows) {
    csv_init(&parser_, options);
    csv_set_delim(&parser_, static_cast<unsigned char>(delimiter));
    csv_set_blk_size(&parser_, fieldBlock);
}

CsvParser::~CsvParser() {
    csv_free(&parser_);
}

void CsvParser::parse(char const* text, std::size_t size) {
    while (size > 0) {
        std::size_t done = csv_parse(&parser_, text, size, onField, onLineEnd, this);
        checkReceiver();
        if (done < size) {
            takeOrdinaryQuote(text + done);
            ++done;
        }
        text += done;
        size -= done;
    }
}

void CsvParser::finish() {
    if (csv_fini(&parser_, onField, onLineEnd, this) != 0) {
        checkMemory();
        fail("the quoted field that begins here has no closing quote");
    }
    checkReceiver();
}

// The strict parser stops at a quote inside an unquoted field as it does at text behind a closing quote,
// and can go on from there: only the second one makes it unclear what the field is.
void CsvParser::takeOrdinaryQuote(char const* quote) {
    checkMemory();
    if (parser_.quoted != 0) {
        fail("text follows the closing quote of a field (write a quote inside a quoted field twice)");
    }
    csv_set_opts(&parser_, lenient);
    csv_parse(&parser_, quote, 1, onField, onLineEnd, this);
    csv_set_opts(&parser_, options);
}

void CsvParser::onField(void* text, std::size_t size, void* self) {
    static_cast<CsvParser*>(self)->takeField(static_cast<char const*>(text), size);
}

void CsvParser::onLineEnd(int terminator, void* self) {
    static_cast<CsvParser*>(self)->takeLineEnd(terminator);
}

void CsvParser::takeField(char const* text, std::size_t size) {
    line_ += lineEnds(text, size);
    afterReturn_ = false;
    if (!exception_) {
        try {
            rows_.field(text, size);
        } catch (...) {
            exception_ = std::current_exception(); // rethrown when the C parser has returned
        }
    }
}

void CsvParser::takeLineEnd(int terminator) {
    bool const secondHalf = afterReturn_ && terminator == '\n';
    afterReturn_ = terminator == '\r';
    if (secondHalf) {
        return;
    }
    if (!exception_) {
        try {
            rows_.endOfRow(rowLine_);
        } catch (...) {
            exception_ = std::current_exception();
        }
    }
    rowLine_ = ++line_;
}

void CsvParser::checkReceiver() {
    if (exception_) {
        std::rethrow_exception(std::exchange(exception_, nullptr));
    }
}

void CsvParser::checkMemory() {
    int const error = csv_error(&parser_);
    if (error == CSV_ENOMEM || error == CSV_ETOOBIG) {
        throw std::bad_alloc();
    }
}

void CsvParser::fail(char const* message) const {
    throw Failure(name_ + ":" + std::to_string(line_) + ": " + message);
}

} // namespace qxtab
