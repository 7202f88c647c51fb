#include "brief.h"

namespace QX {
namespace {

struct ArithmeticCase {
    char const* left;
    char const* right;
    char const* op;
    char const* templ;
    char const* result;
};

ArithmeticCase const arithmeticCases[] = {
    {"A 1 2", "A 10 20", "+", "- %D -", "A 11 2"},
    {"A 1 2", "A 10 20", "+", "- %D %D", "A 11 22"},
    {"A 7 2", "B 2 0", "%", "x %D %D", "A 1 ?"},
    {"A 1 2", "A 10 20", "-", "%d 0 !%D", "A 1 2"}, // no markers
    {"A 1 | B 5 6", "A 1 2 | B 3", "+", "- - - | - %D", "A 1 - | B 8 6"},
    {"", "", "anything", "", ""},
    {"A {n X 1 | Y 2 }", "B {m X 3 | Y 4 }", "*", "- {p - %D | - - }", "A {*_operation_ X 3 | Y 2 }"},
    {"A {n X 1 }", "B 5", "+", "- -", "A {n X 1 }"},
};

/// The name of a result, with blanks that the brief form of a nested table can show.
std::string withoutBlanks(std::string form) {
    std::size_t const at = form.find(" operation ");
    return at == std::string::npos ? form : form.replace(at, 11, "_operation_");
}

TEST(TableOperation, ComputesWhereTheTemplateSays) {
    for (ArithmeticCase const& row : arithmeticCases) {
        SCOPED_TRACE(row.left + std::string(" ") + row.op + " " + row.right + " under " + row.templ);
        Ptr<Table> result;
        EXPECT_EQ(
            outcome(brief(row.left)->operation(brief(row.right), row.op, brief(row.templ), result)),
            "Ok");
        EXPECT_EQ(withoutBlanks(brief(*result)), row.result);
        EXPECT_EQ(string(result->name()), row.op + std::string(" operation "));
    }
}

TEST(TableOperation, StoresWhatCellsThatDoNotCombineGive) {
    Ptr<Table> result;
    brief("A 1 x")->operation(brief("A y 2"), "+", brief("- %D %D"), result);
    EXPECT_EQ(text(result->get(0, 1)), "that cell is not numeric");
    EXPECT_EQ(text(result->get(0, 2)), "#Err: Cell operation not supported for this type");
}

struct ArithmeticFailure {
    char const* left;
    char const* right;
    char const* templ;
    char const* raised;
    char const* result; // what the handle that held "R: r" holds afterwards
};

ArithmeticFailure const arithmeticFailures[] = {
    {"A 1", "A 1 | B", "- -", "Left and Right operands do not have matching indices", "R: r"},
    {"A 1", "A 1 2", "- -", "Left and Right operands do not have matching items", "R: r"},
    {"A 1", "A 1", "- - | -", "Template and operands do not have matching indices", "R: r"},
    {"A 1", "A 1", "- - -", "Template and operands do not have matching items", "R: r"},
    {"A 1 | B {n X 1 }", "A 2 | B 2", "- %D | - {p X %D }",
     "Mismatched table structure - expected table at index 1 item 1", "+ operation : A 3 | B"},
    {"A 1 | B 2", "A 2 | B {n }", "- %D | - {p }",
     "Mismatched table structure - expected table at index 1 item 1", "+ operation : A 3 | B"},
    {"A {n X 1 2 }", "A {n X 1 2 }", "- {p - - {q } }",
     "Mismatched table structure - expected table at index 0 item 2", "+ operation : A"},
    {"A {n X 1 }", "A {n X 1 2 }", "- {p }", "Left and Right operands do not have matching items",
     "+ operation : A"},
    {"A {n X 1 }", "A {n X 1 }", "- {p }", "Template and operands do not have matching indices",
     "+ operation : A"},
};

TEST(TableOperation, RaisesForShapesThatDiffer) {
    for (ArithmeticFailure const& row : arithmeticFailures) {
        SCOPED_TRACE(row.left + std::string(" + ") + row.right + " under " + row.templ);
        Ptr<Table> result = brief("r", "R");
        EXPECT_EQ(raised([&] {
                      (void)brief(row.left)->operation(brief(row.right), "+", brief(row.templ), result);
                  }),
                  row.raised);
        EXPECT_EQ(named(result), row.result);
    }
}

struct TemplateCase {
    char const* left;
    char const* right;
    char const* outcome;
    char const* result; // of a handle that held "R: r"
};

TemplateCase const templateCases[] = {
    {"A 1 2 | B x 3", "C 4 - | D 5 ?", "Ok", ": - %D - | - - %D"},
    {"A {n X 1 } 2", "A {m 3 4 } {n }", "Ok", ": - { - %D } -"},
    {"A 1 | B", "A | B 1", "Ok", ": - - | - -"},
    {"", "", "Ok", ": "},
    {"A 1", "A 1 | B", "do not have matching indices", "R: r"},
    {"A 1", "A 1 2", "do not have matching items", "R: r"},
    {"A 1 {n X } | B 2 3", "A 1 {n X 1 } | B 2 3", "do not have matching items", ": - %D -"},
    {"A {n X 1 | Y {o P } }", "A {n X 1 | Y {o } }", "do not have matching indices", ": - -"},
};

TEST(TableMakeTemplate, MarksNumbers) {
    for (TemplateCase const& row : templateCases) {
        SCOPED_TRACE(row.left + std::string(" and ") + row.right);
        Ptr<Table> result = brief("r", "R");
        EXPECT_EQ(outcome(brief(row.left)->makeTemplate(brief(row.right), result)), row.outcome);
        EXPECT_EQ(named(result), row.result);
    }
}

struct SumCase {
    char const* table;
    char const* templ;
    char const* op;
    char const* outcome; // or the text raised
    double total;
};

SumCase const sumCases[] = {
    {"A 1 2 3.5", "- %D %D %D", "+", "Ok", 6.5},
    {"A 1 x - !e ?", "%D %D %D %D %D %D", "+", "Ok", 1},
    {"A 1 2 | B 4", "- - %D", "+", "Ok", 2}, // a smaller template
    {"A 1 {n X 2 3 } | B 4", "- %D {p - %D %D } | - %D", "+", "Ok", 10},
    {"A 1", "- -", "-", "Ok", 0},
    {"", "", "-", "Ok", 0},
    {"A 1 2", "- - %D", "-", "Unsupported Unary operation", 0},
    {"A 1 {n }", "- - {p }", "-", "Unsupported Unary operation", 0},
    {"A 1", "- - | -", "+", "Number of indices in template exceeds original data set", 0},
    {"A 1", "- - -", "+", "Number of items in template exceeds original data set", 0},
    {"A 1 2", "- %D {p }", "+", "Mismatched table structure", 1}, // the sum so far
    {"A 1 {n X 2 }", "- %D {p - %D - }", "+", "Number of items in template exceeds original data set",
     1},
};

TEST(TableUnaryOperation, SumsWhatTheTemplateMarks) {
    for (SumCase const& row : sumCases) {
        SCOPED_TRACE(row.table + std::string(" under ") + row.templ);
        double total = 99;
        std::string done;
        std::string const failure = raised(
            [&] { done = outcome(brief(row.table)->unaryOperation(row.op, brief(row.templ), total)); });
        EXPECT_EQ(failure + done, row.outcome);
        EXPECT_EQ(total, row.total);
    }
}

} // namespace
} // namespace QX
