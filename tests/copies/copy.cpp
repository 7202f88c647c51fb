#include <qx/qx.h>

namespace {

QX::Ptr<QX::Table> filled(int rows) {
    QX::Ptr<QX::Table> table(new QX::Table("filled"));
    for (int j = 0; j < rows; ++j) {
        QX::Str const text = QX::Str("a text that is too long for a cell ") + QX::Str::asString(j);
        table->at(std::size_t{0}, static_cast<std::size_t>(j), QX::Cell(text));
    }
    return table;
}

/// Ends when the plug-in is unloaded, and uses tables even then.
struct Global {
    QX::Ptr<QX::Table> table = filled(100);

    ~Global() {
        table = filled(1'000);
        table.reset();
    }
};

Global const global;

} // namespace

/// Makes and drops a table and its copy; true if they are alike.
extern "C" [[gnu::visibility("default")]] bool useTables(int rows) {
    QX::Ptr<QX::Table> const table = filled(rows);
    return table->clone()->match(table, false);
}
