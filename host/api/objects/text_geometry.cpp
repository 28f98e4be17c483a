// The boxes of texts: a single-line text by its measured box about its position, a
// paragraph text by its laid-out lines about its attachment point.
#include <cmath>

#include "api/utf8.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "geom/text_metrics.h"
#include "line_text_layout.h"
#include "paragraph_layout.h"
#include "planar_box.h"
#include "qx_db_text.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kText = "AcDbText";

}  // namespace

Qxad::ErrorStatus QxDbText::getGeomExtents(QxDbExtents& extents) const {
  korva::api::LineTextFacts facts = korva::api::lineTextFactsOf(this);
  if (const auto* definition = QxDbAttributeDefinition::cast(const_cast<QxDbText*>(this))) {
    // A definition shows its tag.
    facts.utf8 = korva::geom::resolveTextCodes(korva::api::toUtf8(definition->tagConst()));
  }
  Vec3 position = m::point(this, 10, kText);
  if (facts.horizontal == QxDb::kTextAlign || facts.horizontal == QxDb::kTextFit) {
    Vec3 second = m::point(this, 11, kText, position);
    facts.span = std::hypot(second.x - position.x, second.y - position.y);
  }
  korva::api::LocalBox local = korva::api::lineTextBox(facts);
  double angle = rotation();
  Vec3 along{std::cos(angle), std::sin(angle), 0}, up{-std::sin(angle), std::cos(angle), 0};
  korva::geom::Affine3 toWorld = korva::geom::objectToWorld(m::normal(this, kText));
  korva::geom::SpaceBox box;
  for (double x : {local.left, local.right}) {
    for (double y : {local.bottom, local.top})
      box.add(toWorld.point(position + along * x + up * y));
  }
  box.sweep(toWorld.vector({0, 0, thickness()}));
  return korva::api::extentsOfBox(box, extents);
}

Qxad::ErrorStatus QxDbMText::getGeomExtents(QxDbExtents& extents) const {
  korva::api::ParagraphSize size = korva::api::paragraphLayoutOf(this);
  int attachment = this->attachment();
  int column = (attachment - 1) % 3, row = (attachment - 1) / 3;
  double left = column == 0 ? 0 : column == 1 ? -size.width / 2 : -size.width;
  double top = row == 0 ? 0 : row == 1 ? size.height / 2 : size.height;
  Vec3 origin = m::fromPoint(location());
  Vec3 along = korva::geom::normalized(m::fromVector(direction()));
  Vec3 up = korva::geom::cross(m::fromVector(normal()), along);
  korva::geom::SpaceBox box;
  for (double x : {left, left + size.width}) {
    for (double y : {top - size.height, top}) box.add(origin + along * x + up * y);
  }
  return korva::api::extentsOfBox(box, extents);
}
