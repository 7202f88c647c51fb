// Each fast way gives what the plain way gives.

#include "generated.h"
#include "table/model/bodies.h"
#include "table/model/namelookup.h"
#include "table/rows/rowdistinct.h"
#include "table/rows/rowmatch.h"
#include "table/rows/roworder.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace QX {
namespace {

using Cells = Generator::Cells;

std::string listed(Cells const& cells) {
    std::string all;
    for (Cell const& cell : cells) {
        all += exact(cell) + "; ";
    }
    return all;
}

TEST(FastPath, HashesSpreadNumbersWhicheverBitsTellThemApart) {
    for (unsigned place = 0; place <= 54; ++place) { // high bits alone tell small whole doubles apart
        std::vector<int> filed(1024);
        for (std::uint64_t number = 0; number < filed.size(); ++number) {
            ++filed[MatchHash::ofProcess().ofWord(number << place) % filed.size()];
        }
        EXPECT_LT(*std::max_element(filed.begin(), filed.end()), 16) << place;
    }
}

/// Words to look up, under hashes of the test's own.
struct CountedKey {
    bool equals(std::size_t k) const { return compare(k) == 0; }
    int compare(std::size_t k) const {
        ++steps;
        return words[k] < word ? 1 : words[k] > word ? -1 : 0;
    }

    std::uint64_t hash;
    std::uint64_t word;
    std::vector<std::uint64_t> const& words;
    std::size_t& steps;
};

TEST(RowIndex, TakesFewStepsWhateverTheHashesAre) {
    std::size_t const count = 20000;
    std::vector<std::uint64_t> words(count);
    std::iota(words.begin(), words.end(), std::uint64_t{0});
    struct {
        char const* hashes;
        std::uint64_t (*hash)(std::uint64_t);
    } const cases[] = {
        {"all different", [](std::uint64_t word) { return word * 0x9E3779B97F4A7C15U >> 7U; }},
        {"one", [](std::uint64_t) { return std::uint64_t{7}; }},
        {"of one slot", [](std::uint64_t word) { return word << 40U; }},
        {"in a row", [](std::uint64_t word) { return word / 2; }},
    };
    for (auto const& each : cases) {
        SCOPED_TRACE(each.hashes);
        for (RowIndex::Kind const kind : {RowIndex::Kind::HashTable, RowIndex::Kind::Tree}) {
            std::size_t steps = 0;
            auto const key = [&](std::uint64_t word) {
                return CountedKey{each.hash(word), word, words, steps};
            };
            RowIndex index(16, kind);
            std::size_t taken = 0;
            for (; taken < count && !index.full(); ++taken) {
                std::size_t const number = index.insert(key(taken), taken);
                ASSERT_EQ(number, index.full() ? RowIndex::none : taken);
            }
            ASSERT_TRUE(!index.full() || kind == RowIndex::Kind::HashTable);
            for (std::size_t k = 0; k < count && !index.full(); ++k) {
                ASSERT_EQ(index.find(key(k)), k);
                ASSERT_EQ(index.insert(key(k), count + k), k);
                ASSERT_EQ(index.find(key(count + k)), RowIndex::none);
            }
            EXPECT_LT(steps, kind == RowIndex::Kind::Tree ? count * 4 * 20 : count * 2 + 100);
        }
    }
}

TEST(FastPath, FindsRowsByKeys) {
    Generator make(1);
    std::size_t found = 0;
    for (int round = 0; round < 6000; ++round) {
        Cells const pool = make.pool(make.below(4) == 0);
        Cells const cells = make.column(pool, make.below(12));
        Cells const values = make.column(pool, make.below(12));
        ColumnView const column(cells, cells.size() + make.below(3),
                                TableImplementation::sharedEmptyCell());
        ColumnView const sought(values, values.size() + make.below(3),
                                TableImplementation::sharedEmptyCell());
        Rows const plain = rowsByComparing(column, sought);
        found += plain.size();
        ASSERT_EQ(rowsByKeys(column, sought), plain) << listed(cells) << " / " << listed(values);
        ASSERT_EQ(rowsOfValues(column, sought), plain) << listed(cells) << " / " << listed(values);
    }
    EXPECT_GT(found, 10000U);
}

TEST(FastPath, OrdersRows) {
    Generator make(2);
    std::size_t repeated = 0;
    for (int round = 0; round < 20000; ++round) {
        Cells const cells = make.column(make.pool(make.below(4) == 0), 1 + make.below(14));
        ColumnView const column(cells, cells.size() + make.below(3),
                                TableImplementation::sharedEmptyCell());
        Rows rows;
        for (std::size_t n = make.below(20); n > 0 && column.items() > 1; --n) {
            rows.push_back(1 + make.below(column.items() - 1)); // a row may be there twice
        }
        for (bool const ascending : {true, false}) {
            Rows const plain = orderedByComparing(column, rows, ascending);
            ASSERT_EQ(ordered({column}, rows, ascending), plain) << listed(cells);
            repeated += plain.size() > rows.size() ? 1 : 0;
        }
    }
    EXPECT_GT(repeated, 1000U);
}

TEST(FastPath, OrdersManyRowsWithOddOnes) {
    Generator make(8);
    for (int round = 0; round < 8; ++round) { // so many values take more than one chunk
        Cells cells = make.column({Cell()}, 5000);
        for (Cell& cell : cells) {
            cell = Cell(static_cast<double>(make.below(9000)) / 8);
        }
        for (Cell const& odd : make.column(make.pool(false), 6)) {
            cells[make.below(cells.size())] = odd;
        }
        cells[make.below(cells.size())] = Cell("1970-02-03");
        ColumnView const column(cells, cells.size(), TableImplementation::sharedEmptyCell());
        Rows rows(cells.size() - 1);
        std::iota(rows.begin(), rows.end(), std::size_t{1});
        bool const ascending = make.flip();
        ASSERT_EQ(ordered({column}, rows, ascending), orderedByComparing(column, rows, ascending));
    }
}

TEST(FastPath, OrdersRowsByManyKeys) {
    Generator make(5);
    for (int round = 0; round < 1500; ++round) {
        bool const large = round % 100 == 0; // enough rows to be sorted byte by byte
        std::size_t const height = large ? 3000 : 2 + make.below(30);
        std::vector<Cells> cells;
        for (std::size_t n = 1 + make.below(3); n > 0; --n) {
            Cells pool = make.pool(make.below(4) != 0);
            std::string const street = "Warszawa-Praga, ulica Targowa";
            for (std::string const& text : {street, street + " 15/17", street + " 15/19 c",
                                            street + '\0', street + " 15/17", street.substr(0, 8)}) {
                pool.emplace_back(Str(text));
            }
            cells.push_back(make.column(pool, height));
        }
        Rows rows(height - 1);
        std::iota(rows.begin(), rows.end(), std::size_t{1});
        bool const ascending = make.flip();
        std::vector<ColumnView> keys;
        for (Cells const& each : cells) {
            keys.emplace_back(each, height, TableImplementation::sharedEmptyCell());
        }
        Rows plain = rows;
        for (std::size_t k = keys.size(); k-- > 0;) {
            plain = orderedByComparing(keys[k], plain, ascending);
        }
        ASSERT_EQ(ordered(keys, rows, ascending), plain) << listed(cells.front());
    }
}

TEST(FastPath, ComparesNestedTablesAsItDoesTheirOwners) {
    Generator make(7);
    int equal = 0;
    for (int round = 0; round < 6000; ++round) {
        Cells pool = make.pool(make.flip());
        for (char const* name : {"name", "Name", "a name of 16 bytes"}) {
            pool.emplace_back(Str(name));
        }
        Ptr<Table> const left = make.table(pool, make.below(4), make.below(4));
        Ptr<Table> const right = left->clone();
        if (make.flip() && right->items(0) > 0) {
            right->at(make.below(right->indices()), make.below(4)) = pool[make.below(pool.size())];
        }
        bool const flag = make.flip();
        Ptr<Table> const owners = brief("x");
        Ptr<Table> const others = brief("x");
        owners->at("x", 1) = left;
        others->at("x", 1) = right;
        Ptr<Table> differences;
        Ptr<Table> nested;
        (void)left->compare(right, differences, flag);
        (void)owners->compare(others, nested, flag);
        for (std::size_t j = 1; j < differences->items(0); ++j) {
            std::string const place = text(differences->get(0, j));
            differences->at(0, j) = Cell(Str((place.front() == '/' ? "/x[1]" : "") + place));
        }
        ASSERT_EQ(exact(*nested), exact(*differences)) << exact(*left) << "----\n" << exact(*right);
        ASSERT_EQ(owners->match(others, false), left->match(right, false));
        equal += nested->indices() == 0 ? 1 : 0;
    }
    EXPECT_GT(equal, 3000);
}

Rows distinctPlainly(Table const& table) {
    Rows kept{0};
    for (std::size_t j = 1; j < table.items(0); ++j) {
        bool const repeats = std::any_of(kept.begin(), kept.end(), [&](std::size_t earlier) {
            std::size_t i = 0;
            while (i < table.indices() && table.get(i, earlier).compare(table.get(i, j), false)) {
                ++i;
            }
            return i == table.indices();
        });
        if (!repeats) {
            kept.push_back(j);
        }
    }
    kept.erase(kept.begin());
    return kept;
}

TEST(FastPath, FindsDistinctRows) {
    Generator make(3);
    std::size_t dropped = 0;
    for (int round = 0; round < 8000; ++round) {
        std::size_t const items = round % 1000 == 0 ? 5000 : make.below(20); // repeats come by thousands
        Ptr<Table> const t = make.table(make.pool(make.below(4) == 0), make.below(4), items);
        TableImplementation const& body = bodyOf(*t);
        Rows const plain = distinctPlainly(*t);
        dropped += t->items(0) - plain.size();
        ASSERT_EQ(distinctRows(body.views()), plain) << exact(*t);
        ASSERT_EQ(distinctByComparing(body.views()), plain) << exact(*t);
    }
    EXPECT_GT(dropped, 10000U);
}

std::string displayed(Cell const& cell) {
    std::ostringstream os;
    os.precision(17);
    os << cell;
    return os.str();
}

TEST(FastPath, FindsRowsThatDisplayAlike) {
    Generator make(4);
    for (int round = 0; round < 3000; ++round) {
        std::size_t const items = round % 1000 == 0 ? 5000 : make.below(16);
        Ptr<Table> const t = make.table(make.pool(make.flip()), make.below(4), items);
        Ptr<Table> result;
        (void)t->append(Ptr<Table>(new Table), result, false, true);
        std::set<std::string> seen;
        Table expected;
        for (std::size_t j = 0; j < t->items(0); ++j) {
            std::string key;
            for (std::size_t i = 0; i < t->indices(); ++i) {
                key += ":" + displayed(t->get(i, j));
            }
            for (std::size_t i = 0; i < t->indices() && seen.count(key) == 0; ++i) {
                expected.at(i, Table::npos) = t->get(i, j);
            }
            seen.insert(key);
        }
        ASSERT_EQ(exact(*result), exact(expected)) << exact(*t);
    }
}

TEST(FastPath, FindsNames) {
    Generator make(5);
    int found = 0;
    for (int round = 0; round < 400; ++round) {
        Cells const pool = make.pool(false);
        Ptr<Table> const t = make.table(pool, make.below(30), 2);
        Ptr<TableImplementation> const body = TableBodies::data(*t);
        NameLookup lookup(*body);
        for (int step = 0; step < 60; ++step) {
            Cell const& name = pool[make.below(pool.size())];
            ASSERT_EQ(lookup.find(name), body->findIndex(name)) << exact(*t) << " / " << exact(name);
            found += body->findIndex(name) == Table::npos ? 0 : 1;
            std::size_t const i = make.below(body->indices() + 1);
            if (i == body->indices()) {
                body->addSized(pool[make.below(pool.size())], 1);
            } else if (body->columns()[i].size() > 0) {
                Cell const former = body->get(i, 0);
                body->at(i, 0) = pool[make.below(pool.size())];
                lookup.renamed(i, former);
            }
        }
    }
    EXPECT_GT(found, 5000);
}

TEST(IndexNames, FindWhatAPlainSearchFinds) {
    Generator make(9);
    for (int round = 0; round < 60; ++round) {
        Cells pool = make.pool(make.flip());
        for (int n = 0; n < 300; ++n) {
            pool.push_back(
                Cell(Str((n % 2 == 0 ? "n" : "a name that takes a body, ") + std::to_string(n))));
        }
        Ptr<Table> const t = make.table(pool, 20 + make.below(80), 2);
        std::vector<Cell*> names; // references that hold until an index is added
        for (int step = 0; step < 3000; ++step) {
            Cell const& name = pool[make.below(pool.size())];
            std::size_t const i = make.below(t->indices());
            bool const growing = t->indices() < 300;
            switch (make.below(round % 2 == 0 ? 12 : 200)) {
            case 0:
                if (growing) {
                    names = {&t->at(t->indices() + make.below(2), make.below(2))};
                }
                break;
            case 1:
                if (growing) {
                    names.clear();
                    t->at(Str(text(name)), make.below(2));
                }
                break;
            case 2:
                names.push_back(&t->at(i, 0));
                break;
            case 3:
                if (length(*t, i) == 0) {
                    t->at(i, 1) = name; // the index gets a name, too, an empty one
                }
                break;
            case 4:
                if (!names.empty()) {
                    *names[make.below(names.size())] = name;
                }
                break;
            default:
                Cell const sought = Cell(Str(text(name)));
                std::size_t k = 0;
                while (k < t->indices() &&
                       (length(*t, k) == 0 || !t->get(k, 0).compare(sought, false))) {
                    ++k;
                }
                ASSERT_EQ(bodyOf(*t).findIndex(sought), k < t->indices() ? k : Table::npos)
                    << exact(sought);
                ASSERT_EQ(&t->get(Str(text(name)), 0), &t->get(k, 0));
            }
        }
    }
}

#if defined(QX_SWITCHABLE_FAST_PATHS)

/// All that the operations on rows make of two tables.
std::string resultsOf(Ptr<Table> const& left, Ptr<Table> const& right, bool flag) {
    Ptr<Table> const keys(new Table);
    for (std::size_t i = 0; i < left->indices() && i < 2; ++i) {
        keys->at(i, 0) = left->get(i, 0);
    }
    std::string all;
    Ptr<Table> result;
    auto const note = [&](Status const& status) {
        all += text(Cell(status));
        all += result ? exact(*result) : "nothing";
    };
    note(left->filter(right, result, flag, false));
    note(left->filter(right, result, flag, true));
    note(left->sort(keys, result, flag));
    note(left->select(keys, result, flag, true, false));
    note(left->select(keys, result, flag, true, true));
    note(left->append(right, result, flag, true));
    note(left->merge(right, result, true));
    note(left->overlay(right, result, flag, !flag, flag));
    note(left->compare(right, result, flag));
    return all;
}

TEST(FastPath, OperationsGiveTheSameWithoutAny) {
    Generator make(10);
    for (int round = 0; round < 400; ++round) {
        Cells pool = make.pool(make.below(3) == 0);
        std::erase_if(pool, [](Cell const& cell) { return cell.isA() == Cell::TableCell; });
        pool.emplace_back("key"); // overlay makes new tables, so there is none in the pool
        std::size_t const width = make.below(3) == 0 ? 40 : 4;
        Ptr<Table> const left = make.table(pool, make.below(width), make.below(12));
        Ptr<Table> const right = make.table(pool, make.below(width), make.below(6));
        bool const flag = make.flip();
        std::string const fast = resultsOf(left, right, flag);
        FastPaths::taken = false;
        std::string const plain = resultsOf(left, right, flag);
        FastPaths::taken = true;
        ASSERT_EQ(fast, plain) << exact(*left) << "----\n" << exact(*right);
    }
}

#endif

// The operations by their steps, a name looked up from the first index on each time.

std::size_t findPlainly(Table const& table, Cell const& name) {
    for (std::size_t i = 0; i < table.indices(); ++i) {
        if (length(table, i) > 0 && table.get(i, 0).compare(name, false)) {
            return i;
        }
    }
    return Table::npos;
}

Cell nameByText(Cell const& name) {
    Str text;
    (void)name.get(text, 0);
    return name.isA() == Cell::StringCell ? name : Cell(text);
}

/// Lays the items of index k of `source`, from item `from` on, over index i of `result`, at item `at`
/// on.
void lay(Table& result, std::size_t i, std::size_t at, Table const& source, std::size_t k,
         std::size_t from) {
    for (std::size_t j = source.items(0); j-- > from;) {
        result.at(i, at + j - from) = source.get(k, j);
    }
}

Ptr<Table> rectangle(Table const& table) {
    Ptr<Table> copy(new Table);
    for (std::size_t i = 0; i < table.indices(); ++i) {
        lay(*copy, i, 0, table, i, 0);
    }
    return copy;
}

Ptr<Table> mergePlainly(Table const& left, Table const& right) {
    Ptr<Table> const result = rectangle(left);
    for (std::size_t k = 0; k < right.indices(); ++k) {
        lay(*result, std::min(findPlainly(*result, right.get(k, 0)), result->indices()), 0, right, k, 0);
    }
    return result;
}

Ptr<Table> appendPlainly(Table const& left, Table const& right) {
    Ptr<Table> const result = rectangle(left);
    std::size_t const base = std::max<std::size_t>(result->items(0), 1);
    for (std::size_t k = 0; k < right.indices(); ++k) {
        Cell const name = nameByText(right.get(k, 0));
        if (findPlainly(*result, name) == Table::npos) {
            result->at(Table::npos, 0) = name;
        }
        lay(*result, findPlainly(*result, name), base, right, k, 1);
    }
    return result;
}

Ptr<Table> overlayPlainly(Table const& left, Table const& right) {
    Ptr<Table> const result = rectangle(left);
    for (std::size_t k = right.indices(); k-- > 0;) {
        std::size_t const target = std::min(findPlainly(left, right.get(k, 0)), result->indices());
        for (std::size_t j = right.items(0); j-- > 0;) {
            if (!right.get(k, j).empty()) {
                result->at(target, j) = right.get(k, j);
            }
        }
    }
    return result;
}

Ptr<Table> selectPlainly(Table const& left, Table const& names, bool invert) {
    Ptr<Table> result(new Table);
    Table const& from = invert ? left : names;
    for (std::size_t k = 0; k < from.indices(); ++k) {
        Cell const name = invert ? nameByText(from.get(k, 0)) : from.get(k, 0);
        if (invert && names.get(findPlainly(names, name), 0).isA() != Cell::EmptyCell) {
            continue;
        }
        std::size_t const r = result->indices();
        std::size_t const match = findPlainly(left, nameByText(name));
        result->at(r, 0) = name;
        if (match != Table::npos) {
            lay(*result, r, 1, left, match, 1);
            bool const renames = !invert && !names.get(k, 1).empty();
            result->at(r, 0) = renames ? names.get(k, 1) : name;
        }
    }
    return result;
}

void walkPlainly(Table const& near, Table const& far, bool first, Table& result) {
    for (std::size_t i = 0; i < near.indices(); ++i) {
        std::string const name = text(near.get(i, 0));
        std::size_t const position = i < far.indices() ? i : Table::npos;
        std::size_t const k = name.empty() ? position : findPlainly(far, nameByText(near.get(i, 0)));
        for (std::size_t j = 0; j < near.items(0); ++j) {
            Cell const& a = near.get(i, j);
            bool const lacking = k == Table::npos || j >= far.items(0);
            Cell const b = lacking ? Cell("missing") : far.get(k, j);
            if (lacking ? !a.empty() : first && !a.compare(b, false)) {
                result.at("Xpath", Table::npos) =
                    Cell(Str((name.empty() ? "" : "/" + name) + "[" + std::to_string(j) + "]"));
                result.at("Left", Table::npos) = first ? a : b;
                result.at("Right", Table::npos) = first ? b : a;
            }
        }
    }
}

Ptr<Table> comparePlainly(Table const& left, Table const& right) {
    Ptr<Table> const result = brief("Xpath | Left | Right");
    walkPlainly(left, right, true, *result);
    walkPlainly(right, left, false, *result);
    return result->items(0) < 2 ? brief("") : result;
}

TEST(FastPath, OperationsOnManyNamesKeepToTheirSteps) {
    Generator make(6);
    for (int round = 0; round < 200; ++round) {
        Cells pool = make.pool(round % 4 == 0);
        for (int n = 0; n < 6; ++n) {
            pool.push_back(Cell(Str("name " + std::to_string(make.below(30)))));
        }
        std::erase_if(pool, [](Cell const& cell) { return cell.isA() == Cell::TableCell; });
        Ptr<Table> const left = make.table(pool, make.below(40), 3);
        Ptr<Table> const right = make.table(pool, make.below(40), 2);
        SCOPED_TRACE(exact(*left) + "----\n" + exact(*right));
        Ptr<Table> result;
        (void)left->merge(right, result, true);
        ASSERT_EQ(exact(*result), exact(*mergePlainly(*left, *right)));
        (void)left->append(right, result, true, false);
        ASSERT_EQ(exact(*result), exact(*appendPlainly(*left, *right)));
        (void)left->overlay(right, result, false, false, true);
        ASSERT_EQ(exact(*result), exact(*overlayPlainly(*left, *right)));
        for (bool const invert : {false, true}) {
            (void)left->select(right, result, true, false, invert);
            ASSERT_EQ(exact(*result), exact(*selectPlainly(*left, *right, invert)));
        }
        (void)left->compare(right, result, false);
        ASSERT_EQ(exact(*result), exact(*comparePlainly(*left, *right)));
        ASSERT_EQ(left->match(right, false), result->indices() == 0);
    }
}

} // namespace
} // namespace QX
