#include "qx/abi.h"

namespace QX {

char const Detail::QX_ABI_SYMBOL = 0;

} // namespace QX
