#include "qx/ioerror.h"

namespace QX {

namespace {

std::string placed(std::string const& name, std::size_t line, std::size_t column,
                   std::string const& message) {
    std::string text = name;
    for (std::size_t const number : {line, column}) {
        if (number != 0) {
            text += text.empty() ? "" : ":";
            text += std::to_string(number);
        }
    }
    text += text.empty() ? "" : ": ";
    return text + message;
}

} // namespace

IoError::IoError(std::string const& name, std::size_t line, std::size_t column,
                 std::string const& message)
    : std::runtime_error(placed(name, line, column, message)), name_(name), line_(line), column_(column),
      message_(message) {
}

IoError::~IoError() = default;

} // namespace QX
