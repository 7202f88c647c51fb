#include "commands.h"
#include "failure.h"
#include "journal.h"
#include "names.h"
#include "notices.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <map>
#include <string>

namespace qxtab {

namespace {

int const different = 1;
int const trouble = 2;

void addAppendOptions(CLI::App& app, Options& options) {
    app.add_flag("--add-indices", options.addIndices, "Add indices that the first file lacks");
    app.add_flag("--distinct", options.distinct, "Remove rows that repeat an earlier row");
}

/// Tells the indices whose values do not come behind those of the first file.
void tellLeftOut(QX::Table const& rows, Input const& further, bool addIndices) {
    std::map<std::string, std::size_t> last; // index of each name, which is the one that counts
    for (std::size_t i = 0; i < further.table->indices(); ++i) {
        last[nameText(*further.table, i)] = i;
    }
    Notices notices(further.file);
    for (std::size_t i = 0; i < further.table->indices(); ++i) {
        std::string const name = nameText(*further.table, i);
        if (last.at(name) != i) {
            notices.tell("index \"" + name + "\" is left out: a later one has its name");
        } else if (!addIndices && !hasIndex(rows, name)) {
            notices.tell("index \"" + name + "\" is left out (--add-indices keeps it)");
        }
    }
    notices.finish();
}

Outcome append(Options const& options, Inputs const& inputs) {
    QX::Ptr<QX::Table const> rows = inputs.front().table;
    for (std::size_t k = 1; k < inputs.size(); ++k) {
        tellLeftOut(*rows, inputs[k], options.addIndices);
        bool const distinct = options.distinct && k + 1 == inputs.size(); // once, over all rows
        QX::Ptr<QX::Table> longer;
        require(rows->append(inputs[k].table, longer, options.addIndices, distinct));
        rows = longer;
    }
    return {rows};
}

void addMergeOptions(CLI::App& app, Options& options) {
    app.add_flag("--by-name", options.byName, "Put an index over the first index of the same name");
}

Outcome merge(Options const& options, Inputs const& inputs) {
    QX::Ptr<QX::Table> result;
    require(inputs[0].table->merge(inputs[1].table, result, options.byName));
    return {result};
}

void addOverlayOptions(CLI::App& app, Options& options) {
    app.add_flag("--matched-only", options.matchedOnly, "Leave out indices that the lower file lacks");
    app.add_flag("--empty-overwrites", options.emptyOverwrites,
                 "Let empty cells replace what lies beneath");
    app.add_flag("--operand-items", options.operandItems,
                 "Lay as many rows as the upper file has, not as many as the lower has");
}

Outcome overlay(Options const& options, Inputs const& inputs) {
    QX::Ptr<QX::Table> result;
    require(inputs[0].table->overlay(inputs[1].table, result, options.matchedOnly,
                                     options.emptyOverwrites, options.operandItems));
    return {result};
}

void addCompareOptions(CLI::App& app, Options& options) {
    app.add_flag("--ignore-case", options.ignoreCase, "Take ASCII letters of both cases as equal");
}

Outcome compare(Options const& options, Inputs const& inputs) {
    QX::Ptr<QX::Table> differences;
    require(inputs[0].table->compare(inputs[1].table, differences, options.ignoreCase));
    return {differences, differences->indices() == 0 ? 0 : different};
}

} // namespace

Command const appendCommand = {
    "append",
    "Add the rows of further files below those of the first, index by index of the same name",
    "An index that a further file lacks gets no cells for its rows. One that the first\n"
    "lacks is left out, unless --add-indices. With --distinct rows that repeat an earlier\n"
    "row, as texts, are removed.",
    2,
    Command::anyNumber,
    addAppendOptions,
    append,
};

Command const mergeCommand = {
    "merge",
    "Put the indices of the second file behind those of the first",
    "With --by-name an index replaces the items of the first index whose name it equals, as\n"
    "many as the second file has; items beyond are kept.",
    2,
    2,
    addMergeOptions,
    merge,
};

Command const overlayCommand = {
    "overlay",
    "Lay the second file over the first, cell over cell, matching indices by name",
    "Empty cells leave what lies beneath, unless --empty-overwrites. Indices that the lower\n"
    "file lacks are added at the end, the last one first, unless --matched-only.",
    2,
    2,
    addOverlayOptions,
    overlay,
};

Command const compareCommand = {
    "compare",
    "List how the second file differs from the first, the left one",
    "One row for each difference: where (/NAME[ROW], row 0 being the names) and what is left\n"
    "and right. Indices are paired by name, those without one by position; rows by\n"
    "position. A position counts as \"missing\" on a side that has no such index or row.\n"
    "Numbers next to each other are equal.\n"
    "Exit code: 0 when nothing differs, 1 when something does, 2 for any trouble.",
    2,
    2,
    addCompareOptions,
    compare,
    trouble,
};

} // namespace qxtab
