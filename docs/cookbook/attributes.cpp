#include <qx/qx.h>

#include <iostream>

using QX::Str;
using QX::Table;

int main() {
    Table stock("stock");
    stock.at("fruit", 1) = Str("plum");
    (void)stock.setAttribute("source/counted", Str("2026-09-30"));

    QX::Cell counted;
    (void)stock.getAttribute("source/counted", counted);
    std::cout << "counted on " << counted << '\n';
    stock.display(std::cout); // attributes are no part of the data
}
