#include <qx/ease.h>

#include <iostream>

using QX::Cell;
using QX::Ptr;
using QX::Row;
using QX::Table;

int main() {
    Ptr<Table> const stock = QX::tableOf("stock", {{"fruit", {"plum", "apple"}}, {"crates", {4, 12}}});
    for (auto const row : QX::rows(stock)) {
        row["kilos"] = 20 * QX::valueOr(row["crates"], 0); // a new name adds an index
    }
    Table const& readable = *stock;
    for (Row const row : QX::rows(readable)) {
        std::cout << row.number() << ": " << row["fruit"] << ", " << row["kilos"] << " kg\n";
    }
    double sum = 0;
    for (Cell const& cell : QX::items(stock, "crates")) {
        sum += QX::as<double>(cell).value_or(0);
    }
    std::cout << sum << " crates\n";

    // The same without <qx/ease.h>.
    for (std::size_t j = 1; j < readable.items(0); ++j) {
        QX::Str fruit;
        (void)readable.at("fruit", j).get(fruit, 0);
        std::cout << j << ": " << fruit << ", " << readable.at("kilos", j) << " kg\n";
    }
}
