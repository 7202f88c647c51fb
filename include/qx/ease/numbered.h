#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace QX::Detail {

/// What operator-> of an iterator gives that makes its elements.
template <typename T>
class Arrow {
public:
    explicit Arrow(T const& value) : value_(value) {}
    T const* operator->() const { return &value_; }

private:
    T value_;
};

/// Walks what `element(number)` gives for one number after the other, a reference or a value. The object
/// `Element` is copied with the iterator. For <ranges> this is a random access iterator in either case;
/// the older requirements take that only of one that gives references.
template <typename Element>
class NumberedIterator {
public:
    using reference = decltype(std::declval<Element const&>()(std::size_t{}));
    using value_type = std::remove_cv_t<std::remove_reference_t<reference>>;
    using difference_type = std::ptrdiff_t;
    using pointer = std::conditional_t<std::is_reference_v<reference>,
                                       std::remove_reference_t<reference>*, Arrow<value_type>>;
    using iterator_category =
        std::conditional_t<std::is_reference_v<reference>, std::random_access_iterator_tag,
                           std::input_iterator_tag>;
    using iterator_concept = std::random_access_iterator_tag;

    NumberedIterator() = default;
    NumberedIterator(Element const& element, std::size_t number) : element_(element), number_(number) {}

    reference operator*() const { return element_(number_); }
    pointer operator->() const {
        if constexpr (std::is_reference_v<reference>) {
            return std::addressof(element_(number_));
        } else {
            return pointer(element_(number_));
        }
    }
    reference operator[](difference_type n) const { return *(*this + n); }

    NumberedIterator& operator+=(difference_type n) {
        number_ += static_cast<std::size_t>(n);
        return *this;
    }
    NumberedIterator& operator-=(difference_type n) { return *this += -n; }
    NumberedIterator& operator++() { return *this += 1; }
    NumberedIterator& operator--() { return *this += -1; }
    NumberedIterator operator++(int) {
        NumberedIterator before(*this);
        ++*this;
        return before;
    }
    NumberedIterator operator--(int) {
        NumberedIterator before(*this);
        --*this;
        return before;
    }
    friend NumberedIterator operator+(NumberedIterator it, difference_type n) { return it += n; }
    friend NumberedIterator operator+(difference_type n, NumberedIterator it) { return it += n; }
    friend NumberedIterator operator-(NumberedIterator it, difference_type n) { return it -= n; }
    friend difference_type operator-(NumberedIterator const& left, NumberedIterator const& right) {
        return static_cast<difference_type>(left.number_) - static_cast<difference_type>(right.number_);
    }
    friend bool operator==(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ == right.number_;
    }
    friend bool operator!=(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ != right.number_;
    }
    friend bool operator<(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ < right.number_;
    }
    friend bool operator>(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ > right.number_;
    }
    friend bool operator<=(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ <= right.number_;
    }
    friend bool operator>=(NumberedIterator const& left, NumberedIterator const& right) {
        return left.number_ >= right.number_;
    }

private:
    Element element_{};
    std::size_t number_ = 0;
};

/// The elements of consecutive numbers, held with what keeps them alive.
template <typename Element, typename Keeper>
class NumberedRange {
public:
    using Iterator = NumberedIterator<Element>;

    NumberedRange(Element const& element, std::size_t first, std::size_t end, Keeper const& keeper)
        : element_(element), first_(first), end_(end), keeper_(keeper) {}

    Iterator begin() const { return {element_, first_}; }
    Iterator end() const { return {element_, end_}; }
    std::size_t size() const { return end_ - first_; }
    bool empty() const { return end_ == first_; }

private:
    Element element_;
    std::size_t first_;
    std::size_t end_;
    Keeper keeper_; // holds the table as long as this range lives, where it was given by handle
};

} // namespace QX::Detail
