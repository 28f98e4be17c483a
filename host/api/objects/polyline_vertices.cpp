#include "polyline_vertices.h"

#include "api/record_places.h"
#include "object_groups.h"

namespace korva::api {

std::vector<db::Record*> vertexRecordsOf(db::Database& database, const db::Record& polyline) {
  std::vector<db::Record*> vertices;
  EntityPlace place = placeOf(database, polyline);
  if (!place.list) return vertices;
  for (size_t i = place.index + 1; i < place.list->size(); ++i) {
    db::Record* record = (*place.list)[i];
    if (record->type() != "VERTEX") break;
    vertices.push_back(record);
  }
  return vertices;
}

bool isCurveVertex(const db::Record& vertex) {
  return !vertex.isErased() && (groupInteger(vertex, 70, 0) & 16) == 0;
}

}  // namespace korva::api
