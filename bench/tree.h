#pragma once

#include "answer.h"
#include "rows.h"

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace Bench {

/// A shop and its orders, as plain C++ holds them: one of the tables that a tree nests, with 19 below
/// it.
struct Shop {
    struct Sale {
        double number = 0;
        std::string customer;
        double total = 0;

        friend bool operator==(Sale const& left, Sale const& right) = default;
    };

    std::string name;
    std::vector<Sale> orders;

    friend bool operator==(Shop const& left, Shop const& right) = default;
};
using Tree = std::vector<Shop>;

inline constexpr std::size_t ordersPerShop = 19;

/// n nested things in all: a shop for every twenty. With `changed` one order in a hundred is another.
Tree treeOf(std::size_t n, bool changed = false);

/// The same tree as nested tables: "shops", and in each "name" and "orders" and so on.
Ptr<Table> tableOf(Tree const& tree);
/// The same as objects and arrays of objects.
Json jsonOf(Tree const& tree);
/// The same as elements, the values being their texts. A document can't be copied without saying so.
using Document = std::unique_ptr<pugi::xml_document>;
/// The text of a number, which reads back as the same, made the fastest way there is.
std::string numberText(double number);
Document documentOf(Tree const& tree);

Answer answerOf(Tree const& tree);
Answer treeAnswer(Table const& table);
Answer treeAnswer(Json const& object);
Answer treeAnswer(pugi::xml_document const& document);

} // namespace Bench
