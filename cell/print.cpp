// What cells print: on a stream by its own formatting, or sooner at the end of a text.

#include "cell/print.h"

#include "cell/nested.h"
#include "cell/numbertext.h"
#include "cell/view.h"

#include <locale>
#include <ostream>
#include <sstream>

namespace QX {

namespace {

class StreamSink {
public:
    explicit StreamSink(std::ostream& os) : os_(os) {}

    void write(std::string_view text) const { os_ << text; }
    void writeGeneral(double number) const { os_ << number; }
    void writeExact(double number) const { QX::writeExact(os_, number); }
    void write(Ptr<Table> const& table) const { NestedTable::display(table, os_); }

private:
    std::ostream& os_;
};

class TextSink {
public:
    TextSink(std::string& text, int digits) : text_(text), digits_(digits) {}

    void write(std::string_view text) const { text_ += text; }
    void writeGeneral(double number) const { appendGeneral(text_, number, digits_); }
    void writeExact(double number) const { appendExact(text_, number); }
    void write(Ptr<Table> const& table) const {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream.exceptions(std::ios::badbit); // a text cut short for want of memory would equal others
        stream.precision(digits_);
        NestedTable::display(table, stream);
        text_ += stream.str();
    }

private:
    std::string& text_;
    int digits_;
};

/// Writes what a cell prints.
template <typename Sink>
class Printer {
public:
    explicit Printer(Sink const& sink) : sink_(sink) {}

    void operator()(EmptyView /*empty*/) const { sink_.write(emptyText); }
    void operator()(TextView view) const { sink_.write(view.text); }
    void operator()(NumberView view) const {
        if (!view.number.isValid()) {
            sink_.write("[Undefined]");
        } else if (isWhole(view.number.get())) {
            sink_.writeGeneral(view.number.get());
        } else {
            sink_.writeExact(view.number.get());
        }
    }
    void operator()(TableView view) const { sink_.write(view.table); }
    void operator()(ErrorView /*error*/) const { sink_.write(std::string_view()); }

private:
    Sink const& sink_;
};

} // namespace

void appendDisplayText(std::string& text, Cell const& cell, int digits) {
    visit(cell, Printer(TextSink(text, digits)));
}

std::ostream& Cell::display(std::ostream& os) const {
    visit(*this, Printer(StreamSink(os)));
    return os;
}

std::ostream& operator<<(std::ostream& os, Cell const& cell) {
    return cell.display(os);
}

std::ostream& operator<<(std::ostream& os, AnalyticDouble const& number) {
    return os << number.get();
}

} // namespace QX
