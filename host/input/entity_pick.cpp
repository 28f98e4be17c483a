#include "input/entity_pick.h"

#include "api/document.h"
#include "api/utf8.h"
#include "db/handle.h"
#include "input/pick_area.h"

namespace korva::input {

bool entityFromHandleInput(std::wstring_view text, EntityName name) {
  if (text.size() < 2 || text.front() != L'#') return false;
  api::Document* document = api::DocumentList::instance().current();
  if (!document) return false;
  const std::optional<db::Handle> handle = db::parseHandle(api::toUtf8(text.substr(1)));
  if (!handle) return false;
  const db::Record* record = document->database().lookup(*handle);
  if (!record || record->isErased()) return false;
  api::nameOf(*document, *record, name);
  return true;
}

bool pickEntityAt(const double ucsPoint[3], EntityName name) {
  api::Document* document = api::DocumentList::instance().current();
  if (!document) return false;
  db::Database& database = document->database();
  std::vector<db::Record*>* records = database.entities();
  if (!records) return false;
  const PickArea area(database, ucsPoint);
  api::EntityOutliner outliner = area.outliner(geom::Affine3::identity());
  const std::span<db::Record* const> all(*records);
  // The newest entity is drawn last and lies on top, so it wins.
  for (size_t i = all.size(); i-- > 0;) {
    const db::Record& record = *all[i];
    if (record.isErased() || isSubEntity(record) || !inCurrentSpace(database, record) ||
        area.onHiddenLayer(record)) {
      continue;
    }
    if (area.hits(outliner, geom::Affine3::identity(), record, all.subspan(i + 1))) {
      api::nameOf(*document, record, name);
      return true;
    }
  }
  return false;
}

}  // namespace korva::input
