#pragma once

#include <qx/ease.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qxtab {

using Table = QX::Ptr<QX::Table const>;
using QX::Positions;

/// What the fields of a column are compared, sorted and grouped as.
enum class ColumnType {
    Text,   ///< byte by byte
    Number, ///< by value: 1.50 is 1.5
    Date    ///< texts YYYY-MM-DD, byte by byte
};

/// The word for a type, and the other way round.
char const* typeName(ColumnType type);
ColumnType typeNamed(std::string const& name);

/// Where the types of columns come from.
struct TypeRules {
    std::map<std::string, ColumnType> said; ///< by the name of the column
    bool guessTexts = true; ///< whether texts may be numbers, as in CSV; in JSON they are not
};

/// A table on its way through the verbs: its cells hold the fields byte for byte as they were read, until
/// a computation makes others.
struct Data {
    Table table;
    std::vector<ColumnType> types; ///< of each index
    TypeRules rules;
    std::string label; ///< what messages call it, such as the file
    std::string title; ///< what it is called beside others: the file's name without directory and ending

    std::size_t columns() const { return table->indices(); }
    std::size_t rows() const { return QX::Detail::dataRows(*table); }
    QX::Cell const& cell(std::size_t column, std::size_t row) const { return table->get(column, row); }
    /// The name of a column.
    std::string name(std::size_t column) const;
};

/// A table with the types that the rules and its cells give: a column is of numbers or of dates when
/// every field is, and there is one.
Data withTypes(Table const& table, TypeRules const& rules, std::string const& label);
/// The type that the rules and its cells give to one column.
ColumnType typeOf(TypeRules const& rules, QX::Table const& table, std::size_t column);
/// What became of `from`: a table whose columns have types as in there, going by the rules of it.
Data derived(Data const& from, Table const& table);
/// The same where the types are known.
Data derived(Data const& from, Table const& table, std::vector<ColumnType> const& types);

/// All names, in order.
std::vector<std::string> namesOf(Data const& data);
/// The number of the first column of a name. Raises Failure with what may have been meant.
std::size_t columnOf(Data const& data, std::string const& name);
/// The numbers of columns of several names.
Positions columnsOf(Data const& data, std::vector<std::string> const& names);
/// All columns, or all data rows.
Positions allColumns(Data const& data);
Positions allRows(Data const& data);
/// The cell that names a column.
QX::Cell nameCell(std::string_view name);

/// The given rows, in that order.
Data pickRows(Data const& data, Positions const& rows);
/// The given columns, in that order, under their names or those of `names` where these are not empty.
Data pickColumns(Data const& data, Positions const& columns, std::vector<std::string> const& names = {});
/// The table of data that nobody else reads afterwards, to be changed in place.
QX::Ptr<QX::Table> takenTable(Data const& data);
/// Adds a column of all but its name.
void addColumn(QX::Table& table, std::string_view name, std::vector<QX::Cell>&& cells);

/// The number that a cell holds or its text is, see numberIn().
std::optional<double> numberOf(QX::Cell const& cell);
/// The text of a cell: as it was read, and numbers with all their digits. Lives as long as the cell and
/// `buffer`.
std::string_view textOf(QX::Cell const& cell, std::string& buffer);
std::string textOf(QX::Cell const& cell);

} // namespace qxtab
