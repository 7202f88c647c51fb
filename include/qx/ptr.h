#pragma once

#include "qx/detail/count.h"
#include "qx/export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

/// The module tag of the code that includes this header: a string literal that names the program or
/// shared library, kept in every count block that it makes. Define it before the first include, or on
/// the compiler's command line, to tell your modules apart; the library's own tag is "qxdll".
#ifndef QX_MODULE_TAG
#define QX_MODULE_TAG "qxclient"
#endif

namespace QX {

/// The count block that all Ptr copies of one object share: how many there are, which module made the
/// block, and the deleter that ends object and block.
///
/// The count is a plain integer: all handles of one object belong to one thread at a time. With
/// QX_SHARED_READS it is atomic: threads may copy and release handles of one object at once.
class QX_API PtrRefCount {
public:
    /// Called with the block and the object when the last handle goes; frees both.
    using Deleter = void (*)(PtrRefCount* block, void* object);

    /// Makes a block with count 1. `location` is the module tag; it is kept as a pointer and never
    /// freed, so it must outlive the block (a string literal does).
    PtrRefCount(char const* location, Deleter deleter) : deleter_(deleter), location_(location) {}
    /// Copies all three fields, the count included.
    PtrRefCount& operator=(PtrRefCount const& other) = default;
    /// Clears the module tag, so that a freed block names no module.
    ~PtrRefCount();

    /// Adds one to the count.
    void increment() { count_.add(); }
    /// Takes one from the count, which must not be 0; true when it has become 0.
    bool decrement() { return count_.take(); }
    /// True when the count is 0: nobody shares the block any more.
    bool canDelete() { return count() == 0; }
    /// The number of handles that share the block.
    std::uint32_t count() const { return count_.value(); }
    /// The module tag.
    char const* location() const { return location_; }
    /// Calls the stored deleter with this block and `object`; the block is gone afterwards.
    void remove(void* object) { deleter_(this, object); }

    /// A deleter for objects that need no destructor: frees the object's storage with the global
    /// operator delete, then the block.
    ///
    /// Raises std::logic_error "Deletion across dll boundary" when the block was not made under the
    /// module tag "qxdll", or else "Reference Count non zero" while the count is above 0; object and
    /// block are then untouched. Of a Ptr only reset() passes such an exception on.
    static void release(PtrRefCount* block, void* object);

private:
    PtrRefCount(PtrRefCount const&) = delete;

    alignas(8) Detail::Count count_{1}; // cells use the free bits of a block's address
    Deleter deleter_;
    char const* location_;
};

namespace Detail {

/// Raises std::logic_error "Reference Count non zero" unless the block's count is 0.
QX_API void requireReleased(PtrRefCount& block);

/// The deleter of objects made with new: deletes object and block in the module that made them.
template <typename T>
QX_LOCAL void deleteObject(PtrRefCount* block, void* object) {
    requireReleased(*block);
    delete static_cast<T*>(object);
    delete block;
}

} // namespace Detail

/// A counted handle to a shared object; the object is deleted when its last handle goes.
///
/// A copy shares the object: it costs one increment and allocates nothing. The last handle runs the
/// deleter stored in the count block, so an object is always ended by the module that made it, whichever
/// module releases it last. A handle is null when it lacks the object or the count block; a copy of such
/// a handle lacks both.
///
/// A deleter that raises, as PtrRefCount::release() does for another module's block, ends the program
/// unless the last handle goes by reset().
///
/// All handles of one object belong to one thread at a time. With QX_SHARED_READS threads may copy and
/// release them at once, each by a handle that no other thread changes.
template <typename T>
class Ptr {
public:
    /// Makes a null handle.
    Ptr() noexcept = default;
    /// Makes a null handle.
    Ptr(std::nullptr_t) noexcept {}
    /// Takes over an object made with new: makes a count block with count 1, the module tag of the
    /// including code, and a deleter that deletes the object as a T. The object is deleted if no block
    /// can be made. A null object gives a handle that is null although it owns a block.
    QX_LOCAL explicit Ptr(T* object);
    /// Takes over an object and one count of its block, for objects that need a deleter of their own.
    Ptr(T* object, PtrRefCount* block) noexcept : object_(object), block_(block) {}
    /// Shares the object of `other`; null when `other` is null.
    Ptr(Ptr const& other) noexcept { share(other.object_, other.block_); }
    /// Shares the object of a handle to a compatible class, such as `Ptr<Table>` for `Ptr<Table const>`.
    ///
    /// The deleter is to get the address that the object was made at. So where T is a base class that
    /// lies elsewhere in the object, the handle has a block of its own, which keeps a copy of `other`;
    /// making it may raise std::bad_alloc, and useCount() counts the handles of either block.
    template <typename U, typename = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    Ptr(Ptr<U> const& other) noexcept(std::is_same<std::remove_cv_t<U>, std::remove_cv_t<T>>::value);
    /// Takes over the reference of `other`, which becomes null. A null handle is copied instead: this one
    /// lacks object and block, and `other` stays as it is.
    Ptr(Ptr&& other) noexcept {
        if (!other.isNull()) {
            swap(other);
        }
    }
    /// Releases the reference; the last one runs the deleter.
    ~Ptr() { release(object_, block_); } // NOLINT(clang-analyzer-cplusplus.NewDelete): it loses count

    /// Shares the object of `other`, then releases what was held; null when `other` is null. Nothing
    /// changes when both have one block already, even if they refer to different objects.
    Ptr& operator=(Ptr const& other) noexcept {
        if (other.isNull() || other.block_ != block_) {
            Ptr(other).swap(*this);
        }
        return *this;
    }
    /// Takes over the reference of `other`, which becomes null, then releases what was held; what this
    /// refers to stays when both have one block already. A null handle is copied instead, and `other`
    /// stays as it is. Moving a handle that is not null to itself changes nothing.
    Ptr& operator=(Ptr&& other) noexcept {
        Ptr moved(std::move(other));
        if (moved.isNull() || moved.block_ != block_) {
            moved.swap(*this);
        }
        return *this;
    }

    /// The object; must not be null.
    T& operator*() const noexcept { return *object_; }
    /// The object; must not be null.
    T* operator->() const noexcept { return object_; }
    /// The object, or null.
    T* get() const noexcept { return object_; }
    /// The count block that all handles of the object share, or null.
    PtrRefCount* block() const noexcept { return block_; }
    /// True when the object or the count block is missing.
    bool isNull() const noexcept { return object_ == nullptr || block_ == nullptr; }
    /// True when the handle is not null.
    explicit operator bool() const noexcept { return !isNull(); }
    /// The number of handles that share the object; 0 for a null handle.
    std::uint32_t useCount() const noexcept { return isNull() ? 0 : block_->count(); }
    /// Releases the reference and leaves a null handle; raises what the deleter raises.
    void reset() {
        T* const object = std::exchange(object_, nullptr);
        PtrRefCount* const block = std::exchange(block_, nullptr);
        release(object, block);
    }
    /// Exchanges two handles; no count changes.
    void swap(Ptr& other) noexcept {
        std::swap(object_, other.object_);
        std::swap(block_, other.block_);
    }

private:
    template <typename U>
    friend class Ptr;

    void share(T* object, PtrRefCount* block) noexcept {
        if (object != nullptr && block != nullptr) {
            block->increment();
            object_ = object;
            block_ = block;
        }
    }
    static void release(T* object, PtrRefCount* block) {
        if (block != nullptr && block->decrement()) {
            block->remove(const_cast<std::remove_cv_t<T>*>(object));
        }
    }

    T* object_ = nullptr;
    PtrRefCount* block_ = nullptr;
};

namespace Detail {

/// The block of handles to a base class that lies elsewhere in the object than at its beginning.
template <typename U>
class BaseBlock final : public PtrRefCount {
public:
    /// Keeps the object alive by a handle that knows the address at which it was made.
    explicit BaseBlock(Ptr<U> const& whole) : PtrRefCount(QX_MODULE_TAG, &end), whole_(whole) {}

private:
    QX_LOCAL static void end(PtrRefCount* block, void* /*object: a part of the whole*/) {
        requireReleased(*block);
        delete static_cast<BaseBlock*>(block);
    }

    Ptr<U> whole_;
};

} // namespace Detail

template <typename T>
template <typename U, typename>
Ptr<T>::Ptr(Ptr<U> const& other) noexcept(
    std::is_same<std::remove_cv_t<U>, std::remove_cv_t<T>>::value) {
    if (other.isNull()) {
        return;
    }
    T* const object = other.object_;
    if constexpr (!std::is_same<std::remove_cv_t<U>, std::remove_cv_t<T>>::value) {
        if (static_cast<void const volatile*>(object) != other.object_) {
            block_ = new Detail::BaseBlock<U>(other);
            object_ = object;
            return;
        }
    }
    share(object, other.block_);
}

template <typename T>
Ptr<T>::Ptr(T* object) {
    std::unique_ptr<T> guard(object);
    block_ = new PtrRefCount(QX_MODULE_TAG, &Detail::deleteObject<T>);
    object_ = guard.release();
}

} // namespace QX
