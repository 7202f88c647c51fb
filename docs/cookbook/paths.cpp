#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Table farm("farm");
    farm.atXPath("owner/address/town", true) = Str("Malus"); // makes the tables on the way
    farm.atXPath("stock/crates[2]", true) = 3.0;

    std::cout << farm.atXPath("owner/address/town", QX::Cell()) << '\n';
    std::cout << farm.atXPath("stock/crates[2]", QX::Cell()) << '\n';
    std::cout << farm.atXPath("stock/boxes", QX::Cell()) << '\n';

    Ptr<Table> crates;
    (void)farm.XPath("stock/crates", crates); // every item
    crates->display(std::cout);
}
