#include <qx/csv.h>
#include <qx/json.h>

#include <iostream>

/// Reads CSV and writes it as JSON.
int main() {
    QX::Ptr<QX::Table> const prices = QX::readCsvText("fruit,zip,price\napple,00501,3\n");
    std::string const json = QX::writeJsonText(*prices);
    std::cout << json;
    try {
        QX::readJsonText("[1,");
    } catch (QX::IoError const& error) {
        bool const same = json == "[\n  {\"fruit\":\"apple\",\"zip\":\"00501\",\"price\":3}\n]\n";
        return same && error.line() == 1 ? 0 : 1;
    }
    return 1;
}
