#include <qx/ease.h>

#include <iostream>

using QX::Ptr;
using QX::Row;
using QX::Table;

int main() {
    Ptr<Table> const stock = QX::tableOf(
        "stock", {{"fruit", {"plum", "apple", "pear", "fig"}}, {"crates", {4, 12, std::nullopt, 1}}});
    std::cout << QX::without(stock, {1, 4});                  // by number
    std::cout << QX::whereNot(stock, "crates", std::nullopt); // by value
    std::cout << QX::where(stock, [](Row row) { return QX::valueOr(row["crates"], 0) > 3; });
}
