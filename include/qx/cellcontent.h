#pragma once

#include "qx/ptr.h"
#include "qxbase/analyticdouble.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace QX {

class CellImplementation;
class Table;

namespace Detail {

/// What a cell holds: nothing, a number or a short text in place, or a share of a body.
class CellContent {
public:
    /// Texts of so many bytes are held in place.
    static constexpr std::size_t longestInPlace = 15;

    /// Holds nothing.
    CellContent() noexcept : tag_(0), payload_() {}
    /// Holds a number.
    explicit CellContent(AnalyticDouble const& number) noexcept
        : CellContent(number.get(), number.isValid()) {}
    CellContent(double number, bool valid) noexcept : tag_(numeric | (valid ? inPlace : 0)) {
        payload_.number = number;
    }
    /// Holds a text of at most `longestInPlace` bytes.
    CellContent(char const* text, std::size_t size) noexcept
        : tag_(string | inPlace | size << sizeShift), payload_() {
        static_assert(sizeof(CellContent) == longestInPlace + 1, "a short text must fit behind a byte");
        std::memcpy(reinterpret_cast<char*>(this) + 1, text, size);
    }
    /// Takes over one count of the block of a long text.
    explicit CellContent(PtrRefCount* text) noexcept : CellContent(text, string) {}
    /// Takes over one count of the block of a table cell's body, which holds `table`.
    CellContent(Table* table, PtrRefCount* block) noexcept : CellContent(block, nested) {
        payload_.table = table;
    }
    /// Takes over one count of the block of an error cell's body.
    CellContent(CellImplementation* error, PtrRefCount* block) noexcept : CellContent(block, failed) {
        payload_.error = error;
    }
    CellContent(CellContent const& other) noexcept : tag_(other.tag_), payload_(other.payload_) {
        if (isShared()) {
            block()->increment();
        }
    }
    CellContent(CellContent&& other) noexcept
        : tag_(std::exchange(other.tag_, 0)), payload_(other.payload_) {}
    ~CellContent() {
        if (isShared() && block()->decrement()) {
            block()->remove(nullptr); // the body is a part of the block
        }
    }
    CellContent& operator=(CellContent const& other) noexcept {
        CellContent copy(other);
        swap(copy);
        return *this;
    }
    CellContent& operator=(CellContent&& other) noexcept {
        CellContent taken(std::move(other));
        swap(taken);
        return *this;
    }

    /// The kind, as Cell::CellType numbers it.
    unsigned kind() const noexcept { return static_cast<unsigned>(tag_ & kindMask); }
    /// True for nothing, a number that is not valid and a text without bytes.
    bool isEmpty() const noexcept { return tag_ == 0 || tag_ == numeric || tag_ == (string | inPlace); }
    /// The number of a numeric cell.
    double number() const noexcept { return payload_.number; }
    /// Whether that number is valid.
    bool isValid() const noexcept { return (tag_ & inPlace) != 0; }
    /// Whether the text of a string cell is held in place.
    bool isShort() const noexcept { return (tag_ & inPlace) != 0; }
    /// The bytes of such a text; valid as long as this content stays where it is.
    char const* shortText() const noexcept { return reinterpret_cast<char const*>(this) + 1; }
    std::size_t shortSize() const noexcept { return (tag_ >> sizeShift) & longestInPlace; }
    /// The body of an error cell.
    CellImplementation* error() const noexcept { return payload_.error; }
    /// The nested table of a table cell.
    Table* table() const noexcept { return payload_.table; }
    /// The block of what is shared.
    PtrRefCount* block() const noexcept {
        return reinterpret_cast<PtrRefCount*>(tag_ & ~kindMask); // NOLINT(performance-no-int-to-ptr)
    }
    /// The number of cells that share the body; 0 where nothing is shared.
    std::uint32_t owners() const noexcept { return isShared() ? block()->count() : 0; }
    /// True when both hold the same bits, and so the same thing. False also of some that hold equal
    /// things, such as long texts of two bodies.
    bool isSame(CellContent const& other) const noexcept {
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits of a number are meant
        return std::memcmp(this, &other, sizeof(CellContent)) == 0;
    }

private:
    static constexpr std::uintptr_t kindMask = 7;
    static constexpr std::uintptr_t string = 1;
    static constexpr std::uintptr_t numeric = 2;
    static constexpr std::uintptr_t nested = 3;
    static constexpr std::uintptr_t failed = 4;
    static constexpr std::uintptr_t inPlace = 8; // a valid number or a short text
    static constexpr unsigned sizeShift = 4;     // where the size of a short text begins

    CellContent(PtrRefCount* block, std::uintptr_t kind) noexcept
        : tag_(reinterpret_cast<std::uintptr_t>(block) | kind), payload_() {
        static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ > (kindMask | inPlace),
                      "kind and mark are kept in the free bits of an address");
    }

    bool isShared() const noexcept { return tag_ > kindMask && (tag_ & inPlace) == 0; }
    void swap(CellContent& other) noexcept {
        std::swap(tag_, other.tag_);
        std::swap(payload_, other.payload_);
    }

    union Payload {
        CellImplementation* error;
        Table* table;
        double number;
    };

    // The address of a block with the kind in its lowest bits. Without one, the lowest byte is kind,
    // mark and size, and a short text fills the other bytes and the payload.
    std::uintptr_t tag_;
    Payload payload_;
};

} // namespace Detail

} // namespace QX
