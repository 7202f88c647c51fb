#pragma once

#include "qx/except.h"

#include <string>

namespace QX {
inline namespace Ease {

/// What the functions of this layer raise: an Except whose what() is its message.
///
/// Catch it as Except or std::exception; the message is in report(), too.
class Failure : public Except {
public:
    /// Makes an Error with code -1; `line` is that of the raise.
    explicit Failure(std::string const& message, int line = __builtin_LINE())
        : Except(Report(Status(Str(message), Status::Error, -1), "qx/ease", line)), message_(message) {}

    /// The message.
    char const* what() const noexcept override { return message_.get(); }

private:
    Str message_;
};

} // namespace Ease

namespace Detail {

/// Raises a Failure when a status is not Ok, with its message.
inline void require(Status const& status, int line = __builtin_LINE()) {
    if (!status.ok()) {
        throw Failure(status.message(false).get(), line);
    }
}

} // namespace Detail
} // namespace QX
