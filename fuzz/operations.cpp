// A stream of calls on a few tables, whose results are the operands of later calls.

#include "fuzz/cellmaker.h"
#include "fuzz/require.h"

#include <array>
#include <new>
#include <sstream>
#include <stdexcept>

namespace QX {
namespace {

/// The printed form of a table, or that it has none.
std::string displayed(Table const& table) {
    std::ostringstream os;
    os.precision(17);
    try {
        table.display(os);
    } catch (Except const&) {
        return "contains itself";
    }
    return os.str();
}

/// A few tables, some of them perhaps none, and the calls on them.
class Stream {
public:
    explicit Stream(Bytes& bytes) : bytes_(bytes), make_(bytes) {}
    Stream(Stream const&) = delete;
    Stream& operator=(Stream const&) = delete;
    /// Empties every table, since one that contains itself would never be released.
    ~Stream() {
        for (Ptr<Table> const& table : all_) {
            for (std::size_t i = 0; i < table->indices(); ++i) {
                for (std::size_t j = 0; j < bodyOf(*table).columns()[i].size(); ++j) {
                    table->at(i, j) = Cell();
                }
            }
            table->setAttributes(nullptr);
        }
    }

    void run() {
        for (int steps = 0; steps < 60 && !bytes_.empty(); ++steps) {
            bool const changes = bytes_.flip();
            try {
                changes ? change() : operate();
            } catch (Except const& e) {
                require(e.report().line() > 0, "where a raise is from");
            } catch (std::length_error const&) {
            } catch (std::bad_alloc const&) {
            }
        }
    }

private:
    /// One of the tables, a new one where there is none or where it has become vast. Names grow, too:
    /// the result of merging has both.
    Ptr<Table>& any() {
        Ptr<Table>& table = tables_[bytes_.below(tables_.size())];
        if (!table || isVast(*table) || table->name().size() > 200) {
            keep(table, bytes_.flip() ? make_.table(5, 5) : Ptr<Table>(new Table("new")));
        }
        return table;
    }
    void keep(Ptr<Table>& place, Ptr<Table> const& table) {
        place = table;
        all_.push_back(table);
    }
    Str path() {
        static char const* const steps[] = {"a", "b[2]", "a[0]", "c[x]", "", "7"};
        std::string text;
        for (std::size_t n = bytes_.below(4); n > 0; --n) {
            text += '/';
            text += steps[bytes_.below(std::size(steps))];
        }
        return text;
    }
    std::size_t position() {
        static std::size_t const far[] = {Table::npos, Table::npos - 1, 1'000'000'000};
        std::size_t const place = bytes_.below(64);
        return place < 61 ? place % 12 : far[place - 61];
    }

    /// A cell to be stored in a table; now and then one that holds another table of the stream, or this
    /// one.
    Cell cell() { return bytes_.below(3) > 0 ? make_.cell() : Cell(any()); }

    void change() {
        Ptr<Table> const table = any();
        switch (bytes_.below(9)) {
        case 0:
            grow(*table);
            break;
        case 1:
            table->at(position(), position(), cell());
            break;
        case 2:
            table->at(names_[bytes_.below(std::size(names_))], position(), cell());
            break;
        case 3:
            table->atXPath(path(), bytes_.flip());
            break;
        case 4:
            (void)table->setAttribute(path(), Cell(any()));
            break;
        case 5:
            table->setAttributes(any());
            break;
        case 6:
            keep(tables_[bytes_.below(tables_.size())], Ptr<Table>(new Table(*table)));
            break;
        case 7:
            keep(tables_[bytes_.below(tables_.size())], table->getAttributes());
            break;
        default: {
            Ptr<Table> inner;
            if (table->get(position(), position()).get(inner).ok()) {
                keep(tables_[bytes_.below(tables_.size())], inner);
            }
        }
        }
    }

    /// A position that can't be reached leaves the table as it was.
    void grow(Table& table) {
        std::string const before = displayed(table);
        try {
            table.at(position(), position());
        } catch (std::exception const&) {
            require(displayed(table) == before, "growth that fails changes nothing");
        }
    }

    /// An operation never changes its inputs.
    void operate() {
        Ptr<Table> const left = any();
        Ptr<Table> const right = any();
        std::string const leftBefore = displayed(*left);
        std::string const rightBefore = displayed(*right);
        Ptr<Table>& place = tables_[bytes_.below(tables_.size())];
        Ptr<Table> result = place;
        Ptr<Table> const former = result;
        std::string const formerBefore = former && !isVast(*former) ? displayed(*former) : "";
        try {
            call(*left, right, result);
        } catch (...) {
            checkOutcome(*left, leftBefore, *right, rightBefore, former, formerBefore);
            keepResult(place, result);
            throw;
        }
        checkOutcome(*left, leftBefore, *right, rightBefore, former, formerBefore);
        keepResult(place, result);
    }
    static void checkOutcome(Table const& left, std::string const& leftBefore, Table const& right,
                             std::string const& rightBefore, Ptr<Table> const& former,
                             std::string const& formerBefore) {
        require(displayed(left) == leftBefore, "an operation leaves this table as it was");
        require(displayed(right) == rightBefore, "an operation leaves its operand as it was");
        require(formerBefore.empty() || displayed(*former) == formerBefore,
                "an operation never writes to the former result");
    }
    void keepResult(Ptr<Table>& place, Ptr<Table> const& result) {
        if (result) {
            keep(place, result);
        }
    }

    void call(Table const& left, Ptr<Table> const& right, Ptr<Table>& result) {
        std::size_t const which = bytes_.below(18);
        bool const a = bytes_.flip();
        bool const b = bytes_.flip();
        bool const c = bytes_.flip();
        double total = 0;
        Cell value;
        switch (which) {
        case 0:
            require(left.merge(right, result, a).ok(), "merge returns Ok");
            break;
        case 1:
            (void)left.fill(right, result, static_cast<int>(bytes_.below(30)) - 2);
            break;
        case 2:
            require(left.append(right, result, a, b).ok(), "append returns Ok");
            break;
        case 3:
            require(left.overlay(right, result, a, b, c).ok(), "overlay returns Ok");
            break;
        case 4:
            (void)left.select(right, result, a, b, c);
            break;
        case 5:
            (void)left.filter(few(right), result, a, b);
            break;
        case 6:
            require(left.transpose(result).ok(), "transpose returns Ok");
            checkTransposed(left, *result);
            break;
        case 7:
            (void)left.sort(few(right), result, a);
            break;
        case 8:
            require(left.compare(right, result, a).ok(), "compare returns Ok");
            require(a || left.match(right, false) == (result->indices() == 0),
                    "match and compare agree");
            break;
        case 9:
            operateUnderTemplate(left, right, result);
            break;
        case 10:
            (void)left.operation(right, "-", any(), result);
            break;
        case 11:
            (void)left.makeTemplate(right, result);
            break;
        case 12:
            (void)left.unaryOperation(a ? "+" : "-", right, total);
            break;
        case 13:
            result = left.clone();
            checkCloned(left, *result);
            break;
        case 14:
            (void)left.check();
            break;
        case 15:
            require(left.XPath(path(), result).ok(), "XPath returns Ok");
            break;
        case 16:
            value = left.atXPath(path(), Cell());
            break;
        default:
            require(left.getAttribute(path(), value).ok(), "getAttribute returns Ok");
        }
    }

    /// An operand for operations that repeat rows, each condition or key anew.
    Ptr<Table> few(Ptr<Table> const& table) {
        return table->indices() * table->items(0) > 8 ? make_.table(2, 4) : table;
    }
    void operateUnderTemplate(Table const& left, Ptr<Table> const& right, Ptr<Table>& result) {
        Ptr<Table> templ;
        if (left.makeTemplate(right, templ).ok()) {
            require(left.operation(right, "+", templ, result).ok(), "what a template was made for");
            double total = 0;
            require(left.unaryOperation("+", templ, total).ok(), "the sum under a template");
        }
    }
    static void checkTransposed(Table const& table, Table const& turned) {
        for (std::size_t i = 0; i < table.indices(); ++i) {
            for (std::size_t j = 0; j < table.items(0); ++j) {
                require(turned.get(j, i).isA() == table.get(i, j).isA(), "transposed cells");
            }
        }
    }
    static void checkCloned(Table const& table, Table const& copy) {
        require(copy.items(0) == table.items(0), "items of a deep copy");
        require(copy.indices() == (table.items(0) == 0 ? 0 : table.indices()), "indices of a deep copy");
        require(displayed(copy) == displayed(*copy.clone()), "a copy of a copy");
    }

    static constexpr char const* names_[] = {"a", "b", "7", "", "[Empty]", "1970-01-02", "#Err: e"};

    Bytes& bytes_;
    CellMaker make_;
    std::array<Ptr<Table>, 5> tables_;
    std::vector<Ptr<Table>> all_; // every table that has been in tables_
};

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    QX::Bytes bytes(data, size);
    QX::Stream(bytes).run();
    return 0;
}
