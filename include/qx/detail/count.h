#pragma once

#include "qx/version.h"

#include <cstdint>

#if QX_SHARED_READS
#include <atomic>
#endif

namespace QX::Detail {

/// How many handles share an object: a plain integer, or one that threads may change at once in a build
/// with QX_SHARED_READS.
#if QX_SHARED_READS
class Count {
public:
    explicit Count(std::uint32_t value) noexcept : value_(value) {}
    Count(Count const& other) noexcept : value_(other.value()) {}
    Count& operator=(Count const& other) noexcept {
        value_.store(other.value(), std::memory_order_relaxed);
        return *this;
    }
    ~Count() = default;

    void add() noexcept { value_.fetch_add(1, std::memory_order_relaxed); }
    /// True when it has become 0: then all that other threads did with the object is behind.
    bool take() noexcept {
        if (value_.load(std::memory_order_acquire) == 1) { // no other handle that could be copied
            value_.store(0, std::memory_order_relaxed);
            return true;
        }
        return value_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }
    std::uint32_t value() const noexcept { return value_.load(std::memory_order_acquire); }

private:
    std::atomic<std::uint32_t> value_;
};
#else
class Count {
public:
    explicit Count(std::uint32_t value) noexcept : value_(value) {}

    void add() noexcept { ++value_; }
    /// True when it has become 0.
    bool take() noexcept { return --value_ == 0; }
    std::uint32_t value() const noexcept { return value_; }

private:
    std::uint32_t value_;
};
#endif

} // namespace QX::Detail
