#include "tree.h"

#include <array>
#include <charconv>

namespace Bench {

namespace {

/// The table in a cell.
Ptr<Table> nested(QX::Cell const& cell) {
    Ptr<Table> table;
    (void)cell.get(table);
    return table;
}

} // namespace

Tree treeOf(std::size_t n, bool changed) {
    Rows const& rows = rowsOf(n);
    Tree tree(n / (ordersPerShop + 1));
    std::size_t number = 0;
    for (Shop& shop : tree) {
        shop.name = rows[number].city + ' ' + rows[number].name;
        for (std::size_t i = 0; i < ordersPerShop; ++i) {
            Row const& row = rows[number];
            double const total = row.amount + (changed && number % 100 == 0 ? 1 : 0);
            shop.orders.push_back({row.id, row.name, total});
            ++number;
        }
    }
    return tree;
}

Ptr<Table> tableOf(Tree const& tree) {
    Ptr<Table> const root(new Table("root"));
    root->at(0, 0) = Str("shops");
    for (Shop const& shop : tree) {
        Ptr<Table> const inner(new Table("shop"));
        inner->at("name", 1) = Str(shop.name);
        inner->at(1, 0) = Str("orders");
        for (Shop::Sale const& sale : shop.orders) {
            Ptr<Table> const order(new Table("order"));
            order->at("number", 1) = sale.number;
            order->at("customer", 1) = Str(sale.customer);
            order->at("total", 1) = sale.total;
            inner->at(1, Table::npos) = order;
        }
        root->at(0, Table::npos) = inner;
    }
    return root;
}

Json jsonOf(Tree const& tree) {
    Json::array_t shops;
    for (Shop const& shop : tree) {
        Json::array_t orders;
        for (Shop::Sale const& sale : shop.orders) {
            Json order = Json::object();
            order["number"] = sale.number;
            order["customer"] = sale.customer;
            order["total"] = sale.total;
            orders.push_back(std::move(order));
        }
        Json inner = Json::object();
        inner["name"] = shop.name;
        inner["orders"] = std::move(orders);
        shops.push_back(std::move(inner));
    }
    Json root = Json::object();
    root["shops"] = std::move(shops);
    return root;
}

std::string numberText(double number) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

Document documentOf(Tree const& tree) {
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_node root = document->append_child("root");
    for (Shop const& shop : tree) {
        pugi::xml_node inner = root.append_child("shops");
        inner.append_child("name").text().set(shop.name.c_str());
        for (Shop::Sale const& sale : shop.orders) {
            pugi::xml_node order = inner.append_child("orders");
            order.append_child("number").text().set(numberText(sale.number).c_str());
            order.append_child("customer").text().set(sale.customer.c_str());
            order.append_child("total").text().set(numberText(sale.total).c_str());
        }
    }
    return document;
}

Answer answerOf(Tree const& tree) {
    Tally tally;
    for (Shop const& shop : tree) {
        tally << shop.name;
        for (Shop::Sale const& sale : shop.orders) {
            tally << sale.number << sale.customer << sale.total;
        }
        tally.endRow();
    }
    return tally.answer();
}

Answer treeAnswer(Table const& table) {
    Tally tally;
    for (std::size_t i = 1; i < table.items(0); ++i) {
        Ptr<Table> const shop = nested(table.get("shops", i));
        take(tally, shop->get("name", 1));
        for (std::size_t j = 1; j < shop->items(0); ++j) {
            Ptr<Table> const order = nested(shop->get("orders", j));
            take(tally, order->get("number", 1));
            take(tally, order->get("customer", 1));
            take(tally, order->get("total", 1));
        }
        tally.endRow();
    }
    return tally.answer();
}

Answer treeAnswer(Json const& object) {
    Tally tally;
    for (Json const& shop : object["shops"]) {
        take(tally, shop["name"]);
        for (Json const& order : shop["orders"]) {
            take(tally, order["number"]);
            take(tally, order["customer"]);
            take(tally, order["total"]);
        }
        tally.endRow();
    }
    return tally.answer();
}

Answer treeAnswer(pugi::xml_document const& document) {
    Tally tally;
    for (pugi::xml_node const shop : document.child("root").children("shops")) {
        tally << shop.child_value("name");
        for (pugi::xml_node const order : shop.children("orders")) {
            tally << order.child("number").text().as_double() << order.child_value("customer")
                  << order.child("total").text().as_double();
        }
        tally.endRow();
    }
    return tally.answer();
}

} // namespace Bench
