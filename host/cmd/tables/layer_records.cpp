// Reading and writing layer records through entity lists.
#include "cmd/tables/layer_records.h"

#include <cstdlib>
#include <memory>

#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

constexpr int kFrozen = 1;
constexpr int kLocked = 4;

struct ListRelease {
  void operator()(ResultBuffer* list) const { qxutRelRb(list); }
};
using List = std::unique_ptr<ResultBuffer, ListRelease>;

ResultBuffer* nodeOf(ResultBuffer* list, int code) {
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == code) return node;
  }
  return nullptr;
}

LayerState stateOf(ResultBuffer* list) {
  LayerState state;
  if (ResultBuffer* name = nodeOf(list, 2)) state.name = name->value.rstring;
  if (ResultBuffer* color = nodeOf(list, 62)) {
    state.off = color->value.rint < 0;
    state.color = std::abs(color->value.rint);
  }
  if (ResultBuffer* flags = nodeOf(list, 70)) {
    state.frozen = (flags->value.rint & kFrozen) != 0;
    state.locked = (flags->value.rint & kLocked) != 0;
  }
  if (ResultBuffer* linetype = nodeOf(list, 6)) state.linetype = linetype->value.rstring;
  if (ResultBuffer* trueColor = nodeOf(list, 420)) {
    state.trueColor = static_cast<std::uint32_t>(trueColor->value.rlong) & 0xFFFFFF;
  }
  return state;
}

// The node of that code, appended at the end (before extended data) when missing.
ResultBuffer* ensureNode(ResultBuffer* list, int code) {
  if (ResultBuffer* found = nodeOf(list, code)) return found;
  ResultBuffer* last = list;
  while (last->next && last->next->type != -3) last = last->next;
  ResultBuffer* node = qxutNewRb(code);
  if (!node) return nullptr;
  node->next = last->next;
  last->next = node;
  return node;
}

void removeNode(ResultBuffer* list, int code) {
  for (ResultBuffer* node = list; node && node->next; node = node->next) {
    if (node->next->type == code) {
      ResultBuffer* gone = node->next;
      node->next = gone->next;
      gone->next = nullptr;
      qxutRelRb(gone);
      return;
    }
  }
}

bool setString(ResultBuffer* node, const std::wstring& text) {
  wchar_t* copy = qxutNewString(text.c_str());
  if (!copy) return false;
  qxad_free(node->value.rstring);
  node->value.rstring = copy;
  return true;
}

// Writes the state into the record's list; only what differs changes in the record.
bool writeState(ResultBuffer* list, const LayerState& state) {
  ResultBuffer* color = ensureNode(list, 62);
  ResultBuffer* flags = ensureNode(list, 70);
  ResultBuffer* linetype = ensureNode(list, 6);
  if (!color || !flags || !linetype) return false;
  color->value.rint = static_cast<std::int16_t>(state.off ? -state.color : state.color);
  int bits = flags->value.rint & ~(kFrozen | kLocked);
  if (state.frozen) bits |= kFrozen;
  if (state.locked) bits |= kLocked;
  flags->value.rint = static_cast<std::int16_t>(bits);
  if (linetype->value.rstring == nullptr || state.linetype != linetype->value.rstring) {
    if (!setString(linetype, state.linetype)) return false;
  }
  if (state.trueColor) {
    ResultBuffer* trueColor = ensureNode(list, 420);
    if (!trueColor) return false;
    trueColor->value.rlong = static_cast<std::int32_t>(*state.trueColor);
  } else {
    removeNode(list, 420);
  }
  return true;
}

}  // namespace

std::vector<LayerState> allLayers() {
  std::vector<LayerState> layers;
  for (List list(qxdbTblNext(L"LAYER", 1)); list; list.reset(qxdbTblNext(L"LAYER", 0))) {
    layers.push_back(stateOf(list.get()));
  }
  return layers;
}

std::optional<LayerState> findLayer(const std::wstring& name) {
  List list(qxdbTblSearch(L"LAYER", name.c_str(), 0));
  if (!list) return std::nullopt;
  return stateOf(list.get());
}

std::wstring currentLayerName() {
  ResultBuffer value{};
  if (qxedGetVar(L"CLAYER", &value) != RTNORM || value.type != RTSTR) return L"0";
  std::wstring name = value.value.rstring ? value.value.rstring : L"0";
  qxad_free(value.value.rstring);
  return name;
}

bool createLayer(const std::wstring& name) {
  // Plot style and lineweight come from layer 0, so that the new layer prints like it.
  List list(
      qxutBuildList(RTDXF0, L"LAYER", 2, name.c_str(), 70, 0, 62, 7, 6, L"Continuous", RTNONE));
  if (!list) return false;
  EntityName zero{};
  if (qxdbTblObjName(L"LAYER", L"0", zero) == RTNORM) {
    List zeroList(qxdbEntGet(zero));
    for (int code : {370, 390}) {
      ResultBuffer* from = nodeOf(zeroList.get(), code);
      ResultBuffer* to = from ? ensureNode(list.get(), code) : nullptr;
      if (to) to->value = from->value;
    }
  }
  return qxdbEntMake(list.get()) == RTNORM;
}

bool changeLayer(const std::wstring& name, const std::function<void(LayerState&)>& change) {
  EntityName record{};
  if (qxdbTblObjName(L"LAYER", name.c_str(), record) != RTNORM) return false;
  List list(qxdbEntGet(record));
  if (!list) return false;
  LayerState state = stateOf(list.get());
  change(state);
  if (!writeState(list.get(), state)) return false;
  return qxdbEntMod(list.get()) == RTNORM;
}

}  // namespace korva::cmd
