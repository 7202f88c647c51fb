#pragma once

#include "qx/export.h"

/// Marks what the library of files exports; define QXIO_STATIC to use it as a static library.
#if defined(QXIO_STATIC)
#define QXIO_API
#elif defined(_WIN32) && defined(QXIO_BUILD)
#define QXIO_API __declspec(dllexport)
#elif defined(_WIN32)
#define QXIO_API __declspec(dllimport)
#else
#define QXIO_API [[gnu::visibility("default")]]
#endif
