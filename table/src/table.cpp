#include "qx/table.h"

#include "table/src/tableimpl.h"

#include <ostream>

namespace QX {

namespace {

#if defined(_WIN32)
// A DLL exports an inline variable of a class only if it uses its address, as callers may.
[[gnu::used]] std::size_t const* const exportedNpos = &Table::npos;
#endif

/// Writes to the data body, making one where there is none; a write that fails leaves none behind.
template <typename Write>
Cell& writeTo(Ptr<TableImplementation>& data, Write const& write) {
    if (data) {
        return write(*data);
    }
    Ptr<TableImplementation> const body = makeBody(Str());
    Cell& cell = write(*body);
    data = body;
    return cell;
}

/// Attributes that nothing has used yet: hardly any table has some, and a body takes as much memory as
/// all else of a small table. It reads as null, but its object is an empty body.
Ptr<TableImplementation> unmadeAttributes() {
    return {const_cast<TableImplementation*>(&TableImplementation::none()), nullptr};
}

} // namespace

Table::Table() : Table(Str()) {
}

Table::Table(Str const& name) : Table(makeBody(name)) {
}

Table::Table(Ptr<TableImplementation> const& body) : data_(body), attributes_(unmadeAttributes()) {
}

Table::Table(Table const& other) : data_(other.data_), attributes_(other.heldAttributes()) {
}

Table& Table::operator=(Table const& other) {
    Table kept(other); // `other` may go with the bodies that are released here
    data_.swap(kept.data_);
    attributes_.swap(kept.attributes_);
    return *this;
}

Table::~Table() = default;

bool Table::operator==(Ptr<Table> other) {
    return other && other.get() == this;
}

Str const& Table::name() const {
    return body().name();
}

std::size_t Table::indices() const {
    return body().indices();
}

std::size_t Table::items(std::size_t /*index*/) const {
    return body().items();
}

Cell const& Table::get(std::size_t i, std::size_t j) const {
    return body().get(i, j);
}

Cell const& Table::at(std::size_t i, std::size_t j) const {
    return body().get(i, j);
}

Cell const& Table::get(Str const& name, std::size_t j) const {
    return body().get(name, j);
}

Cell const& Table::at(Str const& name, std::size_t j) const {
    return body().get(name, j);
}

Cell& Table::at(std::size_t i, std::size_t j) {
    return writeTo(data_, [&](TableImplementation& body) -> Cell& { return body.at(i, j); });
}

Cell& Table::at(Str const& name, std::size_t j) {
    return writeTo(data_, [&](TableImplementation& body) -> Cell& { return body.at(name, j); });
}

Cell& Table::at(std::size_t i, std::size_t j, Cell const& cell) {
    if (i == npos || j == npos) {
        return TableImplementation::sharedEmptyCell();
    }
    return writeTo(data_, [&](TableImplementation& body) -> Cell& { return body.at(i, j, cell); });
}

Cell& Table::at(Str const& name, std::size_t j, Cell const& cell) {
    return writeTo(data_, [&](TableImplementation& body) -> Cell& { return body.at(name, j, cell); });
}

Cell& Table::at(char const* name, std::size_t j, Cell const& cell) {
    return at(Str(name), j, cell);
}

bool Table::check() const {
    return body().check();
}

Ptr<Table> Table::clone() const {
    return TableImplementation::clone(*this);
}

Status Table::alias(Ptr<Table const> /*other*/, Ptr<Table>& /*result*/) const {
    return Status("Not Implemented", Status::Error, -1);
}

Ptr<Table> Table::getAttributes() const {
    return makePtr<Table>(heldAttributes());
}

void Table::setAttributes(Ptr<Table> table) {
    attributes_ = table ? table->data_ : unmadeAttributes();
}

std::ostream& Table::display(std::ostream& os, int number) const {
    return data_ ? TableImplementation::display(data_, os, number) : os << "Null table" << std::endl;
}

Ptr<TableImplementation> Table::getImplementation() const {
    return data_;
}

Ptr<TableImplementation> Table::heldBody() const {
    return data_ ? data_ : makeBody(Str());
}

Ptr<TableImplementation> const& Table::heldAttributes() const {
    if (!attributes_ && attributes_.get() != nullptr) {
        attributes_ = makeBody(Str());
    }
    return attributes_;
}

TableImplementation const& Table::body() const {
    return data_ ? *data_ : TableImplementation::none();
}

} // namespace QX
