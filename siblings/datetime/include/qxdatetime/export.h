#pragma once

/// Marks what the date-time library exports; define QXDATETIME_STATIC to use it as a static library.
#if defined(QXDATETIME_STATIC)
#define QXDATETIME_API
#elif defined(_WIN32) && defined(QXDATETIME_BUILD)
#define QXDATETIME_API __declspec(dllexport)
#elif defined(_WIN32)
#define QXDATETIME_API __declspec(dllimport)
#else
#define QXDATETIME_API [[gnu::visibility("default")]]
#endif
