#pragma once

namespace QX {

/// Objects linked to each other by their members `next` and `previous`; the last one added comes first.
template <typename T>
class List {
public:
    T* first() const { return first_; }
    void add(T& object) {
        object.next = first_;
        object.previous = nullptr;
        if (first_ != nullptr) {
            first_->previous = &object;
        }
        first_ = &object;
    }
    void remove(T& object) {
        (object.previous == nullptr ? first_ : object.previous->next) = object.next;
        if (object.next != nullptr) {
            object.next->previous = object.previous;
        }
    }
    /// Takes out all of them, still linked.
    T* takeAll() {
        T* const all = first_;
        first_ = nullptr;
        return all;
    }

private:
    T* first_ = nullptr;
};

} // namespace QX
