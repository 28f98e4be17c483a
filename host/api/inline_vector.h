// A growable array that keeps its first elements inside itself: the views and lists
// made for each entity list are short, and a heap block for each would cost more than
// the work they hold.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>

namespace korva::api {

template <class T, size_t InlineCapacity>
class InlineVector {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>,
                "elements are copied as bytes");

 public:
  InlineVector() = default;
  InlineVector(const InlineVector& other) { append(other); }
  InlineVector& operator=(const InlineVector& other) {
    if (this != &other) {
      size_ = 0;
      append(other);
    }
    return *this;
  }

  size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  T* data() { return data_; }
  const T* data() const { return data_; }
  T& operator[](size_t index) { return data_[index]; }
  const T& operator[](size_t index) const { return data_[index]; }
  T& back() { return data_[size_ - 1]; }
  const T& back() const { return data_[size_ - 1]; }
  T* begin() { return data_; }
  T* end() { return data_ + size_; }
  const T* begin() const { return data_; }
  const T* end() const { return data_ + size_; }

  void reserve(size_t capacity) {
    if (capacity <= capacity_) return;
    auto larger = std::make_unique<Storage[]>(capacity);
    std::memcpy(static_cast<void*>(larger.get()), data_, size_ * sizeof(T));
    heap_ = std::move(larger);
    data_ = reinterpret_cast<T*>(heap_.get());
    capacity_ = capacity;
  }
  void push_back(const T& value) {
    if (size_ == capacity_) reserve(capacity_ * 2);
    new (data_ + size_) T(value);
    ++size_;
  }
  void resize(size_t size, const T& fill = T()) {
    reserve(size);
    for (size_t i = size_; i < size; ++i) new (data_ + i) T(fill);
    size_ = size;
  }
  void clear() { size_ = 0; }

 private:
  struct Storage {
    alignas(T) unsigned char bytes[sizeof(T)];
  };
  void append(const InlineVector& other) {
    reserve(other.size_);
    std::memcpy(static_cast<void*>(data_), other.data_, other.size_ * sizeof(T));
    size_ = other.size_;
  }

  Storage inline_[InlineCapacity];
  std::unique_ptr<Storage[]> heap_;
  T* data_ = reinterpret_cast<T*>(inline_);
  size_t size_ = 0;
  size_t capacity_ = InlineCapacity;
};

}  // namespace korva::api
