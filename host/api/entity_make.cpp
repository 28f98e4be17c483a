// qxdbEntMake and qxdbEntMakeX: records made from lists, in the current space.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "coordinate_systems.h"
#include "db/handle.h"
#include "db/value_text.h"
#include "document.h"
#include "extended_data.h"
#include "list_values.h"
#include "qx_entities.h"
#include "record_places.h"
#include "subclass_layouts.h"

namespace korva::api {
namespace {

struct MadeRecord {
  std::string type;
  std::vector<db::OwnedGroup> groups;  // without handle and owner: those come on commit
};

// A complex entity waits for its SEQEND, a block definition for its ENDBLK: only then
// do they enter the drawing, whole.
struct PendingComplex {
  std::vector<MadeRecord> records;  // the head, then its VERTEX or ATTRIB records
  std::string partType;
  bool paperSpace = false;
};

struct PendingBlock {
  std::string name;
  long long flags = 0;
  double base[3] = {0, 0, 0};
  std::string xrefPath;
  std::vector<std::vector<MadeRecord>> entities;  // each a main record and its parts
};

struct MakeState {
  uint64_t serial = 0;
  std::optional<PendingComplex> complex;
  std::optional<PendingBlock> block;
};

MakeState& makeState(const Document& document) {
  static MakeState state;
  if (state.serial != document.serial()) state = MakeState{document.serial(), {}, {}};
  return state;
}

bool isTableKind(std::string_view type) {
  for (std::string_view each :
       {"LAYER", "LTYPE", "STYLE", "DIMSTYLE", "APPID", "UCS", "VIEW", "VPORT"}) {
    if (type == each) return true;
  }
  return false;
}

// The list's values that describe the new record: what belongs to an existing record
// (name, handle, owner, application groups, layout name) is left out.
struct Request {
  std::string type;
  std::vector<const ListItem*> items;
  bool hasMarkers = false;
  std::optional<long long> space;  // group 67 when given
};

std::optional<Request> requestOf(const ParsedList& parsed) {
  Request request;
  bool inAppGroup = false;
  bool ownerSeen = false;
  for (const ListItem& item : parsed.items) {
    if (item.code == 102) {
      inAppGroup = !item.text.empty() && item.text[0] == '{';
      continue;
    }
    if (inAppGroup) continue;
    switch (item.code) {
      case 0:
        if (!request.type.empty()) return std::nullopt;
        request.type = item.text;
        std::transform(request.type.begin(), request.type.end(), request.type.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
        continue;
      case -1:
      case -2:
      case 5:
      case 105:
      case 410:
        continue;
      case 330:
        if (!ownerSeen) {
          ownerSeen = true;
          continue;
        }
        break;
      case 67:
        request.space = item.integer;
        continue;
      case 100:
        request.hasMarkers = true;
        break;
      default:
        break;
    }
    request.items.push_back(&item);
  }
  if (request.type.empty()) return std::nullopt;
  return request;
}

const ListItem* find(const Request& request, int code) {
  for (const ListItem* item : request.items) {
    if (item->code == code) return item;
  }
  return nullptr;
}

long long integerOf(const Request& request, int code, long long fallback) {
  const ListItem* item = find(request, code);
  return item ? item->integer : fallback;
}

// Codes whose points DXF writes with X and Y only, by kind.
bool isTwoDimensional(std::string_view type, int code) {
  if (type == "LWPOLYLINE") return code == 10;
  if (type == "VPORT") return code >= 10 && code <= 15;
  if (type == "VIEW") return code == 10;
  return false;
}

ListItem defaultItem(int code, std::string_view text) {
  ListItem item;
  item.code = code;
  item.kind = valueKindOfCode(code);
  if (item.kind == ValueKind::Real) {
    item.point[0] = db::parseReal(text).value_or(0.0);
  } else if (item.kind == ValueKind::Int16 || item.kind == ValueKind::Int32) {
    item.integer = db::parseInteger(text).value_or(0);
  } else if (item.kind == ValueKind::Point3d) {
    item.point[0] = item.point[1] = item.point[2] = 0;
  } else {
    item.text = std::string(text);
  }
  return item;
}

// Groups a record of its kind must have, with the values a new one starts with.
std::vector<ListItem> defaultsFor(const Request& request) {
  struct Default {
    std::string_view type;
    int code;
    std::string_view value;
  };
  static constexpr Default kDefaults[] = {
      {"LAYER", 70, "0"},      {"LAYER", 62, "7"},    {"LAYER", 6, "Continuous"},
      {"LTYPE", 70, "0"},      {"LTYPE", 3, ""},      {"LTYPE", 72, "65"},
      {"LTYPE", 73, "0"},      {"LTYPE", 40, "0"},    {"STYLE", 70, "0"},
      {"STYLE", 40, "0"},      {"STYLE", 41, "1"},    {"STYLE", 50, "0"},
      {"STYLE", 71, "0"},      {"STYLE", 42, "2.5"},  {"STYLE", 3, "txt"},
      {"STYLE", 4, ""},        {"DIMSTYLE", 70, "0"}, {"APPID", 70, "0"},
      {"UCS", 70, "0"},        {"VIEW", 70, "0"},     {"VPORT", 70, "0"},
      {"POLYLINE", 66, "1"},   {"POLYLINE", 10, "0"}, {"POLYLINE", 70, "0"},
      {"LWPOLYLINE", 70, "0"}, {"INSERT", 41, "1"},   {"INSERT", 42, "1"},
      {"INSERT", 43, "1"},
  };
  std::vector<ListItem> defaults;
  for (const Default& each : kDefaults) {
    if (each.type == request.type && !find(request, each.code)) {
      defaults.push_back(defaultItem(each.code, each.value));
    }
  }
  if (request.type == "LWPOLYLINE" && !find(request, 90)) {
    long long count = std::count_if(request.items.begin(), request.items.end(),
                                    [](const ListItem* item) { return item->code == 10; });
    defaults.push_back(defaultItem(90, std::to_string(count)));
  }
  return defaults;
}

void appendItem(const std::string& type, const ListItem& item, std::vector<db::OwnedGroup>& out) {
  appendGroups(item, isTwoDimensional(type, item.code), out);
}

// The groups of a new record laid out by subclass; false when the kind needs values
// the list lacks, or is unknown and the list doesn't lay itself out.
bool layOut(db::Database& database, const Request& request, const std::string& layer,
            bool paperSpace, std::vector<db::OwnedGroup>& out) {
  const std::string& type = request.type;
  bool table = isTableKind(type);
  std::vector<ListItem> defaults = defaultsFor(request);
  std::vector<const ListItem*> items = request.items;
  // A table record names itself first and gives its flags next.
  auto nameAt = std::find_if(items.begin(), items.end(),
                             [](const ListItem* item) { return item->code == 2; });
  for (const ListItem& each : defaults) {
    if (each.code == 70 && table && nameAt != items.end()) {
      nameAt = items.insert(nameAt + 1, &each);
    } else {
      items.push_back(&each);
    }
  }
  auto entityHead = [&](std::vector<db::OwnedGroup>& groups) {
    if (paperSpace) groups.push_back({67, "1"});
    groups.push_back({8, layer});
  };
  const SubclassLayout* layout =
      subclassLayoutOf(type, static_cast<int>(integerOf(request, 70, 0)));
  if (layout) {
    for (int code : layout->required) {
      if (!find(request, code)) return false;
    }
  }
  bool markers = hasSubclassMarkers(database);
  if (!markers || request.hasMarkers) {
    if (!layout && !request.hasMarkers) return false;
    bool headDone = table;
    if (!markers && !headDone) {
      entityHead(out);
      headDone = true;
    }
    for (const ListItem* item : items) {
      if (item->code == 8 || (!markers && item->code == 100)) continue;
      appendItem(type, *item, out);
      if (!headDone && item->code == 100 && item->text == "AcDbEntity") {
        entityHead(out);
        headDone = true;
      }
    }
    if (!headDone) return false;  // a laid-out entity list without AcDbEntity
    return true;
  }
  if (!layout) return false;
  if (layout->isEntity) {
    out.push_back({100, "AcDbEntity"});
    entityHead(out);
    for (const ListItem* item : items) {
      if (item->code != 8 && partOfCode(*layout, item->code) == -1) appendItem(type, *item, out);
    }
  } else {
    out.push_back({100, "AcDbSymbolTableRecord"});
  }
  for (size_t part = 0; part < layout->parts.size(); ++part) {
    out.push_back({100, layout->parts[part].marker});
    for (const ListItem* item : items) {
      if (item->code == 8 && layout->isEntity) continue;
      if (partOfCode(*layout, item->code) == static_cast<int>(part)) appendItem(type, *item, out);
    }
  }
  return true;
}

std::string ownerText(const db::Record& record) {
  return db::formatHandle(record.handle());
}

// Puts a finished entity and its parts into the drawing; returns the main record.
db::Record* commit(db::Database& database, std::vector<MadeRecord>& records, bool paperSpace,
                   db::BlockDefinition* block) {
  db::Record* main = nullptr;
  for (MadeRecord& made : records) {
    std::vector<db::OwnedGroup>& groups = made.groups;
    if (main) {
      groups.insert(groups.begin(), {330, ownerText(*main)});
    } else if (!block) {
      db::Record* space =
          database.tableEntry("BLOCK_RECORD", paperSpace ? "*Paper_Space" : "*Model_Space");
      if (space) groups.insert(groups.begin(), {330, ownerText(*space)});
    }
    db::Record* record = database.addEntity(std::move(groups), made.type, block);
    if (!main) main = record;
  }
  return main;
}

std::string anonymousBlockName(db::Database& database) {
  for (int number = 1;; ++number) {
    std::string name = "*U" + std::to_string(number);
    if (!database.block(name)) return name;
  }
}

int makeBlockHeader(db::Database& database, MakeState& state, const Request& request) {
  if (state.block || state.complex) return RTERROR;
  const ListItem* name = find(request, 2);
  if (!name || name->text.empty()) return RTERROR;
  PendingBlock block;
  block.flags = integerOf(request, 70, 0);
  block.name = name->text;
  if (block.name[0] == '*' && (block.flags & 1)) block.name = anonymousBlockName(database);
  if (database.block(block.name) || database.tableEntry("BLOCK_RECORD", block.name)) return RTERROR;
  if (const ListItem* base = find(request, 10)) std::copy(base->point, base->point + 3, block.base);
  if (const ListItem* path = find(request, 1)) block.xrefPath = path->text;
  state.block = std::move(block);
  return RTNORM;
}

int finishBlock(db::Database& database, MakeState& state, db::Record** made) {
  if (!state.block || state.complex) return RTERROR;
  PendingBlock pending = std::move(*state.block);
  state.block.reset();
  db::BlockDefinition* block =
      database.addBlock(pending.name, pending.base[0], pending.base[1], pending.base[2]);
  if (!block) return RTERROR;
  block->begin->setValue(70, std::to_string(pending.flags));
  if (!pending.xrefPath.empty()) block->begin->setValue(1, pending.xrefPath);
  for (std::vector<MadeRecord>& entity : pending.entities) commit(database, entity, false, block);
  *made = block->begin;
  return RTNORM;
}

int makeTableRecord(db::Database& database, const Request& request, const ParsedList& parsed,
                    db::Record** made) {
  const ListItem* name = find(request, 2);
  db::Table* table = database.table(request.type);
  if (!name || name->text.empty() || !table) return RTERROR;
  if (database.tableEntry(request.type, name->text)) return RTERROR;
  std::vector<db::OwnedGroup> groups;
  if (!layOut(database, request, "", false, groups)) return RTERROR;
  if (parsed.hasExtended && !mergeExtendedData(database, nullptr, parsed.extended, groups))
    return RTERROR;
  *made = database.addTableEntry(*table, request.type, std::move(groups));
  return RTNORM;
}

int makeEntity(Document& document, const ParsedList& parsed, db::Record** made) {
  db::Database& database = document.database();
  MakeState& state = makeState(document);
  std::optional<Request> found = requestOf(parsed);
  if (!found) return RTERROR;
  const Request& request = *found;
  const std::string& type = request.type;
  if (isTableKind(type)) {
    if (state.complex || state.block) return RTERROR;
    return makeTableRecord(database, request, parsed, made);
  }
  if (type == "BLOCK") return makeBlockHeader(database, state, request);
  if (type == "ENDBLK") return finishBlock(database, state, made);

  bool paperSpace = request.space ? *request.space == 1 : inPaperSpace(database);
  if (state.block) paperSpace = false;
  std::string layer;
  if (const ListItem* given = find(request, 8)) {
    layer = given->text;
  } else if (state.complex) {
    for (const db::OwnedGroup& group : state.complex->records.front().groups) {
      if (group.code == 8) layer = group.value;
    }
  } else {
    layer = currentLayerName(database);
  }
  if (layer.empty()) return RTERROR;

  bool isPart = type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
  if (isPart && !state.complex) return RTERROR;
  if (!isPart && state.complex) return RTERROR;
  if (isPart && type != "SEQEND" && type != state.complex->partType) return RTERROR;
  if (type == "INSERT") {
    const ListItem* name = find(request, 2);
    if (!name || !database.block(name->text) || isLayoutBlockName(name->text)) return RTERROR;
  }
  if (state.complex) paperSpace = state.complex->paperSpace;

  MadeRecord record{type, {}};
  if (!layOut(database, request, layer, paperSpace && !state.block, record.groups)) return RTERROR;
  if (parsed.hasExtended && !mergeExtendedData(database, nullptr, parsed.extended, record.groups)) {
    return RTERROR;
  }
  if (!ensureLayer(database, layer)) return RTERROR;

  bool startsComplex = type == "POLYLINE" || (type == "INSERT" && integerOf(request, 66, 0) == 1);
  if (startsComplex) {
    state.complex =
        PendingComplex{{std::move(record)}, type == "POLYLINE" ? "VERTEX" : "ATTRIB", paperSpace};
    return RTNORM;
  }
  std::vector<MadeRecord> finished;
  if (isPart) {
    state.complex->records.push_back(std::move(record));
    if (type != "SEQEND") return RTNORM;
    finished = std::move(state.complex->records);
    state.complex.reset();
  } else {
    finished.push_back(std::move(record));
  }
  if (state.block) {
    state.block->entities.push_back(std::move(finished));
    return RTNORM;
  }
  *made = commit(database, finished, paperSpace, nullptr);
  return RTNORM;
}

}  // namespace
}  // namespace korva::api

int qxdbEntMakeX(const ResultBuffer* list, EntityName result) {
  using namespace korva::api;
  if (result) result[0] = result[1] = 0;
  Document* document = DocumentList::instance().current();
  if (!document) return RTERROR;
  if (!list) {
    MakeState& state = makeState(*document);
    state.complex.reset();
    state.block.reset();
    return RTNORM;
  }
  std::optional<ParsedList> parsed = parseList(list, *document);
  if (!parsed) return RTERROR;
  korva::db::Record* made = nullptr;
  int status = makeEntity(*document, *parsed, &made);
  if (status == RTNORM && made && result) nameOf(*document, *made, result);
  return status;
}

int qxdbEntMake(const ResultBuffer* list) {
  return qxdbEntMakeX(list, nullptr);
}
