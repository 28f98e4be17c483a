// qxdbEntMod: a list written back into its record's groups.
#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "db/handle.h"
#include "db/value_text.h"
#include "document.h"
#include "entity_space.h"
#include "extended_data.h"
#include "inline_vector.h"
#include "list_values.h"
#include "qx_entities.h"
#include "record_places.h"
#include "record_view.h"
#include "subclass_layouts.h"
#include "table_rename.h"

namespace korva::api {
namespace {

// Group codes run from -3 to 1071; counters indexed by code keep the merge linear.
constexpr int kCodeOffset = 3;
constexpr int kCodeCount = 1072 + kCodeOffset;
int slotIndex(int code) {
  return code + kCodeOffset;
}

struct CodeCounters {
  std::vector<int> listCount = std::vector<int>(kCodeCount, 0);
  std::vector<int> recordCount = std::vector<int>(kCodeCount, 0);
  std::vector<int> seen = std::vector<int>(kCodeCount, 0);
  std::vector<int> start = std::vector<int>(kCodeCount, -1);

  // Puts the counters of the codes of a list and a record back to their rest values.
  struct Clearer {
    CodeCounters& counters;
    std::span<const ListItem* const> items;
    std::span<const Slot> slots;
    ~Clearer() {
      for (const ListItem* item : items) clear(item->code);
      for (const Slot& slot : slots) clear(slot.code);
    }
    void clear(int code) {
      int index = slotIndex(code);
      if (index < 0 || index >= kCodeCount) return;
      counters.listCount[index] = counters.recordCount[index] = counters.seen[index] = 0;
      counters.start[index] = -1;
    }
  };
};

using ItemList = InlineVector<const ListItem*, 48>;

// Writes one list value over a record value, keeping the record's text where the value
// did not change, so that untouched numbers keep their spelling.
void writeOver(const ListItem& item, const RecordView& view, const Slot& slot,
               std::vector<db::OwnedGroup>& out) {
  const db::Group& group = view.groups[slot.first];
  switch (item.kind) {
    case ValueKind::Point2d:
    case ValueKind::Point3d: {
      int axes = slot.count == 1 ? 3 : slot.count;  // 2D points stay 2D
      for (int axis = 0; axis < axes; ++axis) {
        int code = item.code + 10 * axis;
        if (axis < slot.count && sameReal(view.groups[slot.first + axis].value, item.point[axis])) {
          out.push_back({code, std::string(view.groups[slot.first + axis].value)});
        } else {
          out.push_back({code, db::formatReal(item.point[axis])});
        }
      }
      return;
    }
    case ValueKind::Real:
      if (sameReal(group.value, item.point[0])) break;
      out.push_back({item.code, db::formatReal(item.point[0])});
      return;
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Int64:
      if (db::parseInteger(group.value) == item.integer) break;
      out.push_back({item.code, std::to_string(item.integer)});
      return;
    case ValueKind::EntityName:
      if (db::parseHandle(group.value).value_or(db::kNoHandle) == item.handle) break;
      appendGroups(item, false, out);
      return;
    default:
      if (group.value == item.text) break;
      out.push_back({item.code, item.text});
      return;
  }
  out.push_back({group.code, std::string(group.value)});
}

// The section (count of subclass markers before it) where a group the record lacks
// goes; the last section when the layout doesn't tell.
using MarkerSlots = InlineVector<size_t, 8>;

size_t sectionForNewCode(const db::Record& record, const RecordView& view,
                         const MarkerSlots& markerSlots, int code) {
  size_t last = markerSlots.size();
  if (markerSlots.empty()) return last;
  int flags = static_cast<int>(db::parseInteger(record.find(70).value_or("0")).value_or(0));
  const SubclassLayout* layout = subclassLayoutOf(record.type(), flags);
  if (!layout) return last;
  int part = partOfCode(*layout, code);
  std::vector<std::string_view> sequence;
  sequence.push_back(layout->isEntity ? "AcDbEntity" : "AcDbSymbolTableRecord");
  for (const SubclassPart& each : layout->parts) sequence.push_back(each.marker);
  size_t wanted = static_cast<size_t>(part + 1);
  if (wanted >= sequence.size()) return last;
  // The n-th marker of that name in the layout is the n-th of that name in the record.
  int occurrence =
      static_cast<int>(std::count(sequence.begin(), sequence.begin() + wanted, sequence[wanted]));
  for (size_t i = 0; i < markerSlots.size(); ++i) {
    if (view.groups[view.slots[markerSlots[i]].first].value != sequence[wanted]) continue;
    if (occurrence-- == 0) return i + 1;
  }
  return last;
}

bool layerIsLocked(const db::Record& layer) {
  return (db::parseInteger(layer.find(70).value_or("0")).value_or(0) & 4) != 0;
}

// What a list asks beyond its values: the space it names (67) and a new name (2) for a
// table record.
struct Requests {
  std::optional<bool> paperSpace;
  const ListItem* newName = nullptr;
};

int modifyRecord(Document& document, db::Record& record, const ParsedList& parsed) {
  db::Database& database = document.database();
  bool entity = isEntity(database, record);
  std::string_view layerName = entity ? record.find(8).value_or("0") : std::string_view();
  db::Record* layer = entity ? database.tableEntry("LAYER", layerName) : nullptr;
  if (layer && layerIsLocked(*layer)) return RTERROR;
  LayoutOfEntity layout = entity ? layoutOf(database, record) : LayoutOfEntity{};
  bool layoutGroupsDerived = layout.inLayout;
  // A block's own BLOCK and ENDBLK stand in no space; a part's space is its entity's.
  bool blockFrame = record.type() == "BLOCK" || record.type() == "ENDBLK";
  bool mainEntity = layoutGroupsDerived && !isSubEntityType(record.type()) && !blockFrame;
  bool tableRecord = isTableRecordType(record.type()) || record.type() == "BLOCK";
  int handleCode = record.type() == "DIMSTYLE" ? 105 : 5;

  // The list's values that stand for the record's own groups.
  ItemList body;
  body.reserve(parsed.items.size());
  Requests requests;
  bool full = false;
  bool inAppGroup = false;
  bool ownerSeen = false;
  for (const ListItem& item : parsed.items) {
    int code = item.code;
    if (code == 102) {
      inAppGroup = !item.text.empty() && item.text[0] == '{';
      continue;
    }
    if (inAppGroup || code == -1 || code == -2 || code == 5 || code == handleCode) continue;
    if (layoutGroupsDerived && (code == 67 || code == 410)) {
      // The space follows the owner; a main entity's 67 moves it.
      if (code == 67 && mainEntity) requests.paperSpace = item.integer != 0;
      continue;
    }
    if (code == 0) {
      if (!db::sameName(item.text, record.type())) return RTERROR;
      continue;
    }
    if (code == 100) {
      full = true;  // a list as qxdbEntGet gives it: what it leaves out goes
      continue;
    }
    if (code == 330 && !ownerSeen) {
      ownerSeen = true;
      continue;
    }
    if (code == 8 && entity && item.text.empty()) return RTERROR;
    if (code == 2 && tableRecord && !requests.newName) {
      if (!acceptableNewName(database, record, item.text)) return RTERROR;
      requests.newName = &item;
    }
    body.push_back(&item);
  }
  bool moveSpace = requests.paperSpace && *requests.paperSpace != layout.paperSpace;

  RecordView view = viewOf(record);
  auto isBodySlot = [&](size_t i) {
    const Slot& slot = view.slots[i];
    if (static_cast<int>(i) == view.handleSlot || static_cast<int>(i) == view.ownerSlot)
      return false;
    if (slot.inAppGroup || slot.code == 100) return false;
    if (slotIndex(slot.code) < 0 || slotIndex(slot.code) >= kCodeCount) return false;
    return !(layoutGroupsDerived && (slot.code == 67 || slot.code == 410));
  };

  // The list's values by code, in list order (a counting sort).
  // Counters kept between calls and cleared for the codes used, so that a call costs
  // what its list and record hold, not the range of group codes.
  static thread_local CodeCounters counters;
  CodeCounters::Clearer clearer{counters, std::span(body.data(), body.size()),
                                std::span(view.slots.data(), view.slots.size())};
  std::vector<int>& listCount = counters.listCount;
  std::vector<int>& recordCount = counters.recordCount;
  std::vector<int>& seen = counters.seen;
  std::vector<int>& start = counters.start;
  for (const ListItem* item : body) ++listCount[slotIndex(item->code)];
  // Each used code's first place in byCode, in order of first appearance.
  int placed = 0;
  for (const ListItem* item : body) {
    int index = slotIndex(item->code);
    if (start[index] < 0) {
      start[index] = placed;
      placed += listCount[index];
    }
  }
  ItemList byCode;
  byCode.resize(body.size(), nullptr);
  for (const ListItem* item : body) {
    int index = slotIndex(item->code);
    byCode[start[index] + seen[index]++] = item;
  }
  for (const ListItem* item : body) seen[slotIndex(item->code)] = 0;
  MarkerSlots markerSlots;
  for (size_t i = 0; i < view.extendedStart; ++i) {
    if (view.slots[i].code == 100 && !view.slots[i].inAppGroup) markerSlots.push_back(i);
    if (isBodySlot(i)) ++recordCount[slotIndex(view.slots[i].code)];
  }
  // Values for codes the record lacks go to the end of their subclass.
  struct NewValue {
    size_t section;
    const ListItem* item;
  };
  InlineVector<NewValue, 8> newValues;
  for (const ListItem* item : body) {
    if (recordCount[slotIndex(item->code)] == 0) {
      newValues.push_back({sectionForNewCode(record, view, markerSlots, item->code), item});
    }
  }
  auto twoDimensional = [&](int code) {
    for (const Slot& slot : view.slots) {
      if (slot.code == code) return slot.count == 2;
    }
    return false;
  };

  std::vector<db::OwnedGroup> out;
  out.reserve(view.groups.size() + body.size() + 2);
  size_t section = 0;
  auto flushUpTo = [&](size_t last) {
    for (; section <= last && section <= markerSlots.size(); ++section) {
      for (const NewValue& value : newValues) {
        if (value.section == section)
          appendGroups(*value.item, twoDimensional(value.item->code), out);
      }
    }
  };
  auto copySlot = [&](const Slot& slot) {
    for (int axis = 0; axis < slot.count; ++axis) {
      const db::Group& group = view.groups[slot.first + axis];
      out.push_back({group.code, std::string(group.value)});
    }
  };
  size_t markerIndex = 0;
  for (size_t i = 0; i < view.extendedStart; ++i) {
    const Slot& slot = view.slots[i];
    if (markerIndex < markerSlots.size() && markerSlots[markerIndex] == i) {
      flushUpTo(markerIndex);
      ++markerIndex;
      copySlot(slot);
      continue;
    }
    if (!isBodySlot(i)) {
      copySlot(slot);
      continue;
    }
    int index = slotIndex(slot.code);
    int occurrence = seen[index]++;
    int given = listCount[index];
    if (occurrence < given) {
      writeOver(*byCode[start[index] + occurrence], view, slot, out);
      // Values beyond the record's own follow its last one.
      if (occurrence == recordCount[index] - 1) {
        for (int extra = recordCount[index]; extra < given; ++extra) {
          appendGroups(*byCode[start[index] + extra], slot.count == 2, out);
        }
      }
    } else if (given == 0 && !full) {
      copySlot(slot);
    }
  }
  flushUpTo(markerSlots.size());

  if (parsed.hasExtended) {
    if (!mergeExtendedData(database, &view, parsed.extended, out)) return RTERROR;
  } else {
    for (size_t i = view.extendedStart; i < view.slots.size(); ++i) copySlot(view.slots[i]);
  }
  if (moveSpace && !writeSpaceMove(database, record, *requests.paperSpace, out)) return RTERROR;

  bool unchanged = out.size() == view.groups.size() &&
                   std::equal(out.begin(), out.end(), view.groups.begin(),
                              [](const db::OwnedGroup& a, const db::Group& b) {
                                return a.code == b.code && a.value == b.value;
                              });
  if (unchanged) return RTNORM;
  if (entity) {
    for (const ListItem* item : body) {
      // The entity's own layer was found above; only another name may need making.
      if (item->code != 8 || (layer && db::sameName(item->text, layerName))) continue;
      if (!ensureLayer(database, item->text)) return RTERROR;
    }
  }
  std::string oldName;
  if (requests.newName) oldName = std::string(record.find(2).value_or(""));
  record.assign(std::move(out));
  if (moveSpace) moveFollowersToSpace(database, record, *requests.paperSpace);
  if (requests.newName && oldName != requests.newName->text) {
    renameReferences(database, record, oldName, requests.newName->text);
  }
  database.recordChanged();
  return RTNORM;
}

}  // namespace
}  // namespace korva::api

int qxdbEntMod(const ResultBuffer* list) {
  using namespace korva::api;
  Document* document = DocumentList::instance().current();
  if (!document || !list) return RTERROR;
  const ResultBuffer* nameNode = nullptr;
  for (const ResultBuffer* node = list; node && node->type != -3; node = node->next) {
    if (node->type == -1) {
      nameNode = node;
      break;
    }
  }
  if (!nameNode) return RTERROR;
  Document* owner = nullptr;
  korva::db::Record* record = recordOf(nameNode->value.rlname, &owner);
  if (!record || owner != document || record->isErased()) return RTERROR;
  std::optional<ParsedList> parsed = parseList(list, *document);
  if (!parsed) return RTERROR;
  return modifyRecord(*document, *record, *parsed);
}
