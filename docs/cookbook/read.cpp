#include <qx/qx.h>

#include <iostream>

using QX::Str;
using QX::Table;

int main() {
    Table stock("stock");
    stock.at("fruit", 1) = Str("plum");
    stock.at("crates", 1) = 12.5;
    Table const& readable = stock; // reading through it never makes the table grow

    double crates = 0;
    QX::Status const status = readable.get("crates", 1).get(crates);
    std::cout << "crates: " << crates << (status.ok() ? ", read" : ", not read") << '\n';

    Str text;
    if (readable.get("crates", 1).get(text, 2).ok()) {
        std::cout << "as a text of two digits: " << text << '\n';
    }
    std::cout << "a position that is not there: " << readable.get("crates", 99) << '\n';

    int whole = 0;
    std::cout << readable.get("crates", 1).get(whole).message(false) << ": " << whole << '\n';
}
