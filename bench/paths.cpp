// Values of a tree of n nested tables, reached by path: all at once, and one at a time.

#include "families.h"
#include "tree.h"
#include "workload.h"

namespace Bench {

namespace {

std::size_t const n = 10'000;

auto const valuesAnswer = [](Ptr<Table> const& values) { return answerOf(*values); };

Prepare fanOutByQx(char const* path) {
    return [path](std::size_t size) {
        return job(
            [table = tableOf(treeOf(size)), text = Str(path)] {
                Ptr<Table> values;
                (void)table->XPath(text, values);
                return values;
            },
            valuesAnswer);
    };
}

Prepare fanOutByPugixml(char const* path, bool texts) {
    return [path, texts](std::size_t size) {
        auto const query = std::make_shared<pugi::xpath_query>(path);
        return job([document = std::shared_ptr(documentOf(treeOf(size))),
                    query] { return document->select_nodes(*query); },
                   [texts](pugi::xpath_node_set const& nodes) {
                       Tally tally;
                       for (pugi::xpath_node const& found : nodes) {
                           if (texts) {
                               tally << found.node().text().get();
                           } else {
                               tally << found.node().text().as_double();
                           }
                           tally.endRow();
                       }
                       return tally.answer();
                   });
    };
}

template <typename T, typename Gather>
Prepare fanOutByPlain(Gather gather) {
    return [gather](std::size_t size) {
        return job(
            [tree = treeOf(size), gather] {
                std::vector<T> values;
                for (Shop const& shop : tree) {
                    gather(shop, values);
                }
                return values;
            },
            [](std::vector<T> const& values) {
                Tally tally;
                for (T const& value : values) {
                    tally << value;
                    tally.endRow();
                }
                return tally.answer();
            });
    };
}

void addFanOut() {
    add({"paths/fan out to numbers",
         n,
         fanOutByQx("shops/orders/total"),
         {{"pugixml", fanOutByPugixml("/root/shops/orders/total", false)},
          {"plain", fanOutByPlain<double>([](Shop const& shop, std::vector<double>& values) {
               for (Shop::Sale const& sale : shop.orders) {
                   values.push_back(sale.total);
               }
           })}}});
    add({"paths/fan out to texts",
         n,
         fanOutByQx("shops/orders/customer"),
         {{"pugixml", fanOutByPugixml("/root/shops/orders/customer", true)},
          {"plain", fanOutByPlain<std::string>([](Shop const& shop, std::vector<std::string>& values) {
               for (Shop::Sale const& sale : shop.orders) {
                   values.push_back(sale.customer);
               }
           })}}});
    add({"paths/fan out through one item",
         n,
         fanOutByQx("shops/orders[3]/total"),
         {{"pugixml", fanOutByPugixml("/root/shops/orders[3]/total", false)},
          {"plain", fanOutByPlain<double>([](Shop const& shop, std::vector<double>& values) {
               values.push_back(shop.orders[2].total);
           })}}});
}

/// The paths to the totals of all orders, in random order. Items count from `first`.
std::vector<std::string> pathsOf(std::size_t size, std::size_t first, char const* open,
                                 char const* close) {
    std::size_t const shops = size / (ordersPerShop + 1);
    std::vector<std::string> paths;
    for (Row const& row : rowsOf(size)) {
        std::size_t const number = static_cast<std::size_t>(row.id) - 1;
        paths.push_back("/shops" + (open + std::to_string(number % shops + first)) + close + "/orders" +
                        open + std::to_string(number / shops % ordersPerShop + first) + close +
                        "/total");
    }
    return paths;
}

Answer rounded(double sum) {
    return single(std::round(sum * 100));
}

/// Sums what `read` reads of `source` by each path.
template <typename Source, typename Path, typename Read>
Job summing(Source source, std::vector<Path> const& paths, Read read) {
    return job(
        [source, paths, read] {
            double sum = 0;
            for (Path const& path : paths) {
                sum += read(*source, path);
            }
            return sum;
        },
        rounded);
}

double readTable(Table const& table, Str const& path) {
    double number = 0;
    (void)table.atXPath(path, QX::Cell()).get(number);
    return number;
}

std::vector<Str> tablePaths(std::size_t size) {
    std::vector<std::string> const paths = pathsOf(size, 1, "[", "]");
    return {paths.begin(), paths.end()};
}

Prepare pointByQx() {
    return [](std::size_t size) {
        return summing(Ptr<Table const>(tableOf(treeOf(size))), tablePaths(size), readTable);
    };
}

std::shared_ptr<Json> sharedJson(std::size_t size) {
    return std::make_shared<Json>(jsonOf(treeOf(size)));
}

void addPoints() {
    auto const jsonByText = [](std::size_t size) {
        return summing(std::shared_ptr<Json const>(sharedJson(size)), pathsOf(size, 0, "/", ""),
                       [](Json const& object, std::string const& path) {
                           return object.at(Json::json_pointer(path)).get<double>();
                       });
    };
    auto const jsonByPointer = [](std::size_t size) {
        std::vector<Json::json_pointer> pointers;
        for (std::string const& path : pathsOf(size, 0, "/", "")) {
            pointers.emplace_back(path);
        }
        return summing(std::shared_ptr<Json const>(sharedJson(size)), pointers,
                       [](Json const& object, Json::json_pointer const& path) {
                           return object.at(path).get<double>();
                       });
    };
    add({"paths/read points", n, pointByQx(), {{"json", jsonByText}}});
    add({"paths/read points, peer's paths prepared", n, pointByQx(), {{"json", jsonByPointer}}});
}

void addWrites() {
    add({"paths/write points",
         n,
         [](std::size_t size) {
             return summing(tableOf(treeOf(size)), tablePaths(size), [](Table& table, Str const& path) {
                 table.atXPath(path, true) = 2.0;
                 return 1.0;
             });
         },
         {{"json", [](std::size_t size) {
               return summing(sharedJson(size), pathsOf(size, 0, "/", ""),
                              [](Json& object, std::string const& path) {
                                  object[Json::json_pointer(path)] = 2.0;
                                  return 1.0;
                              });
           }}}});
}

} // namespace

void addPaths() {
    addFanOut();
    addPoints();
    addWrites();
}

} // namespace Bench
