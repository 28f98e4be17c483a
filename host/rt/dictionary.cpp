// The registry's dictionaries: named objects, keys compared without regard to case.
#include <cwctype>
#include <map>
#include <string>

#include "qx_runtime.h"

namespace {

std::wstring foldedKey(const wchar_t* key) {
  std::wstring folded = key ? key : L"";
  for (wchar_t& each : folded) each = static_cast<wchar_t>(std::towupper(each));
  return folded;
}

}  // namespace

struct QxRxDictionary::Entries {
  std::map<std::wstring, QxRxObject*> byKey;
};

const QxRxClass* QxRxDictionary::desc() {
  static const QxRxClass record(L"QxRxDictionary", QxRxObject::desc());
  return &record;
}

QxRxDictionary::QxRxDictionary() : entries_(new Entries) {}

// The dictionary owns what it holds.
QxRxDictionary::~QxRxDictionary() {
  for (auto& [key, object] : entries_->byKey) delete object;
  delete entries_;
}

QxRxObject* QxRxDictionary::at(const wchar_t* key) const {
  auto found = entries_->byKey.find(foldedKey(key));
  return found == entries_->byKey.end() ? nullptr : found->second;
}

QxRxObject* QxRxDictionary::atPut(const wchar_t* key, QxRxObject* object) {
  if (!key) return nullptr;
  QxRxObject*& slot = entries_->byKey[foldedKey(key)];
  QxRxObject* previous = slot;
  slot = object;
  return previous;
}

QxRxObject* QxRxDictionary::remove(const wchar_t* key) {
  auto found = entries_->byKey.find(foldedKey(key));
  if (found == entries_->byKey.end()) return nullptr;
  QxRxObject* object = found->second;
  entries_->byKey.erase(found);
  return object;
}

bool QxRxDictionary::has(const wchar_t* key) const {
  return entries_->byKey.contains(foldedKey(key));
}

std::size_t QxRxDictionary::numEntries() const {
  return entries_->byKey.size();
}
