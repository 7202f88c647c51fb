#include "qx/table.h"

#include "base/makeptr.h"
#include "table/model/bodies.h"

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

} // namespace

Table::Table() : Table(Str()) {
}

Table::Table(Str const& name) : Table(makeBody(name)) {
}

Table::Table(Ptr<TableImplementation> const& body) : data_(body) {
}

Table::Table(Table const& other) : data_(other.data_), attributes_(other.attributes_.held()) {
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
    return bodyOf(*this).name();
}

std::size_t Table::indices() const {
    return bodyOf(*this).indices();
}

std::size_t Table::items(std::size_t /*index*/) const {
    return bodyOf(*this).items();
}

Cell const& Table::get(std::size_t i, std::size_t j) const {
    return bodyOf(*this).get(i, j);
}

Cell const& Table::at(std::size_t i, std::size_t j) const {
    return bodyOf(*this).get(i, j);
}

Cell const& Table::get(Str const& name, std::size_t j) const {
    return bodyOf(*this).get(name, j);
}

Cell const& Table::at(Str const& name, std::size_t j) const {
    return bodyOf(*this).get(name, j);
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

Status Table::alias(Ptr<Table const> /*other*/, Ptr<Table>& /*result*/) const {
    return Status("Not Implemented", Status::Error, -1);
}

Ptr<Table> Table::getAttributes() const {
    return makePtr<Table>(attributes_.held());
}

void Table::setAttributes(Ptr<Table> table) {
    if (table) {
        Detail::LateBody(table->data_).swap(attributes_);
    } else {
        Detail::LateBody().swap(attributes_);
    }
}

Ptr<TableImplementation> Table::getImplementation() const {
    return data_;
}

} // namespace QX
