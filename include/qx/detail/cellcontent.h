#pragma once

#include "qx/ptr.h"
#include "qxbase/analyticdouble.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

namespace QX {

class Status;
class Table;

namespace Detail {

/// A text too long to be held in a cell: a count block with the bytes behind it.
class SharedText final : public PtrRefCount {
public:
    /// Copies `text`; the count is 1.
    static SharedText* make(std::string_view text);

    std::string_view text() const { return {reinterpret_cast<char const*>(this + 1), size_}; }

private:
    explicit SharedText(std::string_view text);

    static void destroy(PtrRefCount* block, void* object);

    std::size_t size_;
};

/// What a cell holds: nothing, a number or a short text in place, or a share of a long text, a table or a
/// status. The only place that knows how these are kept in 16 bytes.
class CellContent {
public:
    union Payload {
        Table* table;
        Status const* status;
        double number;
    };
    /// The address of a block with the kind in its lowest bits. Without one, the lowest byte is kind, mark
    /// and size, and a short text fills the other bytes and the payload.
    struct Bits {
        std::uintptr_t tag;
        Payload payload;
    };
    static_assert(std::is_trivially_copyable<Bits>::value, "a short text is copied into its bytes");

    /// Texts of so many bytes are held in place.
    static constexpr std::size_t longestInPlace = 15;

    /// Holds nothing.
    CellContent() noexcept = default;
    /// Takes over what release() let go.
    explicit CellContent(Bits const& bits) noexcept : bits_(bits) {}
    /// Holds a number.
    explicit CellContent(AnalyticDouble const& number) noexcept
        : CellContent(number.get(), number.isValid()) {}
    CellContent(double number, bool valid) noexcept {
        bits_.tag = numeric | (valid ? inPlace : 0);
        bits_.payload.number = number;
    }
    /// Holds a text, whatever it reads as.
    static CellContent ofText(std::string_view text) {
        return text.size() <= longestInPlace ? CellContent(text.data(), text.size())
                                             : CellContent(SharedText::make(text));
    }
    /// Holds a text of at most `longestInPlace` bytes.
    CellContent(char const* text, std::size_t size) noexcept {
        static_assert(sizeof(Bits) == longestInPlace + 1, "a short text must fit behind a byte");
        bits_.tag = string | inPlace | size << sizeShift;
        std::memcpy(reinterpret_cast<char*>(&bits_) + 1, text, size);
    }
    /// Takes over one count of a long text.
    explicit CellContent(SharedText* text) noexcept : CellContent(text, string) {}
    /// Takes over one count of the block that holds a handle to `table`.
    CellContent(Table* table, PtrRefCount* block) noexcept : CellContent(block, nested) {
        bits_.payload.table = table;
    }
    /// Takes over one count of the block that holds `status`.
    CellContent(Status const* status, PtrRefCount* block) noexcept : CellContent(block, failed) {
        bits_.payload.status = status;
    }
    CellContent(CellContent const& other) noexcept : bits_(other.bits_) {
        if (isShared()) {
            block()->increment();
        }
    }
    CellContent(CellContent&& other) noexcept : bits_(other.bits_) { other.bits_.tag = 0; }
    ~CellContent() {
        if (isShared() && block()->decrement()) {
            block()->remove(nullptr); // what is shared is a part of the block
        }
    }
    CellContent& operator=(CellContent const& other) noexcept {
        CellContent copy(other);
        std::swap(bits_, copy.bits_);
        return *this;
    }
    CellContent& operator=(CellContent&& other) noexcept {
        CellContent taken(std::move(other));
        std::swap(bits_, taken.bits_);
        return *this;
    }

    /// Lets go of what is held: registers hold these bits, so that a function of the library may return
    /// them without a content of the caller's having an address.
    Bits release() noexcept { return std::exchange(bits_, Bits{}); }
    /// The kind, as Cell::CellType numbers it.
    unsigned kind() const noexcept { return static_cast<unsigned>(bits_.tag & kindMask); }
    bool isNumber() const noexcept { return kind() == numeric; }
    bool isText() const noexcept { return kind() == string; }
    /// True for nothing, a number that is not valid and a text without bytes.
    bool isEmpty() const noexcept {
        return bits_.tag == 0 || bits_.tag == numeric || bits_.tag == (string | inPlace);
    }
    /// The number of a numeric cell.
    double number() const noexcept { return bits_.payload.number; }
    /// That number with its validity.
    AnalyticDouble analytic() const {
        AnalyticDouble number;
        number.value = bits_.payload.number;
        number.valid = (bits_.tag & inPlace) != 0;
        return number;
    }
    /// True when the text of a string cell is held in place.
    bool isShort() const noexcept { return (bits_.tag & inPlace) != 0; }
    /// The text of a string cell; valid as long as this content stays where it is and holds it.
    std::string_view text() const noexcept {
        return isShort() ? std::string_view(reinterpret_cast<char const*>(&bits_) + 1,
                                            (bits_.tag >> sizeShift) & longestInPlace)
                         : static_cast<SharedText const*>(block())->text();
    }
    /// The nested table of a table cell.
    Table* table() const noexcept { return bits_.payload.table; }
    /// The status of an error cell.
    Status const& status() const noexcept { return *bits_.payload.status; }
    /// The block of what is shared.
    PtrRefCount* block() const noexcept {
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return reinterpret_cast<PtrRefCount*>(bits_.tag & ~kindMask);
    }
    /// The number of cells that share the block; 0 where nothing is shared.
    std::uint32_t owners() const noexcept { return isShared() ? block()->count() : 0; }
    /// True when both hold the same bits, and so the same thing. False also of some that hold equal
    /// things, such as long texts in two blocks.
    bool hasSameBits(CellContent const& other) const noexcept {
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits of a number are meant
        return std::memcmp(&bits_, &other.bits_, sizeof bits_) == 0;
    }

private:
    static constexpr std::uintptr_t kindMask = 7;
    static constexpr std::uintptr_t string = 1;
    static constexpr std::uintptr_t numeric = 2;
    static constexpr std::uintptr_t nested = 3;
    static constexpr std::uintptr_t failed = 4;
    static constexpr std::uintptr_t inPlace = 8; // a valid number or a short text
    static constexpr unsigned sizeShift = 4;     // where the size of a short text begins

    CellContent(PtrRefCount* block, std::uintptr_t kind) noexcept {
        static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ > (kindMask | inPlace),
                      "kind and mark are kept in the free bits of an address");
        bits_.tag = reinterpret_cast<std::uintptr_t>(block) | kind;
    }

    bool isShared() const noexcept { return bits_.tag > kindMask && (bits_.tag & inPlace) == 0; }

    Bits bits_{};
};

} // namespace Detail

} // namespace QX
