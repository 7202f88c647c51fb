#pragma once

/// Brings in every class of the library and of its sibling libraries.

#include "qx/cell.h"
#include "qx/except.h"
#include "qx/export.h"
#include "qx/library.h"
#include "qx/log.h"
#include "qx/memory.h"
#include "qx/ptr.h"
#include "qx/table.h"
#include "qx/tblpath.h"
#include "qx/text.h"
#include "qx/version.h"
#include "qxbase/analyticdouble.h"
#include "qxbase/report.h"
#include "qxbase/status.h"
#include "qxbase/str.h"
#include "qxdatetime/date.h"
#include "qxdatetime/datetime.h"
