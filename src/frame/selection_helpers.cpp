#include "frame/selection_helpers.h"

#include "frame/list_helpers.h"
#include "frame/string_helpers.h"

namespace {
constexpr int kLayerLocked = 4;  // group 70 of a layer record
constexpr int kHighlight = 3;
constexpr int kUnhighlight = 4;

std::int32_t lengthOf(const SelectionSet set) {
  std::int32_t count = 0;
  if (qxedSSLength(set, &count) != RTNORM) return 0;
  return count;
}
}  // namespace

int AddSetToSet(const SelectionSet from, const SelectionSet to) {
  int status = RTNORM;
  const std::int32_t count = lengthOf(from);
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName member{};
    qxedSSName(from, index, member);
    SelectionSet result{};
    status = qxedSSAdd(member, to, result);
  }
  return status;
}

int UnhighlightSet(const SelectionSet set) {
  const std::int32_t count = lengthOf(set);
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName member{};
    if (qxedSSName(set, index, member) == RTNORM) qxedRedraw(member, kUnhighlight);
  }
  return RTNORM;
}

int HighlightLayerEntities(const wchar_t* layerName, int on) {
  if (!layerName) return RTERROR;
  ResultBuffer* filter = qxutBuildList(8, layerName, RTNONE);
  SelectionSet set{};
  const int status = qxedSSGet(L"X", nullptr, nullptr, filter, set);
  qxutRelRb(filter);
  if (status != RTNORM) return status;
  const std::int32_t count = lengthOf(set);
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName member{};
    if (qxedSSName(set, index, member) == RTNORM) {
      qxedRedraw(member, on ? kHighlight : kUnhighlight);
    }
  }
  qxedSSFree(set);
  return RTNORM;
}

int IsLayerLocked(const wchar_t* layerName) {
  if (!layerName) return 0;
  ResultBuffer* layer = qxdbTblSearch(L"LAYER", layerName, 0);
  int flags = 0;
  GetGroupInt(layer, 70, flags);
  qxutRelRb(layer);
  return (flags & kLayerLocked) != 0 ? 1 : 0;
}

int SelectWithOwnPrompt(unsigned promptId, ResultBuffer* filter, SelectionSet set) {
  const std::wstring prompt = LoadResourceString(promptId);
  const wchar_t* prompts[2] = {prompt.c_str(), prompt.c_str()};
  const int selected = qxedSSGet(L":$", prompts, nullptr, filter, set);
  qxutRelRb(filter);
  return selected;
}
