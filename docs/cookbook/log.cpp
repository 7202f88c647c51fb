#include <qx/qx.h>

#include <iostream>

int main() {
    QX::Log log; // on standard output, unless setStream() says otherwise
    log.setName("farm");
    log.setDateDisplay(false);
    log.setTimeDisplay(false);

    log.send("counting", QX::Log::Info);
    log.send("apple by apple", QX::Log::Debug); // above the level, so not written
    int whole = 0;
    log.send(QX::Cell(12.5).get(whole).message(false), QX::Log::Warning);
}
