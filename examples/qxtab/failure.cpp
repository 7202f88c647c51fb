#include "failure.h"

namespace qxtab {

void require(QX::Status const& status) {
    if (!status.ok()) {
        throw Failure(bytes(status.message(false)));
    }
}

std::string bytes(QX::Str const& text) {
    return std::string(text.data(), text.size());
}

} // namespace qxtab
