// PURGE (-PURGE): unused blocks, layers, linetypes, text and dimension styles leave the
// drawing; what only a purged item used goes in the same run.
#include <cwctype>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "cmd/blocks/block_commands.h"
#include "cmd/blocks/block_definition.h"
#include "cmd/blocks/open_object.h"
#include "cmd/drawing/command_input.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"
#include "qx_db_tables.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_util.h"

namespace korva::cmd::blocks {

namespace {

using drawing::Answer;

struct PurgeKind {
  const wchar_t* keyword;
  const wchar_t* singular;  // "Deleting block ..."
  const wchar_t* plural;    // "2 blocks deleted."
  std::function<Qxad::ErrorStatus(QxDbDatabase&, QxDbSymbolTable*&)> openTable;
};

template <typename Table>
Qxad::ErrorStatus openTableOf(QxDbDatabase& database, QxDbSymbolTable*& result) {
  Table* table = nullptr;
  Qxad::ErrorStatus status = database.getSymbolTable(table, QxDb::kForRead);
  result = table;
  return status;
}

const std::vector<PurgeKind>& purgeKinds() {
  static const std::vector<PurgeKind> kinds = {
      {L"Blocks", L"block", L"blocks", openTableOf<QxDbBlockTable>},
      {L"Dimstyles", L"dimension style", L"dimension styles", openTableOf<QxDbDimStyleTable>},
      {L"LAyers", L"layer", L"layers", openTableOf<QxDbLayerTable>},
      {L"LTypes", L"linetype", L"linetypes", openTableOf<QxDbLinetypeTable>},
      {L"STyles", L"text style", L"text styles", openTableOf<QxDbTextStyleTable>},
  };
  return kinds;
}

std::wstring upper(std::wstring text) {
  for (wchar_t& character : text) character = static_cast<wchar_t>(std::towupper(character));
  return text;
}

struct Candidate {
  QxDbObjectId id;
  std::wstring name;
};

// Records of the table whose names match; anonymous and dependent records are the
// drawing's own business and stay.
std::vector<Candidate> matchingRecords(QxDbSymbolTable& table, const std::wstring& pattern) {
  std::vector<Candidate> records;
  QxDbSymbolTableIterator* iterator = nullptr;
  if (table.newIterator(iterator) != Qxad::eOk) return records;
  const std::wstring upperPattern = upper(pattern);
  for (; !iterator->done(); iterator->step()) {
    QxDbSymbolTableRecord* record = nullptr;
    if (iterator->getRecord(record, QxDb::kForRead) != Qxad::eOk) continue;
    OpenObject<QxDbSymbolTableRecord> held(record);
    wchar_t* name = nullptr;
    if (record->getName(name) != Qxad::eOk) continue;
    std::wstring text = name;
    qxad_free(name);
    if (text.empty() || text.front() == L'*' || record->isDependent()) continue;
    // Dimensions put their definition points on this layer whenever they are made.
    if (upper(text) == L"DEFPOINTS" && QxDbLayerTableRecord::cast(record)) continue;
    if (qxutWcMatch(upper(text).c_str(), upperPattern.c_str()) != RTNORM) continue;
    QxDbObjectId id;
    if (iterator->getRecordId(id) == Qxad::eOk) records.push_back({id, text});
  }
  delete iterator;
  return records;
}

Qxad::ErrorStatus eraseRecord(const PurgeKind& kind, QxDbObjectId id) {
  // A block goes with its definition and what it holds.
  if (&kind == &purgeKinds().front()) return eraseBlock(id);
  OpenObject<QxDbSymbolTableRecord> record(id, QxDb::kForWrite);
  return record ? record->erase() : record.status();
}

struct PurgeRun {
  QxDbDatabase& database;
  std::wstring pattern;
  bool verify = true;
  std::set<QxDbObjectId> declined;
  bool cancelled = false;
};

bool confirmed(PurgeRun& run, const PurgeKind& kind, const Candidate& candidate) {
  if (!run.verify) return true;
  std::wstring prompt =
      L"\nPurge " + std::wstring(kind.singular) + L" \"" + candidate.name + L"\"? [Yes/No] <N>: ";
  Answer answer = drawing::askKeyword(prompt.c_str(), {0, L"Yes No _ Yes No"});
  if (answer.stop()) run.cancelled = true;
  if (answer.is(L"Yes")) return true;
  run.declined.insert(candidate.id);
  return false;
}

struct PassCount {
  int found = 0;
  int purged = 0;
};

// One pass over one kind: the unused records, each erased after its confirmation.
PassCount purgePass(PurgeRun& run, const PurgeKind& kind) {
  QxDbSymbolTable* table = nullptr;
  PassCount count;
  if (kind.openTable(run.database, table) != Qxad::eOk) return count;
  OpenObject<QxDbSymbolTable> heldTable(table);
  std::vector<Candidate> candidates = matchingRecords(*table, run.pattern);
  heldTable.close();
  QxDbObjectIdArray ids;
  for (const Candidate& each : candidates) {
    if (!run.declined.count(each.id)) ids.append(each.id);
  }
  if (ids.length() == 0 || run.database.purge(ids) != Qxad::eOk) return count;
  std::set<QxDbObjectId> unused;
  for (int i = 0; i < ids.length(); ++i) unused.insert(ids[i]);
  count.found = ids.length();
  for (const Candidate& each : candidates) {
    if (run.cancelled) break;
    if (!unused.count(each.id) || !confirmed(run, kind, each)) continue;
    if (eraseRecord(kind, each.id) != Qxad::eOk) continue;
    qxutPrintf(L"\nDeleting %ls \"%ls\".", kind.singular, each.name.c_str());
    ++count.purged;
  }
  return count;
}

// Passes over the kinds until nothing more goes: a purged block frees what it used.
void purgeKindsOf(PurgeRun& run, const std::vector<const PurgeKind*>& kinds) {
  std::vector<PassCount> counts(kinds.size());
  for (bool more = true; more && !run.cancelled;) {
    more = false;
    for (size_t i = 0; i < kinds.size() && !run.cancelled; ++i) {
      PassCount pass = purgePass(run, *kinds[i]);
      counts[i].found += pass.found;
      counts[i].purged += pass.purged;
      more = more || pass.purged > 0;
    }
  }
  for (size_t i = 0; i < kinds.size(); ++i) {
    if (counts[i].found == 0) {
      qxutPrintf(L"\nNo unreferenced %ls found.", kinds[i]->plural);
    } else {
      qxutPrintf(L"\n%d %ls deleted.", counts[i].purged,
                 counts[i].purged == 1 ? kinds[i]->singular : kinds[i]->plural);
    }
  }
}

}  // namespace

void purgeCommand() {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  if (!database) return;
  Answer type = drawing::askKeyword(
      L"\nEnter type of unused objects to purge [Blocks/Dimstyles/LAyers/LTypes/STyles/All]: ",
      {1,
       L"Blocks Dimstyles LAyers LTypes STyles All _ Blocks Dimstyles LAyers LTypes STyles All"});
  if (type.stop()) return;
  std::vector<const PurgeKind*> kinds;
  for (const PurgeKind& kind : purgeKinds()) {
    if (type.is(L"All") || type.is(kind.keyword)) kinds.push_back(&kind);
  }
  if (kinds.empty()) return;
  PurgeRun run{*database, L"*", true, {}, false};
  std::wstring names;
  if (drawing::askString(L"\nEnter name(s) to purge <*>: ", false, names).stop()) return;
  if (!names.empty()) run.pattern = names;
  Answer verify = drawing::askKeyword(L"\nVerify each name to be purged? [Yes/No] <Y>: ",
                                      {0, L"Yes No _ Yes No"});
  if (verify.stop()) return;
  run.verify = !verify.is(L"No");
  purgeKindsOf(run, kinds);
}

}  // namespace korva::cmd::blocks
