#pragma once

namespace QX {

/// True where the library keeps storage that was given back and hands it out again. Decided once, before
/// the first storage is handed out: not in a build with -DQX_POOLING=OFF; then as the environment
/// variable QX_POOLING says, 0 or 1; otherwise, unless a sanitizer or valgrind watches the process, since
/// those find what goes wrong with an object only if its storage is not used again behind their back.
#if defined(QX_POOLING)
bool poolingOn() noexcept;
#else
constexpr bool poolingOn() noexcept {
    return false;
}
#endif

} // namespace QX
