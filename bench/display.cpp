// Tables written as text into a string.

#include "families.h"
#include "rows.h"
#include "tree.h"
#include "workload.h"

#include <sstream>
#include <string_view>

namespace Bench {

namespace {

/// How many of the texts stand in what was written, in their order.
Answer found(std::string_view written, std::vector<std::string> const& texts) {
    std::size_t count = 0;
    std::size_t from = 0;
    for (std::string const& text : texts) {
        std::size_t const at = written.find(text, from);
        if (at != std::string_view::npos) {
            from = at + text.size();
            ++count;
        }
    }
    return single(static_cast<double>(count));
}

std::vector<std::string> namesOf(std::size_t size) {
    std::vector<std::string> names;
    for (Row const& row : rowsOf(size)) {
        names.push_back(row.name);
    }
    return names;
}

std::vector<std::string> customersOf(std::size_t size) {
    std::vector<std::string> customers;
    for (Shop const& shop : treeOf(size)) {
        for (Shop::Sale const& sale : shop.orders) {
            customers.push_back(sale.customer);
        }
    }
    return customers;
}

std::string shown(Table const& table) {
    std::ostringstream os;
    table.display(os);
    return std::move(os).str();
}

std::string shown(Rows const& rows) {
    std::ostringstream os;
    for (Row const& row : rows) {
        os << row.id << ' ' << row.name << ' ' << row.city << ' ' << row.amount << ' ' << row.crates
           << '\n';
    }
    return std::move(os).str();
}

struct IntoString : pugi::xml_writer {
    void write(void const* data, std::size_t size) override {
        text.append(static_cast<char const*>(data), size);
    }

    std::string text;
};

std::string shown(pugi::xml_document const& document) {
    IntoString writer;
    document.save(writer, "", pugi::format_raw);
    return std::move(writer.text);
}

/// Writes `source`, in which `texts` must then be found.
template <typename Source, typename Write>
Job writing(Source source, std::vector<std::string> const& texts, Write write) {
    return job([source, write] { return write(*source); },
               [texts](std::string const& written) { return found(written, texts); });
}

std::string dumped(Json const& object) {
    return object.dump();
}

} // namespace

void addDisplay() {
    auto const show = [](auto const& source) { return shown(source); };
    add({"display/table",
         20'000,
         [=](std::size_t size) { return writing(tableOf(rowsOf(size)), namesOf(size), show); },
         {{"json",
           [](std::size_t size) {
               return writing(std::make_shared<Json>(jsonOf(rowsOf(size))), namesOf(size), dumped);
           }},
          {"plain", [=](std::size_t size) { return writing(&rowsOf(size), namesOf(size), show); }}}});
    add({"display/nested tables",
         10'000,
         [=](std::size_t size) { return writing(tableOf(treeOf(size)), customersOf(size), show); },
         {{"json",
           [](std::size_t size) {
               return writing(std::make_shared<Json>(jsonOf(treeOf(size))), customersOf(size), dumped);
           }},
          {"pugixml", [=](std::size_t size) {
               return writing(std::shared_ptr(documentOf(treeOf(size))), customersOf(size), show);
           }}}});
}

} // namespace Bench
