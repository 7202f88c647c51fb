#pragma once

#include "cell/number.h"
#include "qxbase/analyticdouble.h"
#include "qxbase/str.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace QX {

/// Reads a decimal number, the exact form ("## low high") or a ratio ("[Numeric] a b"), as stream
/// extraction reads them in the classic locale, with nothing allowed to follow. Not valid when the text
/// is none of these.
AnalyticDouble readNumber(std::string_view text);

/// Appends the number as a stream of the classic locale writes it with `precision` significant digits,
/// from 6 to 17.
void appendGeneral(std::string& text, double number, int precision);

/// Appends the exact form: the low and the high half of the double's bits as signed ints.
void appendExact(std::string& text, double number);

/// Writes the exact form with the stream's own integer formatting.
std::ostream& writeExact(std::ostream& os, double number);

/// The exact form.
Str exactText(double number);

/// The number with exactly `precision` digits after the point.
Str fixedText(double number, int precision);

} // namespace QX
