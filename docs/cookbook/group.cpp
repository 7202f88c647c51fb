#include <qx/ease.h>

#include <iostream>

using QX::Ptr;
using QX::Table;

int main() {
    Ptr<Table> const sales = QX::tableOfRows(
        "sales", {"town", "fruit", "crates"},
        {{"Rome", "plum", 4}, {"Bonn", "plum", 7}, {"Rome", "apple", 12}, {"Rome", "plum", 1}});
    std::cout << QX::grouped(sales, "town",
                             {QX::count(), QX::sum("crates"), QX::countDistinct("fruit")});
    std::cout << QX::from(sales)
                     .grouped({"town", "fruit"}, {QX::sum("crates").named("crates")})
                     .sorted(QX::descending("crates"))
                     .head(1)
                     .table();
}
