#pragma once

/// The names of the tables that JSON is read into, and of the index that holds plain elements.
namespace QX::JsonName {
inline constexpr char object[] = "{}";
inline constexpr char array[] = "[]";
inline constexpr char rows[] = "[{}]";
inline constexpr char root[] = "$";
inline constexpr char elements[] = "value";
} // namespace QX::JsonName
