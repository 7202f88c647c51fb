#include <qx/qx.h>

#include <iostream>

using QX::Str;

int main() {
    char const* const kinds[] = {"empty", "string", "numeric", "table", "error"};
    for (char const* text : {"plum", "12.5", " 1e3", "2026-11-22", "[Empty]", "#Err: no price"}) {
        QX::Cell const cell{Str(text)};
        std::cout << kinds[cell.isA()] << ": " << text << '\n';
    }
    QX::Date date;
    if (QX::Cell(Str("2026-11-22")).get(date).ok()) {
        std::cout << date.getDate("dd mmm yyyy") << " is day " << date.days() << '\n';
    }
}
