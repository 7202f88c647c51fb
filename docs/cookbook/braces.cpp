#include <qx/ease.h>

#include <iostream>

using QX::Ptr;
using QX::Table;
using QX::tableOf;
using QX::tableOfRows;

int main() {
    Ptr<Table> const apples = tableOfRows("apples", {"sort", "crates"}, {{"Boskoop", 7}, {"Elstar", 5}});
    Ptr<Table> const stock = tableOf("stock",
                                     {
                                         {"fruit", {"plum", "apple", "pear"}},
                                         {"crates", {4, 12, 4.5}},
                                         {"sorts", {std::nullopt, apples}},
                                     },
                                     {{"source/counted", "2026-11-22"}});
    std::cout << stock << QX::valueAt(stock->getAttributes(), "source/counted", "never") << '\n';
}
