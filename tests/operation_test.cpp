// What all whole-table operations have in common.

#include "growth.h"
#include "operations.h"

#include <functional>

namespace QX {
namespace {

char const* const leftForm = "A 1 {n X 5 } | B 3 4";

// The calls that these tests make; an operand that suits "A 1 {n X 5 } | B 3 4", "=" for that table
// itself; the name of the result of "t" and "u".
char const* const calls = R"(
    merge ; = ; t and u
    merge by name ; = ; t and u
    fill -1 ; A 7 | C 8 ; t and t
    append all ; = ; u and t
    append all distinct ; = ; u and t
    overlay items ; = ; u
    select keep ; A | B Z ; t
    select keep distinct ; A | B Z ; Distinct
    select keep invert ; A ; t
    filter ; B 4 3 ; t
    filter keep exclude ; B 4 3 | B 3 ; t
    sort ; B ; t
    compare ; A 2 | C 3 4 ; t and u
    operation + under - %D {p - %D } | - - %D ; A 10 {n X 6 } | B 1 2 ; + operation
    makeTemplate ; = ;
    transpose ; ; t
)";

struct Call {
    std::string text;
    std::string operand;
    std::string resultName;

    bool is(std::string const& operation) const { return text.starts_with(operation); }
    bool needsOperand() const { return !is("overlay") && !is("transpose"); }
    bool refusesItself() const { return is("append") || is("overlay"); }
    std::string onNull() const {
        return is("append") ? "raises No append table provided: " : "raises No operand table provided: ";
    }
};

void forEach(std::function<void(Call const&)> const& check) {
    for (Row const& row : rows(calls)) {
        SCOPED_TRACE(row.line);
        check({row[0], row[1] == "=" ? leftForm : row[1], row[2]});
    }
}

/// What a call gives for tables of its own.
std::string plain(Call const& call, std::string const& left, std::string const& right) {
    Ptr<Table> result;
    return told(call.text, *brief(left), brief(right, "u"), result);
}

TEST(TableOperations, MakeANewTableAndChangeNoOther) {
    forEach([](Call const& call) {
        Ptr<Table> const left = brief(leftForm);
        Ptr<Table> const right = brief(call.operand, "u");
        (void)left->setAttribute("mark", 1);
        (void)right->setAttribute("mark", 2);
        std::string const before = shown(*left) + shown(*right);
        Ptr<Table> const former = brief("r", "R");
        Ptr<Table> result = former;
        ASSERT_EQ(outcome(run(call.text, *left, right, result)), "Ok");
        EXPECT_EQ(trimmed(string(result->name())), call.resultName);
        EXPECT_NE(result.get(), former.get());
        EXPECT_EQ(result.useCount(), 1U);
        EXPECT_EQ(named(former), "R: r");
        EXPECT_EQ(shown(*left) + shown(*right), before);
        EXPECT_EQ(result->getAttributes()->indices(), 0U);
        EXPECT_TRUE(result->check());
    });
}

TEST(TableOperations, RaiseForANullOperand) {
    forEach([](Call const& call) {
        Ptr<Table> result = brief("r", "R");
        std::string const found = told(call.text, *brief(leftForm), nullptr, result);
        EXPECT_EQ(found == call.onNull() + "kept", call.needsOperand()) << found;
    });
    Ptr<Table> const t = brief("A 1");
    Ptr<Table> result = t;
    double total = 9;
    std::string const complaint = "No operand table provided";
    EXPECT_EQ(raised([&] { (void)t->operation(t, "+", nullptr, result); }), complaint);
    EXPECT_EQ(raised([&] { (void)t->unaryOperation("+", nullptr, total); }), complaint);
    EXPECT_EQ(raised([&] { (void)t->match(nullptr, false); }), complaint);
    EXPECT_EQ(total, 9);
    EXPECT_EQ(told("append", *t, nullptr, result), "raises No append table provided: kept")
        << "before the result is looked at";
}

TEST(TableOperations, MayReplaceTheLastHandleOfTheirInputs) {
    forEach([](Call const& call) {
        std::string const expected = plain(call, leftForm, call.operand);
        Ptr<Table> result = brief(call.operand, "u");
        Operand operand = result;
        Table const& right = *operand;
        (void)run(call.text, *brief(leftForm), operand, result);
        EXPECT_EQ(brief(*result), expected) << "result and operand";
        EXPECT_EQ(brief(right), brief(*brief(call.operand)));
        if (!call.refusesItself()) {
            result = brief(leftForm);
            (void)run(call.text, *result, operand, result);
            EXPECT_EQ(brief(*result), expected) << "result and this table";
        }
    });
}

TEST(TableOperations, AcceptThisTableAsOperand) {
    forEach([](Call const& call) {
        std::string const form = call.is("operation") ? leftForm : "A 1";
        Ptr<Table> const itself = brief(form);
        Ptr<Table> result;
        EXPECT_EQ(told(call.text, *itself, itself, result), plain(call, form, form));
    });
}

TEST(TableOperations, AppendAndOverlayRefuseThisTableAsResult) {
    Ptr<Table> const t = brief("A 1");
    forEach([&](Call const& call) {
        Ptr<Table> result(new Table(*t)); // another handle to the same data
        std::string const found = told(call.text, *t, brief("A 2"), result);
        EXPECT_EQ(found == "raises Result table cannot be same as 'this' table: kept",
                  call.refusesItself())
            << found;
        EXPECT_EQ(brief(*t), "A 1");
    });
}

TEST(TableOperations, ShareNestedTables) {
    forEach([](Call const& call) {
        if (call.is("overlay") || call.is("operation") || call.is("makeTemplate") || call.is("fill")) {
            return; // these put others there
        }
        Ptr<Table> const left = brief(leftForm);
        Ptr<Table> const inner = nested(left->get(0, 2));
        Ptr<Table> result;
        (void)run(call.text, *left, brief(call.is("select keep invert") ? "B" : call.operand), result);
        bool const replaced = call.is("merge by name") || call.is("filter keep exclude");
        bool found = false;
        for (std::size_t k = 0; k < result->indices() * result->items(0); ++k) {
            Cell const& cell = result->get(k % result->indices(), k / result->indices());
            found = found || nested(cell).get() == inner.get();
        }
        EXPECT_EQ(found, !replaced);
    });
}

TEST(TableOperations, TakeATableWithoutDataAsAnEmptyOne) {
    Ptr<Table> const without(new Table(Ptr<TableImplementation>()));
    forEach([&](Call const& call) {
        for (std::string const& form : {call.operand, std::string("A 1 | B"), std::string()}) {
            Ptr<Table> result;
            EXPECT_EQ(told(call.text, *without, brief(form, "u"), result), plain(call, "", form));
            result = nullptr;
            EXPECT_EQ(told(call.text, *brief(form), without, result), plain(call, form, ""));
        }
    });
    EXPECT_EQ(shown(*without), "Null table\n");
}

// Operands with `many` names each, in another order in the right one, and half of them in both.
struct ManyNames {
    explicit ManyNames(std::size_t many) {
        for (std::size_t i = 0; i < many; ++i) {
            left->at(i, 1) = Cell(1);
            left->at(i, 0) = Cell(Str("index " + std::to_string(i)));
            right->at(i, 1) = Cell(2);
            right->at(i, 0) = Cell(Str("index " + std::to_string(many + many / 2 - i)));
            names->at(i, 0) = right->get(i, 0);
        }
    }
    Ptr<Table> left = brief("");
    Ptr<Table> right = brief("");
    Ptr<Table> names = brief("");
};

// A walk along all names for each name would be quadratic.
TEST(TableOperations, FindManyNamesInLinearTime) {
    constexpr std::size_t few = 1000;
    ManyNames const small(few);
    ManyNames const large(16 * few);
    forEach([&](Call const& call) {
        if (call.is("filter") || call.is("sort") || call.is("operation")) {
            return; // these look up few names
        }
        expectLinearTime(few, [&](std::size_t size) {
            ManyNames const& many = size == few ? small : large;
            Ptr<Table> result;
            (void)run(call.text, *many.left, call.is("select") ? many.names : many.right, result);
        });
    });
}

/// A table that holds a handle to another one.
struct Holder : Table {
    using Table::Table;
    Ptr<Table const> operand;
};

TEST(TableOperations, MayDropTheLastHandleOfAnOperandWithTheFormerResult) {
    forEach([](Call const& call) {
        std::string const expected = plain(call, leftForm, call.operand);
        Ptr<Holder> holder(new Holder("holder"));
        holder->operand = brief(call.operand, "u");
        Ptr<Table const> const& operand = holder->operand; // goes with the former result
        Ptr<Table> result(holder);
        holder = nullptr;
        (void)run(call.text, *brief(leftForm), operand, result);
        EXPECT_EQ(brief(*result), expected);
    });
}

TEST(TableOperations, FindNamesMadeByTextCell) {
    for (std::size_t const more : {0U, 40U}) { // few indices, and many
        Ptr<Table> const t = brief("A 1 2");
        t->at(1, 0) = textCell("007");
        t->at(1, 1) = Cell(4);
        t->at(1, 2) = Cell(3);
        for (std::size_t i = 0; i < more; ++i) {
            t->at(2 + i, 0) = Cell(Str("n" + std::to_string(i)));
        }
        Ptr<Table> const operand = brief("");
        operand->at(0, 0) = textCell("007");
        Ptr<Table> result;
        EXPECT_TRUE(t->match(t, false));
        EXPECT_EQ(outcome(t->select(operand, result, false, false, false)), "Ok");
        EXPECT_EQ(result->indices(), 1U);
        EXPECT_EQ(outcome(t->select(operand, result, false, false, true)), "Ok");
        EXPECT_EQ(result->indices(), 1U + more);
        EXPECT_EQ(outcome(t->sort(operand, result, true)), "Ok");
        EXPECT_EQ(brief(result->get(1, 1)), "3");
        operand->at(0, 1) = Cell(4);
        (void)t->filter(operand, result, false, false);
        EXPECT_EQ(result->items(0), 2U);
        (void)t->append(operand, result, true, false);
        EXPECT_EQ(result->indices(), 2U + more);
        EXPECT_EQ(brief(result->get(1, 3)), "4");
    }
}

} // namespace
} // namespace QX
