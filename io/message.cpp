#include "io/message.h"

namespace QX {

std::string quotedForMessage(std::string_view text) {
    static char const digits[] = "0123456789ABCDEF";
    std::string shown = "\"";
    for (char const c : text.substr(0, sampleSize)) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            shown += {'\\', 'x', digits[byte >> 4U], digits[byte & 0xFU]};
        } else {
            shown += c;
        }
    }
    return shown + (text.size() > sampleSize ? "...\"" : "\"");
}

} // namespace QX
