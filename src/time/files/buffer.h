// A growing array of plain values that says when memory is short instead of throwing.
#ifndef KL_SRC_TIME_FILES_BUFFER_H
#define KL_SRC_TIME_FILES_BUFFER_H

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <utility>

namespace time_files {

template <typename T>
class Buffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    Buffer() = default;
    Buffer(Buffer &&other) noexcept
        : items_(std::exchange(other.items_, nullptr)), size_(std::exchange(other.size_, 0)),
          room_(std::exchange(other.room_, 0))
    {
    }
    Buffer &operator=(Buffer &&other) noexcept
    {
        std::swap(items_, other.items_);
        std::swap(size_, other.size_);
        std::swap(room_, other.room_);
        return *this;
    }
    ~Buffer() { std::free(items_); }

    [[nodiscard]] bool reserve(std::size_t room)
    {
        if (room <= room_)
            return true;
        void *items = std::malloc(room * sizeof(T));
        if (items == nullptr)
            return false;
        if (size_ > 0)
            std::memcpy(items, items_, size_ * sizeof(T));
        std::free(items_);
        items_ = static_cast<T *>(items);
        room_ = room;
        return true;
    }
    [[nodiscard]] bool add(const T &item)
    {
        if (size_ == room_ && !reserve(room_ == 0 ? 64 : 2 * room_))
            return false;
        items_[size_++] = item;
        return true;
    }
    // By items that the caller fills; there is room for them.
    void lengthen(std::size_t count) { size_ += count; }
    void shorten(std::size_t size) { size_ = size < size_ ? size : size_; }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    T &operator[](std::size_t i) { return items_[i]; }
    const T &operator[](std::size_t i) const { return items_[i]; }
    T &back() { return items_[size_ - 1]; }
    const T &back() const { return items_[size_ - 1]; }
    T *begin() { return items_; }
    T *end() { return items_ + size_; }
    const T *begin() const { return items_; }
    const T *end() const { return items_ + size_; }

private:
    T *items_ = nullptr;
    std::size_t size_ = 0, room_ = 0;
};

} // namespace time_files

#endif
