#pragma once

#include "qx/ioexport.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace QX {

/// What reading or writing a file, a stream or a text raises: what is wrong, and where.
///
/// what() is "name:line:column: message", with as much of it as is known: "prices.csv:3:7: text follows
/// the closing quote of a field". Lines count from 1 and end with LF, CR or CRLF; columns count bytes
/// from 1.
class QXIO_API IoError : public std::runtime_error {
public:
    /// Keeps all parts; an empty name and a line of 0 stand for a place that is not known.
    IoError(std::string const& name, std::size_t line, std::size_t column, std::string const& message);
    /// Holds the same parts.
    IoError(IoError const&) = default;
    /// Takes over the other's parts.
    IoError& operator=(IoError const&) = default;
    ~IoError() override;

    /// What was read or written: the path of a file, or the name that the options give.
    std::string const& name() const { return name_; }
    /// The line; 0 when the whole is meant.
    std::size_t line() const { return line_; }
    /// The column; 0 when the whole line is meant.
    std::size_t column() const { return column_; }
    /// The message without the place.
    std::string const& message() const { return message_; }

private:
    std::string name_;
    std::size_t line_;
    std::size_t column_;
    std::string message_;
};

} // namespace QX
