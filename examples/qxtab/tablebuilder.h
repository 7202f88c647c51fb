#pragma once

#include "csvparser.h"
#include "notices.h"

#include <qx/qx.h>

#include <set>
#include <string>
#include <vector>

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
    void endHeader();
    void checkLength();
    void checkDigits(QX::Cell const& cell);
    void addColumn();

    std::string file_;
    QX::Ptr<QX::Table> table_;
    Notices notices_;
    std::set<std::string> names_;
    std::string text_;              // of the current field, kept for its storage
    std::vector<std::string> told_; // about the current row
    std::size_t row_ = 0;           // of the next field, 0 being the header
    std::size_t column_ = 0;        // of the next field
    std::size_t width_ = 0;         // of the header
    std::size_t columns_ = 0;       // of the table
};

} // namespace qxtab
