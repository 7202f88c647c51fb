#pragma once

#include <csv.h>

#include <cstddef>
#include <exception>
#include <string>

namespace qxtab {

/// Receives the fields and rows of a text of delimiter-separated values.
class CsvRows {
public:
    virtual ~CsvRows() = default;
    /// One field of the current row, unquoted; `text` is null for an empty field without quotes.
    virtual void field(char const* text, std::size_t size) = 0;
    /// The end of the current row, which began on `line`; a row without fields is a blank line.
    virtual void endOfRow(std::size_t line) = 0;
};

/// Splits delimiter-separated text into fields, in pieces of any size.
///
/// Fields may be quoted with '"' and then hold delimiters, line ends and doubled quotes. Blanks around a
/// field don't belong to it unless they are quoted. A quote inside an unquoted field is an ordinary
/// character. Lines end with LF, CR or CRLF.
///
/// Raises Failure "name:line: ..." for text behind a closing quote and for a quote that is never closed;
/// exceptions of the receiver pass through.
class CsvParser {
public:
    /// `name` is what messages call the text.
    CsvParser(std::string name, char delimiter, CsvRows& rows);
    CsvParser(CsvParser const&) = delete;
    CsvParser& operator=(CsvParser const&) = delete;
    ~CsvParser();

    /// Takes the next piece.
    void parse(char const* text, std::size_t size);
    /// Ends the last row; to be called once, after the last piece.
    void finish();

private:
    static void onField(void* text, std::size_t size, void* self);
    static void onLineEnd(int terminator, void* self);

    void takeField(char const* text, std::size_t size);
    void takeLineEnd(int terminator);
    void takeOrdinaryQuote(char const* quote);
    void checkReceiver();
    void checkMemory();
    [[noreturn]] void fail(char const* message) const;

    std::string name_;
    CsvRows& rows_;
    csv_parser parser_;
    std::size_t line_ = 1;         // of the next byte outside the current field
    std::size_t rowLine_ = 1;      // on which the current row began
    bool afterReturn_ = false;     // the last line end was a CR, so that an LF belongs to it
    std::exception_ptr exception_; // from the receiver, kept while the C parser is on the stack
};

} // namespace qxtab
