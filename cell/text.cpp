// Texts as cells hold them.

#include "qx/text.h"

#include "cell/cellimplementation.h"
#include "memory/pool.h"

#include <cstring>
#include <new>

namespace QX {

namespace Detail {

SharedText* SharedText::make(std::string_view text) {
    return new (takeStorage(sizeof(SharedText) + text.size())) SharedText(text);
}

SharedText::SharedText(std::string_view text)
    : PtrRefCount(QX_MODULE_TAG, &SharedText::destroy), size_(text.size()) {
    std::memcpy(reinterpret_cast<char*>(this + 1), text.data(), size_);
}

void SharedText::destroy(PtrRefCount* block, void* /*object: a part of the block*/) {
    requireReleased(*block);
    auto* const text = static_cast<SharedText*>(block);
    std::size_t const size = sizeof(SharedText) + text->size_;
    text->~SharedText();
    giveStorage(text, size);
}

} // namespace Detail

Cell textCell(std::string_view text) {
    return CellImplementation::cellOf(Detail::CellContent::ofText(text));
}

} // namespace QX
