// The outline of an entity as selection sees it: its curves, text boxes and the
// contents of the blocks it shows, projected on the X-Y plane of a user system.
#pragma once

#include <span>

#include "db/database.h"
#include "dxf/text_encoding.h"
#include "entity_values.h"
#include "geom/plane_shape.h"

namespace korva::api {

class EntityOutliner {
 public:
  // worldToPlane maps world coordinates into the system whose X-Y plane is looked at.
  EntityOutliner(const db::Database& database, const geom::Affine3& worldToPlane);

  // `followers` are the records after the entity in its container: the attributes of
  // an insert and the vertices of an old-style polyline are found there. Kinds without
  // an outline (solids, regions, multilines, ...) give an empty shape.
  geom::PlaneShape outline(const db::Record& record, std::span<db::Record* const> followers);

 private:
  void add(const db::Record& record, std::span<db::Record* const> followers);
  void addArc(const EntityValues& values, bool full);
  void addEllipse(const EntityValues& values);
  void addLightPolyline(const EntityValues& values);
  void addPolyline(const EntityValues& values, std::span<db::Record* const> followers);
  void addCorners(const EntityValues& values, bool objectSystem);
  void addSpline(const EntityValues& values);
  void addInsert(const EntityValues& values, std::span<db::Record* const> followers);
  void addBlock(std::string_view name);
  void addHatch(const db::Record& record, const EntityValues& values);
  void addLineText(const db::Record& record, const EntityValues& values);
  void addParagraphText(const EntityValues& values);
  void addImage(const EntityValues& values);
  std::string utf8(std::string_view drawingText) const;

  const db::Database& database_;
  dxf::TextEncoding encoding_;
  geom::ShapeBuilder builder_;
};

// Drawing text of a paragraph text with its formatting codes removed, one entry per line.
std::vector<std::string> paragraphLines(std::string_view contents);

}  // namespace korva::api
