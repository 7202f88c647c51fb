#pragma once

#include "csvparser.h"

#include <qx/qx.h>

#include <set>
#include <string>

namespace qxtab {

/// Puts fields into a table as they arrive, each cell straight into its index.
class TableBuilder : public CsvRows {
public:
    /// `file` is what messages call the text.
    TableBuilder(std::string file, QX::Ptr<QX::Table> const& table);

    void field(char const* text, std::size_t size) override;
    void endOfRow(std::size_t line) override;

    /// Tells what remained untold; raises Failure when there was no header row.
    void finish();

private:
    void endHeader(std::size_t line);
    void tellLength(std::size_t line);
    void addColumn();

    std::string file_;
    QX::Ptr<QX::Table> table_;
    std::set<std::string> names_;
    std::string text_;        // of the current field, kept for its storage
    std::size_t row_ = 0;     // of the next field, 0 being the header
    std::size_t column_ = 0;  // of the next field
    std::size_t width_ = 0;   // of the header
    std::size_t columns_ = 0; // of the table
    std::size_t odd_ = 0;     // rows that are longer or shorter than the header
};

} // namespace qxtab
