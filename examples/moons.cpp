// What has changed among the known moons: two CSV files joined, grouped, laid over each other, compared.

#include <qx/csv.h>
#include <qx/ease.h>

#include <iomanip>
#include <iostream>

using namespace QX;

namespace {

void print(char const* title, Ptr<Table> const& table) {
    std::cout << title << '\n';
    for (Row const row : rows(table)) {
        for (Cell const& cell : row) {
            std::cout << std::left << std::setw(14) << valueOr(cell, "-");
        }
        std::cout << '\n';
    }
}

void report(Ptr<Table> const& before, Ptr<Table> const& after) {
    Log log;
    log.setName("moons");
    log.setDateDisplay(false);
    log.setTimeDisplay(false);
    for (Row const row : rows(joined(after, before, "body", Join::Anti))) {
        log.send("new here: " + valueOr(row["body"], Str()), Log::Warning);
    }

    Str const former = before->name() + ".moons"; // the other "moons" of the two tables
    auto const found = [&](Row row) { return valueOr(row["moons"], 0) - valueOr(row[former], 0); };
    print("Most found:", from(joined(after, before, "body"))
                             .withIndex("found", found)
                             .sorted(descending("found"))
                             .head(3)
                             .selected({"body", "found"}));
    print("By kind:", grouped(after, "kind", {count(), sum("moons"), mean("radius_km")}));

    Ptr<Table> const now = overlaid(before, selected(after, {"body", "kind", "moons"}));
    print("Changed, the radii of 2013 kept:", differences(before, now));
    log.send("done", Log::Info);
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 3) {
            throw Failure("Usage: moons moons-2013.csv moons-2023.csv");
        }
        report(readCsvFile(argv[1]), readCsvFile(argv[2]));
    } catch (std::exception const& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
