#include <qx/qx.h>

#include <iostream>
#include <sstream>

/// Uses each of the three libraries and something of the headers that is not inline.
int main() {
    QX::Table prices("prices");
    prices.at("fruit", 1) = QX::Str("apple");
    prices.at("price", 1) = 12.5;
    prices.at("since", 1) = QX::Str("2026-11-22");

    std::ostringstream text;
    prices.display(text);
    std::cout << "qx " QX_VERSION << '\n' << text.str();

    QX::Date since;
    bool const dated = prices.at("since", 1).get(since).ok() && since.isValid();
    bool const printed = text.str().find("<price> ## 0 1076428800 \n") != std::string::npos;
    return dated && printed ? 0 : 1;
}
