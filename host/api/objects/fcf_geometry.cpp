// The box and the exploded pieces of a feature control frame, from the layout of its
// text (fcf_layout.h) sized by its dimension variables: text height DIMTXT and gap
// DIMGAP, both times DIMSCALE (0 counts as 1).
#include <cmath>

#include "db/handle.h"
#include "entity_members.h"
#include "fcf_layout.h"
#include "planar_box.h"
#include "qx_db_curves.h"
#include "qx_db_leader.h"
#include "qx_db_text.h"
#include "text_fonts.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kFcf = "AcDbFcf";

// The frame's axes in world coordinates.
struct FrameAxes {
  Vec3 origin, along, up, normal;
  Vec3 at(double x, double y) const { return origin + along * x + up * y; }
};

FrameAxes axesOf(const QxDbFcf* frame) {
  FrameAxes axes;
  axes.normal = korva::geom::normalized(m::normal(frame, kFcf));
  axes.origin = m::fromPoint(frame->location());
  Vec3 along = m::fromVector(frame->direction());
  // Keep the direction in the plane; a direction along the normal leaves the plane's X.
  along = along - axes.normal * korva::geom::dot(along, axes.normal);
  if (korva::geom::length(along) < 1e-12)
    along = korva::geom::objectToWorld(axes.normal).vector({1, 0, 0});
  axes.along = korva::geom::normalized(along);
  axes.up = korva::geom::cross(axes.normal, axes.along);
  return axes;
}

// The text style of the frame's dimension style (DIMTXSTY), "Standard" without one.
std::string textStyleOf(const QxDbFcf* frame, korva::db::Database& database) {
  std::optional<std::string> name = m::tableEntryName(frame, frame->dimensionStyle());
  korva::db::Record* style = name ? database.tableEntry("DIMSTYLE", *name) : nullptr;
  std::optional<std::string_view> handle =
      style ? korva::api::groupText(*style, 340) : std::nullopt;
  korva::db::Record* textStyle =
      handle ? database.lookup(korva::db::parseHandle(*handle).value_or(0)) : nullptr;
  if (textStyle && textStyle->type() == "STYLE")
    return std::string(korva::api::groupText(*textStyle, 2).value_or("Standard"));
  return "Standard";
}

korva::api::FrameLayout layoutOf(const QxDbFcf* frame) {
  double scale = frame->dimscale();
  if (scale <= 0) scale = 1;
  korva::db::Database* database = korva::api::databaseOf(*frame);
  const korva::geom::TextMetrics& metrics =
      database ? korva::api::metricsOfStyle(database, textStyleOf(frame, *database))
               : korva::geom::TextMetrics::standard();
  return korva::api::layOutFrame(m::text(frame, 1, kFcf).value_or(""), frame->dimtxt() * scale,
                                 std::fabs(frame->dimgap()) * scale, metrics);
}

}  // namespace

Qxad::ErrorStatus QxDbFcf::getGeomExtents(QxDbExtents& extents) const {
  FrameAxes axes = axesOf(this);
  korva::geom::SpaceBox box;
  for (const korva::api::FrameCell& cell : layoutOf(this).cells) {
    box.add(axes.at(cell.left, cell.bottom));
    box.add(axes.at(cell.right, cell.bottom));
    box.add(axes.at(cell.right, cell.top));
    box.add(axes.at(cell.left, cell.top));
  }
  return korva::api::extentsOfBox(box, extents);
}

Qxad::ErrorStatus QxDbFcf::explode(QxDbVoidPtrArray& pieces) const {
  FrameAxes axes = axesOf(this);
  korva::api::FrameLayout layout = layoutOf(this);
  QxCmColor lineColor = dimclrd(), textColor = dimclrt();
  auto addLine = [&](double x0, double y0, double x1, double y1) {
    auto* line = new QxDbLine(m::toPoint(axes.at(x0, y0)), m::toPoint(axes.at(x1, y1)));
    line->setPropertiesFrom(this);
    line->setNormal(m::toVector(axes.normal));
    if (!lineColor.isByBlock()) line->setColor(lineColor);
    pieces.append(line);
  };
  const korva::api::FrameCell* previous = nullptr;
  for (const korva::api::FrameCell& cell : layout.cells) {
    // Cells side by side share the line between them.
    bool sharesLeft = previous && previous->top == cell.top && previous->right == cell.left;
    if (!sharesLeft) addLine(cell.left, cell.bottom, cell.left, cell.top);
    addLine(cell.left, cell.top, cell.right, cell.top);
    addLine(cell.right, cell.top, cell.right, cell.bottom);
    addLine(cell.right, cell.bottom, cell.left, cell.bottom);
    previous = &cell;

    auto* text = new QxDbMText;
    text->setPropertiesFrom(this);
    text->setNormal(m::toVector(axes.normal));
    text->setDirection(m::toVector(axes.along));
    text->setLocation(m::toPoint(axes.at(cell.left + layout.gap, (cell.top + cell.bottom) / 2)));
    text->setAttachment(QxDbMText::kMiddleLeft);
    text->setTextHeight(layout.textHeight);
    text->setContents(m::wide(this, cell.contents).c_str());
    if (!textColor.isByBlock()) text->setColor(textColor);
    pieces.append(text);
  }
  return Qxad::eOk;
}
