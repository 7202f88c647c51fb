#include "qx/tblpath.h"

#include "base/strview.h"
#include "table/paths/pathstep.h"

#include <string>
#include <string_view>

namespace QX {

namespace {

/// Hands out a step that was read, or says why there is none.
Status deliver(PathStep const& step, Str& name, std::size_t& index) {
    index = step.item;
    if (!step.readable) {
        return Status(Str("Invalid format Xpath ") + toStr(step.text), Status::Error, -1);
    }
    name = toStr(step.name);
    return Status();
}

} // namespace

TblPath::TblPath(Str const& path, char separator)
    : path_(toStr(skipSeparators(viewOf(path), separator))), separator_(separator) {
}

Status TblPath::currentPath(Str& name, std::size_t& index, bool last) const {
    std::string_view path = viewOf(path_);
    PathStep const step = takeStep(path, separator_);
    if (last && step.last) {
        index = Table::npos;
        return Status() << "final table";
    }
    return deliver(step, name, index);
}

Status TblPath::nextPath(Str& rest) const {
    std::string_view path = viewOf(path_);
    takeStep(path, separator_);
    rest = toStr(path);
    return Status();
}

Status TblPath::finalPath(Str& name, std::size_t& index) const {
    std::string_view path = viewOf(path_);
    path.remove_prefix(path.rfind(separator_) + 1); // npos + 1 is 0: the whole path
    return deliver(takeStep(path, separator_), name, index);
}

Str TblPath::stripPath() const {
    std::string text;
    std::string_view rest = viewOf(path_);
    do {
        rest = skipSeparators(rest, separator_);
        text += separator_;
        text += takeStep(rest, separator_).name;
    } while (!rest.empty());
    return text;
}

Str TblPath::parent() const {
    std::string text;
    std::string_view rest = viewOf(path_);
    PathStep step = takeStep(rest, separator_);
    do {
        text += separator_;
        text.append(step.name).append("[").append(std::to_string(step.item)).append("]");
        rest = skipSeparators(rest, separator_);
        step = takeStep(rest, separator_);
    } while (!rest.empty());
    return text;
}

} // namespace QX
