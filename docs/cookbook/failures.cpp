#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const stock(new Table("stock"));
    stock->at("fruit", 1) = Str("plum");

    double number = 7;
    QX::Status const status = stock->get("fruit", 1).get(number);
    std::cout << status.message(false) << "; the number is still " << number << '\n';

    Ptr<Table> const keys(new Table);
    keys->at("weight", 0);
    Ptr<Table> result;
    std::cout << stock->sort(keys, result, true).message(false) << '\n';

    try {
        (void)stock->sort(Ptr<Table>(), result, true);
    } catch (QX::Except const& e) {
        std::cout << e.report().message(false) << '\n';
    }
}
