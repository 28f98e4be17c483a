#include "ui/control_items.h"

#include <algorithm>
#include <cwctype>

namespace korva::ui {
namespace {

wchar_t folded(wchar_t c) {
  return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
}

}  // namespace

bool equalIgnoringCase(const std::wstring& first, const std::wstring& second) {
  return first.size() == second.size() && startsIgnoringCase(first, second);
}

bool startsIgnoringCase(const std::wstring& text, const std::wstring& prefix) {
  if (prefix.size() > text.size()) return false;
  return std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](wchar_t a, wchar_t b) { return folded(a) == folded(b); });
}

bool lessIgnoringCase(const std::wstring& first, const std::wstring& second) {
  return std::lexicographical_compare(first.begin(), first.end(), second.begin(), second.end(),
                                      [](wchar_t a, wchar_t b) { return folded(a) < folded(b); });
}

int insertItem(std::vector<QxUiListItem>& items, int index, const std::wstring& text) {
  const int count = static_cast<int>(items.size());
  if (index < 0) index = count;
  if (index > count) return kQxUiListError;
  QxUiListItem item;
  item.text = text;
  items.insert(items.begin() + index, std::move(item));
  return index;
}

int addItem(std::vector<QxUiListItem>& items, const std::wstring& text, bool sorted) {
  if (!sorted) return insertItem(items, -1, text);
  // After the lines that sort equal, so that equal texts keep the order they came in.
  const auto place = std::upper_bound(items.begin(), items.end(), text,
                                      [](const std::wstring& added, const QxUiListItem& item) {
                                        return lessIgnoringCase(added, item.text);
                                      });
  return insertItem(items, static_cast<int>(place - items.begin()), text);
}

int findItem(const std::vector<QxUiListItem>& items, int startAfter, const std::wstring& text,
             bool exact) {
  const int count = static_cast<int>(items.size());
  if (count == 0) return kQxUiListError;
  const int first = startAfter < 0 || startAfter >= count ? 0 : startAfter + 1;
  for (int step = 0; step < count; ++step) {
    const int index = (first + step) % count;
    const std::wstring& line = items[static_cast<size_t>(index)].text;
    if (exact ? equalIgnoringCase(line, text) : startsIgnoringCase(line, text)) return index;
  }
  return kQxUiListError;
}

int indexAfterRemoval(int index, int removed) {
  if (index == removed) return -1;
  return index > removed ? index - 1 : index;
}

int indexAfterInsertion(int index, int inserted) {
  return index >= inserted ? index + 1 : index;
}

}  // namespace korva::ui
