#pragma once

/// \file
/// A comfortable layer over the library: tables from braces, loops over rows, values as C++ types,
/// operations that take names and return tables, and the operators that one expects.
///
///     Ptr<Table> const prices = tableOf("prices", {{"fruit", {"apple", "pear"}}, {"price", {3, 4.5}}});
///     for (auto row : rows(prices)) {
///         row["price"] = 1.1 * valueOr(row["price"], 0.0);
///     }
///     std::cout << sorted(where(prices, [](Row row) { return as<double>(row["price"]) > 4.0; }), "fruit");
///
/// Everything is optional and stands on the other public headers. Nothing of it is in <qx/qx.h>; of
/// <qx/ease/format.h>, which is for std::format, nothing is in here.

#include "qx/ease/as.h"
#include "qx/ease/chain.h"
#include "qx/ease/columns.h"
#include "qx/ease/combine.h"
#include "qx/ease/failure.h"
#include "qx/ease/group.h"
#include "qx/ease/indexverbs.h"
#include "qx/ease/items.h"
#include "qx/ease/join.h"
#include "qx/ease/make.h"
#include "qx/ease/names.h"
#include "qx/ease/nested.h"
#include "qx/ease/operators.h"
#include "qx/ease/row.h"
#include "qx/ease/rowverbs.h"
#include "qx/ease/value.h"
#include "qx/qx.h"
