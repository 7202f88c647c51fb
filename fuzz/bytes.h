#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace QX {

/// Takes a fuzzer's input apart from front to back; zeros follow its end.
class Bytes {
public:
    Bytes(std::uint8_t const* data, std::size_t size)
        : rest_(reinterpret_cast<char const*>(data), size) {}

    bool empty() const { return rest_.empty(); }
    std::uint8_t byte() {
        auto const first = static_cast<std::uint8_t>(rest_.empty() ? 0 : rest_.front());
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return first;
    }
    /// A number below `end`, which is 1 to 256.
    std::size_t below(std::size_t end) { return byte() % end; }
    bool flip() { return below(2) == 1; }
    double number() {
        std::uint64_t bits = 0;
        for (std::size_t k = 0; k < sizeof bits; ++k) {
            bits = bits << 8U | byte();
        }
        return std::bit_cast<double>(bits);
    }
    /// At most so many bytes, up to a zero, which is taken and left out.
    std::string text(std::size_t most) {
        std::string_view const taken = rest_.substr(0, most);
        std::size_t const size = taken.substr(0, taken.find('\0')).size();
        std::string const text(taken.substr(0, size));
        rest_.remove_prefix(size + (size < rest_.size() && rest_[size] == '\0' ? 1 : 0));
        return text;
    }
    std::string rest() {
        std::string const all(rest_);
        rest_ = {};
        return all;
    }

private:
    std::string_view rest_;
};

} // namespace QX
