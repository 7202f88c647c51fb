#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Table;

int main() {
    Table outer("outer");
    Ptr<Table> const again(new Table(outer)); // shares outer's data
    outer.at("inside", 1) = again;

    std::cout << (outer.check() ? "sound" : "contains itself") << '\n';
    outer.at("inside", 1) = QX::Cell(); // the circle is broken
    std::cout << (outer.check() ? "sound" : "contains itself") << '\n';
}
