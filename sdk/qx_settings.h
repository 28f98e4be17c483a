// Settings stores of korva, kept as human-readable files under the profile folder and
// written atomically: the per-user and machine-wide settings keys, the host's
// environment store, and the application profile.
#pragma once

#include <cstddef>
#include <cstdint>

namespace QxSettings {

enum class Hive { CurrentUser, LocalMachine };

// A key of the settings store, named by a path of "\"-separated parts, compared
// without regard to case. Values are 32-bit numbers or strings. A Key is open or not;
// every operation on a key that isn't open fails.
class Key {
 public:
  Key() = default;
  Key(Key&& other) noexcept;
  Key& operator=(Key&& other) noexcept;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key();  // closes

  // Opens the key, creating it and its parents when missing.
  static Key create(Hive hive, const wchar_t* path);
  // Opens an existing key; not open when there is no such key.
  static Key open(Hive hive, const wchar_t* path, bool forWriting);

  bool isOpen() const { return store_ != nullptr; }
  void close();

  // False when the value is missing, of the other type, or the key isn't open; the
  // target then stays as it was. readString copies at most bufferChars characters with
  // the terminator and fails when the value doesn't fit.
  bool readNumber(const wchar_t* name, std::uint32_t& value) const;
  bool readString(const wchar_t* name, wchar_t* buffer, std::size_t bufferChars) const;
  // Writing needs a key opened for writing (or created). The file is rewritten at once.
  bool writeNumber(const wchar_t* name, std::uint32_t value);
  bool writeString(const wchar_t* name, const wchar_t* text);
  bool deleteValue(const wchar_t* name);
  // Value names in the order they were first written; false past the last one.
  bool valueName(std::size_t index, wchar_t* buffer, std::size_t bufferChars) const;

 private:
  void* store_ = nullptr;  // the hive's store, owned by korva
  wchar_t* path_ = nullptr;
  bool writable_ = false;
};

// Deletes a key with its values and subkeys; false when there is none.
bool deleteKey(Hive hive, const wchar_t* path);

}  // namespace QxSettings

// The host's environment store: named strings that outlive the run. RTNORM, or RTERROR
// for a name that isn't set (the buffer is then untouched) or a value longer than the
// buffer.
int qxedGetEnv(const wchar_t* name, wchar_t* buffer, std::size_t bufferChars = 512);
int qxedSetEnv(const wchar_t* name, const wchar_t* value);

// The application profile: integer entries in named sections.
int qxuiGetProfileInt(const wchar_t* section, const wchar_t* entry, int defaultValue);
bool qxuiWriteProfileInt(const wchar_t* section, const wchar_t* entry, int value);
