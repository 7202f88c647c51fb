#pragma once

#include "qx/cell.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace QX {

/// Writes lines to a stream. One that formats as every stream does when it is made gets each line in one
/// piece, of the same bytes: inserting a number takes several times as long as converting it.
class LineWriter {
public:
    explicit LineWriter(std::ostream& os) : os_(os) {}
    LineWriter(LineWriter const&) = delete;
    LineWriter& operator=(LineWriter const&) = delete;

    /// Looks at the stream's formatting; needed at first, and when others may have changed it.
    void look();
    LineWriter& operator<<(std::string_view text) {
        if (plain_) {
            line_ += text;
        } else {
            insert(text);
        }
        return *this;
    }
    LineWriter& operator<<(std::size_t number);
    LineWriter& operator<<(int number);
    LineWriter& operator<<(Cell const& cell);
    /// Ends the line and flushes the stream.
    void endLine();

private:
    void insert(std::string_view text);
    void send();

    std::ostream& os_;
    bool plain_ = false;
    int digits_ = 0;
    std::string line_; // what has not been sent yet
};

} // namespace QX
