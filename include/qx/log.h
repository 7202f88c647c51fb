#pragma once

#include "qx/except.h"
#include "qx/export.h"
#include "qxbase/report.h"
#include "qxbase/str.h"

#include <iosfwd>
#include <type_traits>

namespace QX {

/// A levelled log with date and time stamps, on standard output, a file or any stream.
///
///     22:Nov:2026 14:05:09 Main-Level 3: disk nearly full
///
/// A message has a level and is written when that is at or below the log's own. It begins with the date
/// and the time, each of which can be turned off, and, for level 1 and up, with the log's name and the
/// level. Date and time are the local ones. Every message, report and exception is flushed, so that what
/// explains a crash is there after it. A log whose stream is null writes nothing.
///
/// A log writes to a stream that it owns or to one that the caller keeps alive. It deletes a stream that
/// it owns when it goes over to another and when it is destroyed, and never touches the end of another.
/// Only one log owns a stream: a copy writes to the same stream without owning it, so the owner must
/// live, and keep the stream, for as long as its copies write. Moving a log hands over the stream with
/// its ownership, and leaves a log without a stream.
///
/// One file belongs to one log. A second log of the process that opens it is refused: it writes nothing,
/// which good() tells, and the file stays as it is. To have two logs write to one file, copy the log that
/// opened it. Logs of other processes, and streams that the caller opened, are not noticed.
///
/// A message that can't be written, to a full disk for one, is lost, and good() is false; the next one is
/// tried again, whatever state the stream was left in.
///
/// A log belongs to one thread at a time. Beside std::bad_alloc when memory runs out and what the
/// streams themselves throw, nothing here throws. A message for which there is no memory is not written,
/// or ends early with its line; the log can be used on.
class QX_API Log {
public:
    /// How important a message is; any other int, a negative one included, is a level too.
    enum LogLevel : int {
        Always = 0, ///< written without name and level, unless the log's level is negative
        Fatal = 1,
        Error = 2,
        Warning = 3,
        Info = 4,
        Debug = 5,
        Trace = 6
    };

    /// Makes a log without a name at level Info, on std::cout, with date and time.
    Log();
    /// Copies all settings and writes to the stream of `other` without owning it.
    Log(Log const& other);
    /// Copies all settings and writes to the stream of `other` without owning it.
    ///
    /// A stream that this log owned is deleted, unless it is that of `other` already; it then stays
    /// owned.
    Log& operator=(Log const& other);
    /// Takes over all settings and the stream, with its ownership; `other` then writes nothing.
    Log(Log&& other) noexcept;
    /// Takes over all settings and the stream, with its ownership; `other` then writes nothing.
    ///
    /// A stream that this log owned is deleted, unless it is that of `other` already; it then stays
    /// owned. Moving a log to itself changes nothing.
    Log& operator=(Log&& other) noexcept;
    /// Flushes and deletes the stream if this log owns it.
    ~Log();

    /// Sets the name in messages of level 1 and up and in the report line; writes nothing.
    void setName(Str const& name);
    /// Turns the date in front of messages on or off; returns what it was.
    bool setDateDisplay(bool display);
    /// Turns the time in front of messages on or off; returns what it was.
    bool setTimeDisplay(bool display);
    /// Sets the level above which messages are not written; returns what it was.
    ///
    /// Writes a banner, the message "Changing Log level to N" at the former level and a banner, or
    /// nothing when the level stays what it is.
    LogLevel setLevel(LogLevel newLevel);

    /// Goes over to `stream`, which may be null; writes nothing.
    ///
    /// Deletes the former stream if this log owned it. For the stream that the log holds already only
    /// the ownership changes: setStream(s, false) hands an owned stream back to the caller.
    void setStream(std::ostream* stream, bool owns);
    /// Goes over to a new file, which replaces a file of that name; the log owns its stream.
    ///
    /// The message "Switching log to NAME" at the log's level goes to the former stream, report() to the
    /// file. `fileName` is UTF-8. When the file cannot be opened, or is the file of another log, all
    /// messages are lost until the stream is changed again: good() is then false. A log may open its own
    /// file again. Of a name with a zero byte in it no file is opened. On Windows, raises
    /// std::system_error for a name that is not UTF-8; the stream is then the former.
    void setStream(Str const& fileName);
    /// Does not compile: a stream comes with a word on who deletes it, and a null pointer is no name.
    template <typename T, typename = std::enable_if_t<std::is_convertible<T, std::ostream*>::value ||
                                                      std::is_arithmetic<T>::value>>
    void setStream(T) {
        static_assert(sizeof(T) == 0, "write setStream(stream, owns), with nullptr to write nothing, or "
                                      "setStream(Str(fileName))");
    }
    /// True when there is a stream and all of the last message reached it; true before the first one of a
    /// stream that is in a good state.
    bool good() const;

    /// Writes a text as one line.
    void send(Str const& text, LogLevel level);
    /// Writes a report as Report::display() does, which ends the line.
    void send(Report const& report, LogLevel level);
    /// Writes an exception with those that it wraps, innermost first, each as Report::display() does.
    void send(Except const& e, LogLevel level);
    /// Does not compile: a number is no text, and 0 would be a null pointer to one.
    template <typename T, typename = std::enable_if_t<std::is_arithmetic<T>::value ||
                                                      std::is_null_pointer<T>::value>>
    void send(T, LogLevel) {
        static_assert(sizeof(T) == 0, "send a text: Str::asString(number) for a number");
    }

    /// Writes a line of 88 "=", whatever the level.
    void banner();
    /// Writes a banner, the message "Output Stream NAME at level N" at level 0 and a banner.
    void report();

protected:
    /// Writes what stands before a message; false, with nothing written, when such a message is not to
    /// be written.
    bool prefix(LogLevel level);

private:
    Str name_;
    LogLevel level_ = Info;
    std::ostream* stream_;
    bool owns_ = false;
    bool dateDisplay_ = true;
    bool timeDisplay_ = true;
};

} // namespace QX
