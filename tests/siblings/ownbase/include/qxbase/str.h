#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace QX {

/// A text as an older library may have it: bytes in a vector, the terminating zero included, and no moves.
class Str {
public:
    Str() : bytes_(1, '\0') {}
    Str(char const* text) : bytes_(1, '\0') { assign(text, text == nullptr ? 0 : std::strlen(text)); }
    Str(std::string const& text) : bytes_(1, '\0') { assign(text.data(), text.size()); }
    Str(Str const& other) : bytes_(other.bytes_) {}
    Str& operator=(Str const& other) {
        std::vector<char> bytes(other.bytes_);
        bytes_.swap(bytes);
        return *this;
    }
    virtual ~Str() {}

#if !defined(OWN_WITHOUT_ASSIGN)
    Str& assign(char const* bytes, std::size_t size) {
        return set(bytes, size);
    }
#endif
    bool empty() const {
        return size() == 0;
    }
    std::size_t size() const {
        return bytes_.size() - 1;
    }
    char const* get() const {
        return bytes_.data();
    }
    char const* data() const {
        return bytes_.data();
    }

    Str operator+(Str const& other) const {
        return Str(*this) += other;
    }
    Str& operator+=(Str const& other) {
        return *this = Str(text() + other.text());
    }
    bool operator==(Str const& other) const {
        return bytes_ == other.bytes_;
    }

#if defined(OWN_FOLDS_CASE)
    int compare(Str const& other, bool) const {
        return folded().compare(other.folded());
    }
#else
    int compare(Str const& other, bool ignoreCase) const {
        return ignoreCase ? folded().compare(other.folded()) : text().compare(other.text());
    }
#endif
    int comparePrefix(Str const& text, bool ignoreCase, std::size_t least) const {
        return size() < least ? -1 : compare(Str(text.text().substr(0, size())), ignoreCase);
    }

    static Str asString(int number) {
        return Str(std::to_string(number));
    }
    static Str asString(double number) {
        std::ostringstream os;
        os.imbue(std::locale::classic());
        os.precision(17);
        os << number;
        return Str(os.str());
    }

private:
#if defined(OWN_WITHOUT_ASSIGN)
    void assign(char const* bytes, std::size_t size) {
        set(bytes, size);
    }
#endif
    Str& set(char const* bytes, std::size_t size) {
        bytes_ = std::vector<char>(bytes, bytes + size);
        bytes_.push_back('\0');
        return *this;
    }
    std::string text() const {
        return std::string(data(), size());
    }
    std::string folded() const {
        std::string text(data(), size());
        for (char& c : text) {
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        return text;
    }

    std::vector<char> bytes_;
};

inline std::ostream& operator<<(std::ostream& os, Str const& text) {
    return os << std::string(text.data(), text.size());
}

} // namespace QX
