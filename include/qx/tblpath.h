#pragma once

#include "qx/export.h"
#include "qxbase/status.h"
#include "qxbase/str.h"

#include <cstddef>
#include <utility>

namespace QX {

/// A textual path that leads to a cell inside nested tables; only text, it never touches a table.
///
/// A path is a list of steps joined by a separator character. A step is the name of an index, or a name,
/// "[", an item number and "]". Separators in front of the path do not count; a doubled separator inside
/// makes an empty step. Nothing is quoted or escaped, so no step can contain the separator.
///
///     path         first step                 rest       last step
///     rates[3]/eur rates, item 3              eur        eur
///     a/b[2]       a, no item number          b[2]       b, item 2
///     //a//b       a, no item number          /b         b, no item number
///     a/           a, no item number          (empty)    (empty name), no item number
///     [2]          (empty name), item 2       (empty)    the same
///     rates[x]     (unreadable)               (empty)    the same
///
/// A step's name is what stands before its first "[". Its number is read as unsigned decimal, and what
/// follows the number is ignored: rates[3 and rates[ 3,4]x are item 3 of rates. White space and a sign
/// may stand before the digits; negative numbers count back from 0, so -1 is Table::npos. A number that
/// lacks digits or is beyond the range of std::size_t cannot be read. Of what follows the "[", only as
/// many characters count as stand before the step's first "]", which matters where a "]" comes first:
/// a]b[12] is item 1 of a]b. A step without "[" has the number Table::npos.
///
/// A value: a copy owns its own text, and a moved path keeps its value. Beside running out of memory,
/// nothing here throws. Every member costs linear time in the length of the path.
class QX_API TblPath {
public:
    /// Keeps `path` without its leading separators.
    explicit TblPath(Str const& path, char separator = '/');
    /// Copies the text.
    TblPath(TblPath const& other) = default;
    /// Copies `other`, which keeps its value.
    TblPath(TblPath&& other) : TblPath(std::as_const(other)) {}
    /// Copies the text.
    TblPath& operator=(TblPath const& other) = default;
    /// Copies `other`, which keeps its value.
    TblPath& operator=(TblPath&& other) { return *this = std::as_const(other); }
    ~TblPath() = default;

    /// Reads the first step; an empty path has one step, with an empty name and no item number.
    ///
    /// With `last` true, the last step is not read: a path of one step gives Error "final table". An
    /// item number that cannot be read gives Error "Invalid format Xpath STEP". Both have code -1, leave
    /// `name` as it was and set `index` to Table::npos.
    Status currentPath(Str& name, std::size_t& index, bool last) const;

    /// Copies what follows the first separator, which may begin with further ones; empty when there is
    /// none. Always Ok.
    Status nextPath(Str& rest) const;

    /// Reads the last step, which is empty when the path ends with a separator. Fails as currentPath()
    /// does for an item number that cannot be read.
    Status finalPath(Str& name, std::size_t& index) const;

    /// The path without item numbers, a separator before every step.
    ///
    /// Empty steps are left out, other than one at the end behind two or more separators. A step whose
    /// number cannot be read counts as one with an empty name.
    ///
    ///     a[1]/b[2]/c     /a/b/c
    ///     a[x]/b          //b
    ///     a//b/           /a/b
    ///     a//             /a/
    ///     (empty)         /
    Str stripPath() const;

    /// The path without its last step, every step with its item number and a separator before it.
    ///
    /// The first step is always written, so a single step is its own parent. A step without a number is
    /// written with Table::npos, and one whose number cannot be read as an empty name with Table::npos.
    /// Empty steps count as in stripPath().
    ///
    ///     a[1]/b[2]/c     /a[1]/b[2]
    ///     a[4]            /a[4]
    ///     a/b             /a[18446744073709551615]
    ///     a[1]/b[2]/      /a[1]
    ///     a[1]/b[2]//     /a[1]/b[2]
    Str parent() const;

private:
    Str path_;
    char separator_;
};

} // namespace QX
