#pragma once

#include <cstdlib>
#include <iostream>
#include <string>

namespace QX {

/// Ends the program, which is how a fuzzer learns of a fault, unless a rule holds for the input.
inline void require(bool holds, char const* rule, std::string const& detail = "") {
    if (!holds) {
        std::cerr << "Broken: " << rule << (detail.empty() ? "" : "\n") << detail << '\n';
        std::abort();
    }
}

} // namespace QX
