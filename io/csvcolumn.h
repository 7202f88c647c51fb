#pragma once

#include "io/csvscanner.h"
#include "io/numberform.h"
#include "qx/csv.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace QX {

/// Puts the fields of one column into its index as they come.
///
/// A guessed column begins as numbers, or dates, if its first field is one. Since it holds nothing but
/// numbers that are written back as they were, it can still become texts at any later field.
class CsvColumnReader {
public:
    CsvColumnReader(std::size_t index, std::string_view name, CsvType type);

    /// Takes a field that is no empty cell, for item `row`.
    void take(Table& table, std::size_t row, CsvField const& field, CsvScanner const& scanner,
              CsvReadOptions const& options) {
        if (state_ == State::Texts) {
            takeText(table, row, field.text, scanner);
        } else {
            takeOther(table, row, field.text, scanner, options);
        }
    }

    /// The counts after so many rows.
    CsvColumn counts(std::size_t rows) const;

private:
    enum class State { Open, Numbers, Dates, Texts, AskedNumbers, AskedDates };

    /// A number that lost zeros at its end.
    struct Shortened {
        std::size_t row;
        unsigned places;
    };

    void takeText(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner);
    void takeOther(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner,
                   CsvReadOptions const& options);
    void takeAskedNumber(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner,
                         CsvReadOptions const& options);
    void takeAskedDate(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner,
                       CsvReadOptions const& options);
    bool takeNumber(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner,
                    EndZeros zeros);
    void misfit(Table& table, std::size_t row, std::string_view text, CsvScanner const& scanner,
                CsvReadOptions const& options, char const* wanted);
    void count(std::string_view text, CsvScanner const& scanner);
    void markOdd(std::string_view text, CsvScanner const& scanner);
    void numbersToTexts(Table& table, std::size_t row);

    std::size_t index_;
    State state_;
    CsvColumn counts_;
    std::vector<Shortened> shortened_;
};

} // namespace QX
