#include "table/walks/linewriter.h"

#include "cell/print.h"
#include "cell/view.h"
#include "memory/fastpaths.h"

#include <array>
#include <charconv>
#include <locale>
#include <ostream>

namespace QX {

namespace {

constexpr std::size_t many = 4096; // bytes, which are sent before the line ends

/// True when `os` formats as every stream does when it is made, but for its precision, and nothing
/// waits for single insertions.
bool isPlain(std::ostream const& os) {
    bool const usual = os.flags() == (std::ios::skipws | std::ios::dec) && os.width() == 0 &&
                       os.precision() >= 6 && os.precision() <= displayDigits;
    return fastPaths && usual && os.tie() == nullptr && os.getloc() == std::locale::classic();
}

template <typename Number>
void appendDecimal(std::string& text, Number number) {
    std::array<char, 24> digits;
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

} // namespace

void LineWriter::look() {
    plain_ = isPlain(os_);
    digits_ = static_cast<int>(os_.precision());
}

LineWriter& LineWriter::operator<<(std::size_t number) {
    if (plain_) {
        appendDecimal(line_, number);
    } else {
        os_ << number;
    }
    return *this;
}

LineWriter& LineWriter::operator<<(int number) {
    if (plain_) {
        appendDecimal(line_, number);
    } else {
        os_ << number;
    }
    return *this;
}

LineWriter& LineWriter::operator<<(Cell const& cell) {
    if (!plain_) {
        os_ << Cell(cell); // a copy, since the stream may be one that changes the cell meanwhile
    } else if (cell.isA() == Cell::StringCell && textOf(cell).size() > many) {
        Cell const kept(cell);
        send(); // and the text by itself, without a copy of its bytes
        os_ << textOf(kept);
    } else {
        appendDisplayText(line_, cell, digits_);
        if (line_.size() > many) {
            send();
        }
    }
    return *this;
}

void LineWriter::endLine() {
    if (plain_) {
        line_ += '\n';
        send();
        os_.flush();
    } else {
        os_ << std::endl;
    }
}

void LineWriter::insert(std::string_view text) {
    os_ << text;
}

void LineWriter::send() {
    os_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
    line_.clear();
}

} // namespace QX
