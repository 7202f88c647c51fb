#include "plugin.h"

#include <ostream>

namespace plugin {

namespace {

int alive = 0;

class Bracketed : public QX::Moniker {
public:
    QX::Str name() const override { return QX::Str("<") + QX::Moniker::name() + ">"; }
};

class OwnTable : public QX::Table {
public:
    using QX::Table::Table;
    std::ostream& display(std::ostream& os, int number) const override {
        return os << "table of the plugin " << number << '\n';
    }
};

} // namespace

class Part {
public:
    Part() { ++alive; }
    Part(Part const&) = delete;
    Part& operator=(Part const&) = delete;
    ~Part() { --alive; }
};

QX::Ptr<Part> makePart() {
    return QX::Ptr<Part>(new Part);
}

int partsAlive() {
    return alive;
}

QX::PtrRefCount* makeBlock(QX::PtrRefCount::Deleter deleter) {
    return new QX::PtrRefCount(QX_MODULE_TAG, deleter);
}

void endBlock(QX::PtrRefCount* block) {
    delete block;
}

QX::Ptr<QX::Moniker> makeMoniker() {
    return QX::Ptr<QX::Moniker>(new Bracketed);
}

QX::Ptr<QX::Table> makeTable() {
    return QX::Ptr<QX::Table>(new OwnTable);
}

QX::Ptr<QX::Table> makeValues() {
    QX::Ptr<QX::Table> const values(new QX::Table("values"));
    values->at("values", 1) = QX::Cell();
    values->at("values", 2) = QX::Str("text");
    values->at("values", 3) = 12.5;
    values->at("values", 4) = QX::Status("lost", QX::Status::Error, -1);
    values->at("values", 5) = makeTable();
    return values;
}

QX::Str textOf(QX::Cell const& cell) {
    QX::Str text;
    QX::Status const status = cell.get(text, 0);
    return status.ok() ? text : QX::Str("<") + status.message(false) + ">";
}

QX::Str catchExcept() {
    try {
        QX::Ptr<QX::Table> result;
        (void)QX::Table().merge(QX::Ptr<QX::Table const>(), result, false);
    } catch (QX::Except const& e) {
        return e.report().message(false);
    }
    return "nothing was raised";
}

void throwExcept() {
    throw QX::Except(QX::Report(QX::Status("from the plugin", QX::Status::Error, -1), "plugin.cpp", 1));
}

} // namespace plugin
