// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace tallyframe {

/// Plain values in one piece of memory, which the system may move as it grows instead of copying it.
template <class Value>
class growing_block {
    static_assert(std::is_trivially_copyable_v<Value>);

public:
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Value* data() const { return values_.get(); }
    Value& operator[](std::size_t index) { return values_.get()[index]; }
    const Value& operator[](std::size_t index) const { return values_.get()[index]; }

    void push_back(const Value& value)
    {
        if (size_ == capacity_)
            make_room_for(1);
        values_.get()[size_++] = value;
    }

    void append(const Value* values, std::size_t count)
    {
        if (count > capacity_ - size_)
            make_room_for(count);
        std::copy_n(values, count, values_.get() + size_);
        size_ += count;
    }

    /// Gives back the memory that was taken for more values.
    void shrink_to_fit()
    {
        if (size_ < capacity_ && size_ > 0)
            resize_memory(size_);
    }

private:
    struct free_memory {
        void operator()(Value* values) const { std::free(values); }
    };

    void make_room_for(std::size_t count) { resize_memory(std::max(size_ + count, 2 * capacity_)); }

    void resize_memory(std::size_t capacity)
    {
        if (capacity > static_cast<std::size_t>(-1) / sizeof(Value))
            throw std::bad_alloc();
        auto* moved = static_cast<Value*>(std::realloc(values_.get(), capacity * sizeof(Value)));
        if (moved == nullptr)
            throw std::bad_alloc();
        (void)values_.release();
        values_.reset(moved);
        capacity_ = capacity;
    }

    std::unique_ptr<Value, free_memory> values_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace tallyframe
