#include "operations.h"

namespace QX {
namespace {

/// Rows of "left ; right ; template ; result" for one operator.
void expectComputed(std::string const& op, char const* cases) {
    for (Row const& row : rows(cases)) {
        SCOPED_TRACE(row.line);
        Ptr<Table> result = brief("former");
        std::string const call = "operation " + op + " under " + row[2];
        EXPECT_EQ(told(call, *brief(row[0]), brief(row[1]), result), row[3]);
    }
}

TEST(TableOperation, ComputesWhereTheTemplateSays) {
    expectComputed("+", R"(
        A 1 2 ; A 10 20 ; - %D - ; A 11 2
        A 1 2 ; A 10 20 ; - %D %D ; A 11 22
        A 1 2 ; A 10 20 ; %d 0 !%D ; A 1 2   <- no markers
        A 1 | B 5 6 ; A 1 2 | B 3 ; - - - | - %D ; A 1 - | B 8 6
        A {n X 1 } ; B 5 ; - - ; A {n X 1 }
        A 1 x ; A y 2 ; - %D %D ; A that cell is not numeric !Cell operation not supported for this type
        A {n X 1 | Y 2 } ; B {m X 3 | Y 4 } ; - {p - %D | - - } ; A {+ operation  X 4 | Y 2 }
    )");
    expectComputed("-", "A 1 {n X 7 } ; A 10 {n X 5 } ; - %D {p - %D } ; A -9 {- operation  X 2 }");
    expectComputed("%", "A 7 2 ; B 2 0 ; x %D %D ; A 1 ?");
    expectComputed("anything", " ; ; ; ");
}

TEST(TableOperation, RaisesForShapesThatDiffer) {
    expectComputed("+", R"(
        A 1 ; A 1 | B ; - - ; raises Left and Right operands do not have matching indices: kept
        A 1 ; A 1 2 ; - - ; raises Left and Right operands do not have matching items: kept
        A 1 ; A 1 ; - - | - ; raises Template and operands do not have matching indices: kept
        A 1 ; A 1 ; - - - ; raises Template and operands do not have matching items: kept
        A 1 | B {n X 1 } ; A 2 | B 2 ; - %D | - {p X %D }
            ;; raises Mismatched table structure - expected table at index 1 item 1: A 3 | B
        A 1 | B 2 ; A 2 | B {n } ; - %D | - {p }
            ;; raises Mismatched table structure - expected table at index 1 item 1: A 3 | B
        A {n X 1 2 } ; A {n X 1 2 } ; - {p - - {q } }
            ;; raises Mismatched table structure - expected table at index 0 item 2: A
        A {n X 1 } ; A {n X 1 2 } ; - {p } ; raises Left and Right operands do not have matching items: A
        A {n X 1 } ; A {n X 1 } ; - {p } ; raises Template and operands do not have matching indices: A
    )");
}

TEST(TableMakeTemplate, MarksNumbers) {
    expectResults({"makeTemplate"}, R"(
        A 1 2 | B x 3 ; C 4 - | D 5 ? ; - %D - | - - %D
        A {n X 1 } 2 ; A {m 3 4 } {n } ; - { - %D } -
        A 1 | B ; A | B 1 ; - - | - -
        ; ;
        A 1 ; A 1 | B ; do not have matching indices: kept
        A 1 ; A 1 2 ; do not have matching items: kept
        A 1 {n X } | B 2 3 ; A 1 {n X 1 } | B 2 3 ; do not have matching items: - %D -
        A {n X 1 | Y {o P } } ; A {n X 1 | Y {o } } ; do not have matching indices: - -
    )");
}

/// Rows of "table ; template ; operator ; sum", behind what is raised.
TEST(TableUnaryOperation, SumsWhatTheTemplateMarks) {
    for (Row const& row : rows(R"(
        A 1 2 3.5 ; - %D %D %D ; + ; 6.5
        A 1 x - !e ? ; %D %D %D %D %D %D ; + ; 1
        A 1 2 | B 4 ; - - %D ; + ; 2   <- a smaller template
        A 1 {n X 2 3 } | B 4 ; - %D {p - %D %D } | - %D ; + ; 10
        A 1 ; - - ; - ; 0
        ; ; - ; 0
        A 1 2 ; - - %D ; - ; Unsupported Unary operation: 0
        A 1 {n } ; - - {p } ; - ; Unsupported Unary operation: 0
        A 1 ; - - | - ; + ; Number of indices in template exceeds original data set: 0
        A 1 ; - - - ; + ; Number of items in template exceeds original data set: 0
        A 1 2 ; - %D {p } ; + ; Mismatched table structure: 1   <- the sum so far
        A 1 {n X 2 } ; - %D {p - %D - } ; + ; Number of items in template exceeds original data set: 1
    )")) {
        SCOPED_TRACE(row.line);
        double total = 99;
        std::string const failure =
            raised([&] { (void)brief(row[0])->unaryOperation(Str(row[2]), brief(row[1]), total); });
        EXPECT_EQ((failure.empty() ? "" : failure + ": ") + string(Str::asString(total)), row[3]);
    }
}

} // namespace
} // namespace QX
