#pragma once

#include "qx/ptr.h"

#include <cstddef>
#include <string_view>

namespace QX {

/// The text of a string cell that is too long to be held in the cell: its bytes lie behind the count
/// block.
class SharedText final : public PtrRefCount {
public:
    /// Copies `text`; the block's count is 1.
    static SharedText* make(std::string_view text);
    /// The text whose block is `block`.
    static SharedText const& of(PtrRefCount const* block) {
        return static_cast<SharedText const&>(*block);
    }

    std::string_view text() const { return {reinterpret_cast<char const*>(this + 1), size_}; }

private:
    explicit SharedText(std::string_view text);

    static void destroy(PtrRefCount* block, void* object);

    std::size_t size_;
};

} // namespace QX
