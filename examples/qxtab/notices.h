#pragma once

#include <cstddef>
#include <string>

namespace qxtab {

/// Tells on standard error what is odd about an input that can be read all the same: the first ten
/// messages, then their number.
class Notices {
public:
    /// `file` is what messages call the input.
    explicit Notices(std::string file);

    /// Tells "qxtab: file: text".
    void tell(std::string const& text);
    /// Tells "qxtab: file:line: text".
    void tell(std::size_t line, std::string const& text);
    /// Tells how many messages were left out, if any.
    void finish() const;

private:
    void add(std::string const& place, std::string const& text);

    std::string file_;
    std::size_t count_ = 0;
};

} // namespace qxtab
