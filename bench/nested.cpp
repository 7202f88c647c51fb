// A tree of n nested tables of a few cells each: made, copied, dropped, compared and walked.

#include "families.h"
#include "tree.h"
#include "workload.h"

namespace Bench {

namespace {

std::size_t const n = 10'000;

auto const tableAnswer = [](Ptr<Table> const& table) { return treeAnswer(*table); };
auto const jsonAnswer = [](Json const& object) { return treeAnswer(object); };
auto const documentAnswer = [](Document const& document) { return treeAnswer(*document); };
auto const plainAnswer = [](Tree const& tree) { return answerOf(tree); };

Document copied(pugi::xml_document const& document) {
    auto copy = std::make_unique<pugi::xml_document>();
    copy->reset(document);
    return copy;
}

template <typename Make, typename Look>
Prepare fromTree(Make make, Look look) {
    return [make, look](std::size_t size) {
        return job([make, tree = treeOf(size)] { return make(tree); }, look);
    };
}

Ptr<Table> tableOfTree(Tree const& tree) {
    return tableOf(tree);
}
Json jsonOfTree(Tree const& tree) {
    return jsonOf(tree);
}
Tree grown(Tree const& tree) {
    Tree copy;
    for (Shop const& shop : tree) {
        copy.push_back({shop.name, {}});
        for (Shop::Sale const& sale : shop.orders) {
            copy.back().orders.push_back(sale);
        }
    }
    return copy;
}

void addMaking() {
    std::vector<std::pair<char const*, Prepare>> const peers = {
        {"json", fromTree(jsonOfTree, jsonAnswer)},
        {"pugixml", fromTree(documentOf, documentAnswer)},
        {"plain", fromTree(grown, plainAnswer)}};
    add({"nested/build", n, fromTree(tableOfTree, tableAnswer), peers, Timed::Making});
    add({"nested/destroy", n, fromTree(tableOfTree, tableAnswer), peers, Timed::Dropping});
    add({"nested/copy",
         n,
         [](std::size_t size) {
             return job([table = tableOf(treeOf(size))] { return table->clone(); }, tableAnswer);
         },
         {{"json",
           [](std::size_t size) {
               return job([object = jsonOf(treeOf(size))] { return Json(object); }, jsonAnswer);
           }},
          {"pugixml",
           [](std::size_t size) {
               return job(
                   [document = std::shared_ptr(documentOf(treeOf(size)))] { return copied(*document); },
                   documentAnswer);
           }},
          {"plain", fromTree([](Tree const& tree) { return Tree(tree); }, plainAnswer)}},
         Timed::Making});
}

Answer truth(bool value) {
    return single(value ? 1 : 0);
}

void addComparing() {
    add({"nested/match equal trees",
         n,
         [](std::size_t size) {
             return job([left = tableOf(treeOf(size)),
                         right = tableOf(treeOf(size))] { return left->match(right, false); },
                        truth);
         },
         {{"json",
           [](std::size_t size) {
               return job(
                   [left = jsonOf(treeOf(size)), right = jsonOf(treeOf(size))] { return left == right; },
                   truth);
           }},
          {"plain", [](std::size_t size) {
               return job([left = treeOf(size), right = treeOf(size)] { return left == right; }, truth);
           }}}});
    add({"nested/compare, one in 100 differs",
         n,
         [](std::size_t size) {
             return job(
                 [left = tableOf(treeOf(size)), right = tableOf(treeOf(size, true))] {
                     Ptr<Table> differences;
                     (void)left->compare(right, differences, false);
                     return differences;
                 },
                 [](Ptr<Table> const& differences) {
                     Tally tally;
                     for (std::size_t j = 1; j < differences->items(0); ++j) {
                         take(tally, differences->get("Right", j));
                         tally.endRow();
                     }
                     return tally.answer();
                 });
         },
         {{"json", [](std::size_t size) {
               return job([left = jsonOf(treeOf(size)),
                           right = jsonOf(treeOf(size, true))] { return Json::diff(left, right); },
                          [](Json const& patch) {
                              Tally tally;
                              for (Json const& step : patch) {
                                  take(tally, step["value"]);
                                  tally.endRow();
                              }
                              return tally.answer();
                          });
           }}}});
}

} // namespace

void addNested() {
    addMaking();
    addComparing();
    add({"nested/check for loops",
         n,
         [](std::size_t size) {
             return job([table = tableOf(treeOf(size))] { return table->check(); }, truth);
         },
         {}});
}

} // namespace Bench
