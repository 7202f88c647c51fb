#include "base/strview.h"
#include "table/model/bodies.h"
#include "table/walks/linewriter.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <bit>
#include <ostream>
#include <typeinfo>

namespace QX {

namespace {

/// The number of the next nested table; wraps around where the caller began near the largest int.
int successor(int number) {
    return static_cast<int>(static_cast<unsigned>(number) + 1U);
}

/// Writes the line of index i; `nested` is the number of the last nested table before it, and is carried
/// on. Looks the index up for each item, since the stream may be one that adds to the table.
void displayIndex(LineWriter& line, TableImplementation const& table, std::size_t i, int& nested) {
    Columns const& columns = table.columns();
    if (i == 0) {
        line << "Index 0 <";
    } else {
        line << "      " << i << " <";
    }
    if (columns[i].empty()) {
        line << ">";
    }
    for (std::size_t j = 0; j < columns[i].size(); ++j) {
        if (columns[i][j].isA() == Cell::TableCell) {
            nested = successor(nested);
            line << "`Table " << nested << "'";
        } else {
            line << columns[i][j];
        }
        line << (j == 0 ? "> " : " ");
    }
    line.endLine();
}

/// A table whose nested tables are displayed, which come before itself. Holds it, since the override of
/// a derived class may drop any table.
struct Display {
    Ptr<TableImplementation const> body;
    int number;
    int nested = number; // the number of the last nested table
    std::size_t i = 0;
    std::size_t j = 0;

    auto key() const { return body.get(); }
    Roots<1> roots() const { return {body.get()}; }

    /// Steps over the next table cell and numbers its table; null when there is none.
    Ptr<Table> nextNested() {
        for (; i < body->indices(); ++i, j = 0) {
            for (Column const& index = body->columns()[i]; j < index.size(); ++j) {
                if (index[j].isA() == Cell::TableCell) {
                    nested = successor(nested);
                    return handleOf(index[j++]);
                }
            }
        }
        return Ptr<Table>();
    }
};

/// A display that is under way in this thread. One begins inside another where a derived class displays
/// itself by calls of its own, which take up the stack.
class Call {
public:
    explicit Call(TableImplementation const* body)
        : body_(body), outer_(innermost), depth_(outer_ == nullptr ? 1 : outer_->depth_ + 1),
          anchor_(outer_ == nullptr || std::has_single_bit(outer_->depth_) ? outer_ : outer_->anchor_) {
        constexpr unsigned many = 500; // a class that limits its depth by itself may return before
        if (depth_ > many && body_ == anchor_->body_) {
            raiseEndless();
        }
        innermost = this;
    }
    Call(Call const&) = delete;
    Call& operator=(Call const&) = delete;
    ~Call() { innermost = outer_; }

private:
    static thread_local Call const* innermost;

    TableImplementation const* body_;
    Call const* outer_;
    unsigned depth_;
    Call const* anchor_; // the one at the last power of two
};

thread_local constinit Call const* Call::innermost = nullptr;

/// Writes a table behind its nested tables, which were numbered from `number` + 1.
void displayOwn(TableImplementation const& table, LineWriter& line, int number) {
    line.look();
    line << "Table - ";
    if (number == -1) {
        line << viewOf(table.name());
    } else {
        line << number;
    }
    line.endLine();
    int nested = number;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        displayIndex(line, table, i, nested);
    }
}

} // namespace

std::ostream& Walks::display(Ptr<TableImplementation const> const& table, std::ostream& os, int number) {
    Call const call(table.get());
    LineWriter line(os);
    auto const advance = [&](Descent<Display>& descent) -> std::optional<Display> {
        Display& walk = descent.back();
        while (Ptr<Table> const held = walk.nextNested()) {
            Table const& nested = *held;
            if (typeid(nested) == typeid(Table) && TableBodies::data(nested)) {
                return Display{TableBodies::data(nested), walk.nested};
            }
            nested.display(os, walk.nested);
        }
        displayOwn(*walk.body, line, walk.number);
        return std::nullopt;
    };
    walkNested(Display{table, number}, advance, [](Descent<Display>&, Display const&) {});
    return os;
}

} // namespace QX
