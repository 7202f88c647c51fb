// Named values about each of n tables: three set on new tables, and read again.

#include "families.h"
#include "rows.h"
#include "tree.h"
#include "workload.h"

namespace Bench {

namespace {

std::size_t const n = 10'000;

using Tables = std::vector<Ptr<Table>>;

Tables tablesOf(Rows const& rows) {
    Tables tables;
    tables.reserve(rows.size());
    for (Row const& row : rows) {
        Ptr<Table> const table(new Table("order"));
        (void)table->setAttribute("source", Str(row.city));
        (void)table->setAttribute("customer", Str(row.name));
        (void)table->setAttribute("rate", row.amount);
        tables.push_back(table);
    }
    return tables;
}

Json objectsOf(Rows const& rows) {
    Json objects = Json::array();
    objects.get_ref<Json::array_t&>().reserve(rows.size());
    for (Row const& row : rows) {
        Json object = Json::object();
        object["source"] = row.city;
        object["customer"] = row.name;
        object["rate"] = row.amount;
        objects.push_back(std::move(object));
    }
    return objects;
}

Document elementsOf(Rows const& rows) {
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_node root = document->append_child("orders");
    for (Row const& row : rows) {
        pugi::xml_node order = root.append_child("order");
        order.append_attribute("source").set_value(row.city.c_str());
        order.append_attribute("customer").set_value(row.name.c_str());
        order.append_attribute("rate").set_value(numberText(row.amount).c_str());
    }
    return document;
}

double sumOfTables(Tables const& tables) {
    Str const name("rate");
    double sum = 0;
    QX::Cell value;
    for (Ptr<Table> const& table : tables) {
        double rate = 0;
        (void)table->getAttribute(name, value);
        (void)value.get(rate);
        sum += rate;
    }
    return sum;
}

double sumOfObjects(Json const& objects) {
    double sum = 0;
    for (Json const& object : objects) {
        sum += object["rate"].get<double>();
    }
    return sum;
}

double sumOfElements(Document const& document) {
    double sum = 0;
    for (pugi::xml_node const order : document->child("orders").children("order")) {
        sum += order.attribute("rate").as_double();
    }
    return sum;
}

Answer rounded(double sum) {
    return single(std::round(sum * 100));
}

template <typename Make, typename Sum>
Prepare setting(Make make, Sum sum) {
    return [make, sum](std::size_t size) {
        return job([make, &rows = rowsOf(size)] { return make(rows); },
                   [sum](auto const& made) { return rounded(sum(made)); });
    };
}

template <typename Make, typename Sum>
Prepare getting(Make make, Sum sum) {
    return [make, sum](std::size_t size) {
        auto const made = std::make_shared<decltype(make(Rows()))>(make(rowsOf(size)));
        return job([made, sum] { return sum(*made); }, rounded);
    };
}

} // namespace

void addAttributes() {
    add({"attributes/set three on new tables",
         n,
         setting(tablesOf, sumOfTables),
         {{"json", setting(objectsOf, sumOfObjects)}, {"pugixml", setting(elementsOf, sumOfElements)}},
         Timed::Making});
    add({"attributes/get",
         n,
         getting(tablesOf, sumOfTables),
         {{"json", getting(objectsOf, sumOfObjects)}, {"pugixml", getting(elementsOf, sumOfElements)}}});
}

} // namespace Bench
