#include "commands.h"
#include "failure.h"
#include "journal.h"
#include "listoption.h"
#include "names.h"
#include "writer.h"

namespace qxtab {

namespace {

bool isNumber(QX::Cell const& cell) {
    return cell.isA() == QX::Cell::NumericCell;
}

// Marks the positions where both hold numbers, except in the names, which may be numbers, too.
QX::Ptr<QX::Table const> numberTemplate(QX::Table const& left, QX::Ptr<QX::Table const> const& right) {
    QX::Ptr<QX::Table> marks;
    require(left.makeTemplate(right, marks));
    for (std::size_t i = 0; i < marks->indices(); ++i) {
        marks->at(i, 0) = QX::Cell();
    }
    return marks;
}

double total(QX::Ptr<QX::Table const> const& table) {
    double sum = 0;
    require(table->unaryOperation("+", numberTemplate(*table, table), sum));
    return sum;
}

void addSumOptions(CLI::App& app, Options& options) {
    addList(app, "--columns", options.operand, readNames, "One sum for each of these indices: a,b");
}

QX::Ptr<QX::Table const> oneIndex(Input const& input, std::string const& name) {
    if (!hasIndex(*input.table, name)) {
        throw Failure(missing(input, name));
    }
    QX::Ptr<QX::Table> const names(new QX::Table());
    names->at(0, 0) = QX::Cell(QX::Str(name));
    QX::Ptr<QX::Table> index;
    require(input.table->select(names, index, false, false, false));
    return index;
}

// A sum that leaves out a text such as "n/a" or "1,5" may not be what was wanted.
void tellTexts(Input const& input, QX::Table const& index) {
    std::size_t texts = 0;
    std::size_t const items = index.items(0);
    for (std::size_t j = 1; j < items; ++j) {
        QX::Cell const& cell = index.get(0, j);
        texts += cell.empty() || isNumber(cell) ? 0 : 1;
    }
    if (texts > 0) {
        tell(input.file + ": cells of \"" + nameText(index, 0) +
             "\" that are no numbers: " + std::to_string(texts));
    }
}

Outcome sum(Options const& options, Inputs const& inputs) {
    Input const& input = inputs.front();
    QX::Ptr<QX::Table> const sums(new QX::Table("sum"));
    if (!options.operand) {
        sums->at(0, 0) = QX::Cell(QX::Str("sum"));
        sums->at(0, 1) = QX::Cell(total(input.table));
        return {sums};
    }
    for (std::size_t k = 0; k < options.operand->indices(); ++k) {
        QX::Ptr<QX::Table const> const index = oneIndex(input, nameText(*options.operand, k));
        tellTexts(input, *index);
        sums->at(k, 0) = index->get(0, 0);
        sums->at(k, 1) = QX::Cell(total(index));
    }
    return {sums};
}

void checkShape(Input const& left, Input const& right) {
    auto const checkCount = [&](std::size_t a, std::size_t b, char const* what) {
        if (a != b) {
            throw Failure(left.file + " and " + right.file + " need the same number of " + what +
                          ", and have " + std::to_string(a) + " and " + std::to_string(b));
        }
    };
    checkCount(left.table->indices(), right.table->indices(), "indices");
    checkCount(dataRows(*left.table), dataRows(*right.table), "data rows");
}

// Positions count here, not names: indices in another order combine what they should not.
void tellNames(Input const& left, Input const& right) {
    for (std::size_t i = 0; i < left.table->indices(); ++i) {
        std::string const a = nameText(*left.table, i);
        std::string const b = nameText(*right.table, i);
        if (a != b) {
            tell("index " + std::to_string(i) + " is \"" + a + "\" in " + left.file + " and \"" + b +
                 "\" in " + right.file);
        }
    }
}

// A number that meets no other one looks like a result, but is none.
void tellSingles(Input const& left, Input const& right) {
    std::size_t const rows = dataRows(*left.table);
    std::size_t singles = 0;
    for (std::size_t i = 0; i < left.table->indices(); ++i) {
        for (std::size_t j = 1; j <= rows; ++j) {
            singles += isNumber(left.table->get(i, j)) != isNumber(right.table->get(i, j)) ? 1 : 0;
        }
    }
    if (singles > 0) {
        tell("cells that are a number in only one of " + left.file + " and " + right.file +
             ", and stay as in the first: " + std::to_string(singles));
    }
}

Outcome combine(Inputs const& inputs, char const* op) {
    Input const& left = inputs[0];
    Input const& right = inputs[1];
    checkShape(left, right);
    tellNames(left, right);
    tellSingles(left, right);
    QX::Ptr<QX::Table> result;
    require(left.table->operation(right.table, op, numberTemplate(*left.table, right.table), result));
    return {result};
}

Outcome add(Options const&, Inputs const& inputs) {
    return combine(inputs, "+");
}

Outcome subtract(Options const&, Inputs const& inputs) {
    return combine(inputs, "-");
}

char const* const combineHelp =
    "Cells are paired by position. Where both hold numbers the result holds theirs,\n"
    "elsewhere, and in the names, the first file's cell. Both files must have the same\n"
    "number of indices and of rows. Names that differ are told, and numbers in one file only.";

} // namespace

Command const sumCommand = {
    "sum",
    "Sum the numbers",
    "Names don't count, nor do cells that are no numbers. The sum is printed with as many\n"
    "digits as it takes to read the same number again.",
    1,
    1,
    addSumOptions,
    sum,
};

Command const addCommand = {
    "add", "Add the numbers of two files cell by cell", combineHelp, 2, 2, nullptr, add,
};

Command const subtractCommand = {
    "subtract",  "Subtract the numbers of the second file from those of the first cell by cell",
    combineHelp, 2,
    2,           nullptr,
    subtract,
};

} // namespace qxtab
