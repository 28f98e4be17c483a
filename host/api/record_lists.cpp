#include "record_lists.h"

#include <cstring>
#include <cwctype>
#include <string>

#include "db/group_code.h"
#include "db/handle.h"
#include "db/value_text.h"
#include "document.h"
#include "drawing_text.h"
#include "list_values.h"
#include "qx_memory.h"
#include "record_places.h"
#include "record_view.h"
#include "wildcard.h"

namespace korva::api {
namespace {

void addSlot(ListBuilder& builder, const RecordView& view, const Slot& slot) {
  const db::Group& group = view.groups[slot.first];
  if (slot.count > 1) {
    double point[3] = {0, 0, 0};
    for (int axis = 0; axis < slot.count; ++axis) {
      point[axis] = readReal(view.groups[slot.first + axis].value).value_or(0.0);
    }
    builder.addPoint(slot.code, point);
    return;
  }
  // Extended data handles stay text; they need not name a record.
  if (slot.code == 1005 || slot.code == 5 || slot.code == 105) {
    builder.addString(slot.code, group.value);
    return;
  }
  builder.addGroupValue(slot.code, group.value);
}

bool wanted(const db::Database& database, std::string_view application,
            const ResultBuffer* patterns) {
  std::wstring name = fromDrawingText(&database, application);
  for (const ResultBuffer* node = patterns; node; node = node->next) {
    if (node->type != RTSTR || !node->value.rstring) continue;
    // Application names compare without regard to case, as table names do.
    std::wstring pattern(node->value.rstring);
    std::wstring upperName = name;
    for (wchar_t& c : pattern) c = static_cast<wchar_t>(std::towupper(c));
    for (wchar_t& c : upperName) c = static_cast<wchar_t>(std::towupper(c));
    if (wildcardMatch(upperName, pattern)) return true;
  }
  return false;
}

void addExtendedData(ListBuilder& builder, const db::Database& database, const RecordView& view,
                     const ResultBuffer* applications) {
  bool opened = false;
  bool taking = false;
  for (size_t i = view.extendedStart; i < view.slots.size(); ++i) {
    const Slot& slot = view.slots[i];
    if (slot.code == 1001) {
      taking = wanted(database, view.groups[slot.first].value, applications);
      if (taking && !opened) {
        builder.addNone(-3);
        opened = true;
      }
    }
    if (taking) addSlot(builder, view, slot);
  }
}

}  // namespace

ResultBuffer* entityListOf(db::Database& database, db::Record& record,
                           const ResultBuffer* applications, bool withExtendedData) {
  RecordView view = viewOf(record);
  ListBuilder builder(database);
  builder.addName(-1, record.handle());
  builder.addString(0, record.type());
  if (view.ownerSlot >= 0) {
    const db::Group& owner = view.groups[view.slots[view.ownerSlot].first];
    builder.addName(330, db::parseHandle(owner.value).value_or(db::kNoHandle));
  }
  if (view.handleSlot >= 0) {
    const Slot& handle = view.slots[view.handleSlot];
    builder.addString(handle.code, view.groups[handle.first].value);
  }
  LayoutOfEntity layout = layoutOf(database, record);
  bool layoutShown = !layout.inLayout;
  auto showLayout = [&] {
    if (layoutShown) return;
    builder.addInteger(67, ValueKind::Int16, layout.paperSpace ? 1 : 0);
    builder.addString(410, layout.layoutName);
    layoutShown = true;
  };
  for (size_t i = 0; i < view.extendedStart; ++i) {
    const Slot& slot = view.slots[i];
    if (static_cast<int>(i) == view.handleSlot || static_cast<int>(i) == view.ownerSlot) continue;
    if (layout.inLayout && (slot.code == 67 || slot.code == 410)) continue;
    if (slot.code == 8) showLayout();  // drawings without subclass markers
    addSlot(builder, view, slot);
    if (slot.code == 100 && view.groups[slot.first].value == "AcDbEntity") showLayout();
  }
  showLayout();
  if (record.type() == "BLOCK") {
    // A block header leads to the block's first entity.
    if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
      for (db::BlockDefinition& block : blocks->blocks) {
        if (block.begin != &record) continue;
        for (db::Record* entity : block.entities) {
          if (entity->isErased()) continue;
          builder.addName(-2, entity->handle());
          break;
        }
      }
    }
  }
  if (withExtendedData) addExtendedData(builder, database, view, applications);
  return builder.release();
}

ResultBuffer* tableListOf(db::Database& database, db::Record& record) {
  RecordView view = viewOf(record);
  ListBuilder builder(database);
  builder.addName(-1, record.handle());
  if (record.type() == "BLOCK") {
    builder.addString(0, "BLOCK");
    for (int code : {2, 70, 10, 1, 4}) {
      for (const Slot& slot : view.slots) {
        if (slot.code != code || slot.inAppGroup) continue;
        if ((code == 1 || code == 4) && view.groups[slot.first].value.empty()) break;
        addSlot(builder, view, slot);
        break;
      }
    }
    ResultBuffer* head = builder.release();
    // The first entity follows the header, as in the header's entity list.
    ResultBuffer* full = entityListOf(database, record, nullptr, false);
    ResultBuffer* first = nullptr;
    for (ResultBuffer* node = full; node; node = node->next) {
      if (node->type == -2) first = node;
    }
    if (head && first) {
      ResultBuffer* tail = head;
      while (tail->next) tail = tail->next;
      tail->next = qxutNewRb(-2);
      if (tail->next)
        std::memcpy(tail->next->value.rlname, first->value.rlname, sizeof(EntityName));
    }
    qxutRelRb(full);
    return head;
  }
  builder.addString(0, record.type());
  for (size_t i = 0; i < view.extendedStart; ++i) {
    const Slot& slot = view.slots[i];
    if (static_cast<int>(i) == view.handleSlot || static_cast<int>(i) == view.ownerSlot) continue;
    if (slot.inAppGroup || slot.code == 100) continue;
    addSlot(builder, view, slot);
  }
  return builder.release();
}

}  // namespace korva::api
