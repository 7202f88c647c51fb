#include <qx/ease.h>

#include <iostream>

using QX::Join;
using QX::joined;
using QX::Ptr;
using QX::Table;

int main() {
    Ptr<Table> const stock =
        QX::tableOf("stock", {{"fruit", {"plum", "apple", "fig"}}, {"crates", {4, 12, 1}}});
    Ptr<Table> const prices =
        QX::tableOf("prices", {{"fruit", {"apple", "pear", "plum"}}, {"price", {2, 3, 5}}});
    std::cout << joined(stock, prices, "fruit");
    std::cout << joined(stock, prices, "fruit", Join::Left);
    std::cout << joined(stock, prices, "fruit", Join::Anti); // what has no price
}
