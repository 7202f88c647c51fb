#include "names.h"

#include "failure.h"
#include "journal.h"

namespace qxtab {

std::string nameText(QX::Table const& table, std::size_t index) {
    QX::Str name;
    require(table.get(index, 0).get(name, 0));
    return bytes(name);
}

bool hasIndex(QX::Table const& table, std::string const& name) {
    QX::Cell const wanted{QX::Str(name)};
    for (std::size_t i = 0; i < table.indices(); ++i) {
        if (table.get(i, 0).compare(wanted, false)) {
            return true;
        }
    }
    return false;
}

std::string missing(Input const& input, std::string const& name) {
    return input.file + " has no index \"" + name + '"';
}

void tellMissing(Input const& input, QX::Table const& operand) {
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        std::string const name = nameText(operand, k);
        if (!hasIndex(*input.table, name)) {
            tell(missing(input, name));
        }
    }
}

} // namespace qxtab
