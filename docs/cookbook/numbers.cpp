#include <qx/qx.h>

#include <iostream>

using QX::Str;

int main() {
    QX::Cell const one(1.0);
    QX::Cell const four(4.0);
    std::cout << "4 + 1 = " << four.operation(one, "+") << '\n';
    std::cout << "1 / 0 = " << one.operation(QX::Cell(0.0), "/") << '\n';

    QX::Cell const quarter = one.operation(four, "/");
    Str text;
    if (quarter.get(text, 2).ok()) {
        std::cout << "1 / 4 = " << quarter << ", or " << text << '\n'; // exact, and for people
    }
    std::cout << "read back: " << quarter.compare(QX::Cell(Str("## 0 1070596096")), false) << '\n';
}
