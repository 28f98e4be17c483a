// The host's growable array, and the array of object ids built on it.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

#include "qx_db_core.h"

// Elements are copied bytewise, so only trivially copyable types are allowed.
// Growth: when an append finds the array full, the new physical length is the logical
// length plus the larger of the grow length and the smaller of the logical length and
// the number of elements that fit into 64 KiB.
template <class T>
class QxArray {
  static_assert(std::is_trivially_copyable_v<T>, "QxArray copies its elements bytewise");

 public:
  explicit QxArray(int physicalLength = 0, int growLength = 8)
      : growLength_(growLength > 0 ? growLength : 8) {
    if (physicalLength > 0) reserve(physicalLength);
  }
  QxArray(const QxArray& other) : growLength_(other.growLength_) { *this = other; }
  QxArray& operator=(const QxArray& other) {
    if (this == &other) return *this;
    if (physical_ < other.logical_ && !reserve(other.logical_)) return *this;
    if (other.logical_ > 0)
      std::memcpy(static_cast<void*>(buffer_), other.buffer_, bytes(other.logical_));
    logical_ = other.logical_;
    return *this;
  }
  ~QxArray() { std::free(buffer_); }

  int length() const { return logical_; }
  int logicalLength() const { return logical_; }
  int physicalLength() const { return physical_; }
  int growLength() const { return growLength_; }
  void setGrowLength(int growLength) { growLength_ = growLength > 0 ? growLength : growLength_; }
  bool isEmpty() const { return logical_ == 0; }

  T& operator[](int index) { return buffer_[index]; }
  const T& operator[](int index) const { return buffer_[index]; }
  T& at(int index) { return buffer_[index]; }
  const T& at(int index) const { return buffer_[index]; }
  T& first() { return buffer_[0]; }
  T& last() { return buffer_[logical_ - 1]; }
  T* asArrayPtr() { return buffer_; }
  const T* asArrayPtr() const { return buffer_; }

  // The index of the new element; -1 when memory ran out.
  int append(const T& value) {
    T copy = value;  // value may live in this array's buffer
    if (logical_ == physical_ && !grow()) return -1;
    std::memcpy(static_cast<void*>(buffer_ + logical_), &copy, sizeof(T));
    return logical_++;
  }
  QxArray& append(const QxArray& other) {
    for (int i = 0; i < other.logical_; ++i) append(other.buffer_[i]);
    return *this;
  }
  // Moves the tail up by one; index may equal the length.
  QxArray& insertAt(int index, const T& value) {
    if (index < 0 || index > logical_) return *this;
    T copy = value;
    if (logical_ == physical_ && !grow()) return *this;
    std::memmove(static_cast<void*>(buffer_ + index + 1), buffer_ + index, bytes(logical_ - index));
    std::memcpy(static_cast<void*>(buffer_ + index), &copy, sizeof(T));
    ++logical_;
    return *this;
  }
  QxArray& removeAt(int index) {
    if (index < 0 || index >= logical_) return *this;
    std::memmove(static_cast<void*>(buffer_ + index), buffer_ + index + 1,
                 bytes(logical_ - index - 1));
    --logical_;
    return *this;
  }
  bool remove(const T& value, int start = 0) {
    int index = 0;
    if (!find(value, index, start)) return false;
    removeAt(index);
    return true;
  }
  // Keeps the buffer.
  QxArray& removeAll() {
    logical_ = 0;
    return *this;
  }
  QxArray& setLogicalLength(int length) {
    if (length < 0) length = 0;
    if (length > physical_ && !reserve(length)) return *this;
    for (int i = logical_; i < length; ++i) new (buffer_ + i) T();
    logical_ = length;
    return *this;
  }
  QxArray& setPhysicalLength(int length) {
    if (length < logical_) logical_ = std::max(length, 0);
    reserve(length, true);
    return *this;
  }

  bool find(const T& value, int& index, int start = 0) const {
    for (int i = std::max(start, 0); i < logical_; ++i) {
      if (buffer_[i] == value) {
        index = i;
        return true;
      }
    }
    return false;
  }
  bool contains(const T& value, int start = 0) const {
    int index = 0;
    return find(value, index, start);
  }

 private:
  static std::size_t bytes(int count) { return static_cast<std::size_t>(count) * sizeof(T); }
  bool grow() {
    int fitting = static_cast<int>(65536 / sizeof(T));
    int step = std::max(growLength_, std::min(logical_, fitting));
    return reserve(logical_ + step);
  }
  // False when memory ran out; the array is unchanged then.
  bool reserve(int length, bool exact = false) {
    if (length == physical_ || (!exact && length < physical_)) return true;
    T* moved = length > 0 ? static_cast<T*>(std::malloc(bytes(length))) : nullptr;
    if (length > 0 && !moved) return false;
    if (logical_ > 0) std::memcpy(static_cast<void*>(moved), buffer_, bytes(logical_));
    std::free(buffer_);
    buffer_ = moved;
    physical_ = length;
    return true;
  }

  T* buffer_ = nullptr;
  int physical_ = 0;
  int logical_ = 0;
  int growLength_ = 8;
};

using QxDbObjectIdArray = QxArray<QxDbObjectId>;
