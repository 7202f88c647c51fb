// Values for the debugger to show. The bodies' headers are here so that the debug information of this
// program describes them, however the library was built.

#include "table/model/tableimpl.h"

#include <qx/qx.h>

#include <string>

namespace {

QX::AnalyticDouble undefinedNumber() {
    return QX::AnalyticDouble(1, 0);
}

// Called when all values are there: the debugger stops in it and looks at its caller.
[[gnu::noinline]] void look(void const* /*values*/) {
    asm volatile("");
}

} // namespace

int main() {
    QX::Str const text("a \"quoted\"\nline");
    QX::Str const zero(std::string("a\0b", 3));
    QX::Str const none;

    QX::Status const ok;
    QX::Status const failed("Key not found", QX::Status::Error, -1);
    QX::Status const warned("low", QX::Status::Warning, 7);

    QX::Cell const empty;
    QX::Cell const number(12.5);
    QX::Cell const undefined(undefinedNumber());
    QX::Cell const word{QX::Str("b\xc3\xa4r")};
    QX::Cell const broken{QX::Str("\xff")};
    QX::Cell const error(QX::Status("no price", QX::Status::Error, -1));
    QX::Cell const longText{QX::Str(std::string(300, 'x'))};

    QX::Ptr<QX::Table> const prices(new QX::Table("prices"));
    prices->at("fruit", 1) = QX::Str("apple");
    prices->at("fruit", 2) = QX::Str("pear");
    prices->at("price", 2) = 4.5;
    (void)prices->setAttribute("currency", QX::Str("EUR"));
    QX::Table const ragged("ragged");
    QX::Table(ragged).at(1, 0) = QX::Str("second"); // leaves index 0 without items
    QX::Cell const nested(prices);
    QX::Table itself("itself");
    itself.at("inside", 1) = QX::Ptr<QX::Table>(new QX::Table(itself));
    QX::Table const bare{QX::Ptr<QX::TableImplementation>()};
    QX::Ptr<QX::Table const> const nothing;

    QX::Table large("large");
    for (int i = 0; i <= 100'000; ++i) {
        large.at("numbers", QX::Table::npos) = i;
    }
    large.at("2", 1) = QX::Str("by number");

    QX::AnalyticDouble const quotient(1, 4);
    QX::AnalyticDouble const quotientOfNothing(1, 0);
    QX::Date const day(QX::Str("2026-11-22"), QX::Str());
    [[maybe_unused]] QX::Date const noDay;
    QX::TblPath const path("stock/crates[2]");
    QX::TblPath const dotted("stock.crates", '.');

    look(&prices);
    itself.at("inside", 1) = QX::Cell(); // otherwise it is never freed
}
