#pragma once

#include <qx/qx.h>

#if !defined(_WIN32)
#define PLUGIN_API [[gnu::visibility("default")]]
#elif defined(PLUGIN_BUILD)
#define PLUGIN_API __declspec(dllexport)
#else
#define PLUGIN_API __declspec(dllimport)
#endif

/// A second shared library with a module tag of its own, as a caller's plugin would be.
namespace plugin {

/// An object that only the plugin can end: its class is not known to others.
class Part;

/// Makes an object, and the handle to it, in the plugin.
PLUGIN_API QX::Ptr<Part> makePart();
/// How many parts have been made and not yet ended.
PLUGIN_API int partsAlive();

/// Makes a count block with the plugin's tag.
PLUGIN_API QX::PtrRefCount* makeBlock(QX::PtrRefCount::Deleter deleter);
/// Ends a block of makeBlock().
PLUGIN_API void endBlock(QX::PtrRefCount* block);

/// A moniker whose class is the plugin's: its name() is in angle brackets.
PLUGIN_API QX::Ptr<QX::Moniker> makeMoniker();
/// A table whose class is the plugin's: it displays itself as "table of the plugin" and its number.
PLUGIN_API QX::Ptr<QX::Table> makeTable();
/// A table of one index "values" with a cell of each kind.
PLUGIN_API QX::Ptr<QX::Table> makeValues();
/// A cell's text, or the failure in angle brackets, as the plugin reads it.
PLUGIN_API QX::Str textOf(QX::Cell const& cell);

/// Has the library raise Except, and returns the message of what the plugin caught by that type.
PLUGIN_API QX::Str catchExcept();
/// Raises Except in the plugin.
[[noreturn]] PLUGIN_API void throwExcept();

} // namespace plugin
