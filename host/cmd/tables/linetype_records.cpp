// Writing linetype definitions as LTYPE table records.
#include "cmd/tables/linetype_records.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "api/document.h"
#include "api/drawing_text.h"
#include "api/utf8.h"
#include "db/database.h"
#include "db/handle.h"
#include "db/value_text.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace korva::cmd {
namespace {

// Codes of the pattern part of an LTYPE record, which a reload replaces as a whole.
bool isPatternCode(int code) {
  switch (code) {
    case 3:
    case 72:
    case 73:
    case 40:
    case 49:
    case 74:
    case 75:
    case 340:
    case 46:
    case 50:
    case 44:
    case 45:
    case 9:
      return true;
    default:
      return false;
  }
}

std::string drawingText(const db::Database& database, const std::string& utf8) {
  return api::toDrawingText(&database, api::fromUtf8(utf8));
}

// Element flags of group 74.
constexpr int kAbsoluteRotation = 1;
constexpr int kTextElement = 2;

std::vector<db::OwnedGroup> patternGroups(db::Database& database,
                                          const LinetypeDefinition& definition) {
  bool elementFlags = database.version() != "AC1009";
  std::vector<db::OwnedGroup> groups;
  groups.push_back({3, drawingText(database, definition.description)});
  groups.push_back({72, "65"});
  groups.push_back({73, std::to_string(definition.elements.size())});
  groups.push_back({40, db::formatReal(definition.patternLength())});
  for (const LinetypeElement& element : definition.elements) {
    groups.push_back({49, db::formatReal(element.length)});
    if (!elementFlags) continue;
    if (!element.embedded) {
      groups.push_back({74, "0"});
      continue;
    }
    const LinetypeEmbedded& text = *element.embedded;
    db::Record* style = database.tableEntry("STYLE", drawingText(database, text.styleOrFile));
    int flags = kTextElement | (text.absoluteRotation ? kAbsoluteRotation : 0);
    groups.push_back({74, std::to_string(flags)});
    groups.push_back({75, "0"});
    groups.push_back({340, db::formatHandle(style ? style->handle() : db::kNoHandle)});
    groups.push_back({46, db::formatReal(text.scale)});
    groups.push_back({50, db::formatReal(text.rotation)});
    groups.push_back({44, db::formatReal(text.offsetX)});
    groups.push_back({45, db::formatReal(text.offsetY)});
    groups.push_back({9, drawingText(database, text.text)});
  }
  return groups;
}

// The record's groups with its pattern part replaced; the pattern follows the flags
// (70) after the name, reactors and extended data stay where they are.
std::vector<db::OwnedGroup> withPattern(const db::Record& record,
                                        std::vector<db::OwnedGroup> pattern) {
  std::vector<db::OwnedGroup> out;
  bool inAppGroup = false;
  bool nameSeen = false;
  bool placed = false;
  for (db::OwnedGroup& group : record.ownedGroups()) {
    if (group.code == 102) inAppGroup = !group.value.empty() && group.value[0] == '{';
    bool extended = group.code >= 1000;
    if (!inAppGroup && !extended && isPatternCode(group.code)) continue;
    if (extended && !placed) {
      out.insert(out.end(), pattern.begin(), pattern.end());
      placed = true;
    }
    bool flagsAfterName = !inAppGroup && nameSeen && group.code == 70 && !placed;
    if (group.code == 2 && !inAppGroup) nameSeen = true;
    out.push_back(std::move(group));
    if (flagsAfterName) {
      out.insert(out.end(), pattern.begin(), pattern.end());
      placed = true;
    }
  }
  if (!placed) out.insert(out.end(), pattern.begin(), pattern.end());
  return out;
}

// What keeps the definition out of this drawing, if anything.
LinetypeLoad refusal(db::Database& database, const LinetypeDefinition& definition) {
  for (const LinetypeElement& element : definition.elements) {
    if (!element.embedded) continue;
    if (database.version() == "AC1009") return {LinetypeLoadResult::TooOld, {}};
    if (!element.embedded->isText) return {LinetypeLoadResult::HasShapes, element.embedded->text};
    const std::string& style = element.embedded->styleOrFile;
    if (!database.tableEntry("STYLE", drawingText(database, style))) {
      return {LinetypeLoadResult::MissingStyle, style};
    }
  }
  return {LinetypeLoadResult::Loaded, {}};
}

}  // namespace

LinetypeLoad loadLinetype(const LinetypeDefinition& definition) {
  api::Document* document = api::DocumentList::instance().current();
  if (!document) return {LinetypeLoadResult::NoDrawing, {}};
  db::Database& database = document->database();
  LinetypeLoad refused = refusal(database, definition);
  if (refused.result != LinetypeLoadResult::Loaded) return refused;

  std::string name = drawingText(database, definition.name);
  db::Record* record = database.tableEntry("LTYPE", name);
  LinetypeLoadResult result = record ? LinetypeLoadResult::Reloaded : LinetypeLoadResult::Loaded;
  if (!record) {
    // The flat layer lays out a new record (markers, owner, handle); the pattern follows.
    std::wstring wideName = api::fromUtf8(definition.name);
    ResultBuffer* list = qxutBuildList(RTDXF0, L"LTYPE", 2, wideName.c_str(), 70, 0, RTNONE);
    int made = list ? qxdbEntMake(list) : RTERROR;
    qxutRelRb(list);
    if (made != RTNORM) return {LinetypeLoadResult::Failed, {}};
    record = database.tableEntry("LTYPE", name);
    if (!record) return {LinetypeLoadResult::Failed, {}};
  }
  record->assign(withPattern(*record, patternGroups(database, definition)));
  database.recordChanged();
  return {result, {}};
}

}  // namespace korva::cmd
