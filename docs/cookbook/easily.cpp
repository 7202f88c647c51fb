#include <qx/ease.h>

#include <iostream>

using QX::descending;
using QX::Ptr;
using QX::Table;

int main() {
    Ptr<Table> const stock =
        QX::tableOf("stock", {{"fruit", {"plum", "apple", "pear"}}, {"crates", {4, 12, 4}}});
    std::cout << QX::sorted(stock, {"crates", descending("fruit")}); // a direction for each key
    std::cout << QX::where(stock, "fruit", {"pear", "plum"});        // in the order of the table
    std::cout << QX::distinct(stock, "crates");                      // the first row of each value
    try {
        std::cout << QX::selected(stock, {"fruit", "crate"});
    } catch (QX::Except const& except) { // or std::exception, and its what()
        std::cout << except.report().message(false) << "\n";
    }
}
