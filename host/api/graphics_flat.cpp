// The graphics calls: without a screen only the highlight state matters.
#include "document.h"
#include "qx_coordinates.h"

int qxedRedraw(const EntityName name, int mode) {
  using namespace korva::api;
  if (korva::api::isNull(name)) return mode == 0 || mode == 1 ? RTNORM : RTERROR;
  Document* document = nullptr;
  korva::db::Record* record = recordOf(name, &document);
  if (!record || record->isErased() || !document) return RTERROR;
  switch (mode) {
    case 1:
    case 2:
      return RTNORM;
    case 3:
      document->highlighted().insert(record->handle());
      return RTNORM;
    case 4:
      document->highlighted().erase(record->handle());
      return RTNORM;
    default:
      return RTERROR;
  }
}

int qxedGrDraw(const double from[3], const double to[3], int, int) {
  return from && to ? RTNORM : RTERROR;
}

int qxedGrVecs(const ResultBuffer*, double[4][4]) { return RTNORM; }

bool qxedIsHighlighted(const EntityName name) {
  using namespace korva::api;
  Document* document = nullptr;
  korva::db::Record* record = recordOf(name, &document);
  return record && document && document->highlighted().contains(record->handle());
}
