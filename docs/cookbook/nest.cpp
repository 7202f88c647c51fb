#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const address(new Table("address"));
    address->at("town", 1) = Str("Malus");

    Table farm("farm");
    farm.at("owner", 1) = Str("Ada");
    farm.at("address", 1) = address; // the table itself, not a copy
    address->at("town", 1) = Str("Pyrus");
    farm.display(std::cout);
}
