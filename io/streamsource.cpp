#include "io/bytesources.h"

#include <algorithm>
#include <cstring>
#include <istream>
#include <string>

namespace QX {

ByteSource streamSource(std::istream& in) {
    return [&in](char* buffer, std::size_t size) -> std::size_t {
        std::streambuf* const from = in.rdbuf();
        if (from == nullptr || from->sgetc() == std::char_traits<char>::eof()) {
            in.setstate(std::ios::eofbit);
            return 0;
        }
        // A buffer that doesn't tell how much it holds may not hold anything: it is asked for as much as
        // there is room for, since asking for each byte would take long.
        std::streamsize const held = from->in_avail();
        auto const most = static_cast<std::streamsize>(size);
        return static_cast<std::size_t>(from->sgetn(buffer, held > 0 ? std::min(held, most) : most));
    };
}

ByteSource textSource(std::string_view text) {
    return [text](char* buffer, std::size_t size) mutable -> std::size_t {
        std::size_t const taken = std::min(size, text.size());
        std::memcpy(buffer, text.data(), taken);
        text.remove_prefix(taken);
        return taken;
    };
}

} // namespace QX
