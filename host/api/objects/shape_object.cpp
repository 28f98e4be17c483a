// QxDbShape over its SHAPE record: insertion point (10, in the object system of 210),
// size (40), name (2), rotation (50) and oblique (51) in degrees, width factor (41),
// thickness (39).
#include <cmath>
#include <numbers>

#include "entity_members.h"
#include "geom/affine.h"
#include "planar_box.h"
#include "qx_db_shape.h"
#include "shape_files.h"
#include "shape_strokes.h"

namespace m = korva::api::members;

namespace {

constexpr std::string_view kShape = "AcDbShape";
constexpr double kDegree = std::numbers::pi / 180;

korva::geom::Affine3 toWorld(const QxDbShape* shape) {
  return korva::geom::objectToWorld(m::normal(shape, kShape));
}

}  // namespace

const QxRxClass* QxDbShape::desc() {
  static const QxRxClass record(L"QxDbShape", QxDbEntity::desc(), "SHAPE");
  return &record;
}

static korva::api::ObjectClassRegistration shapeClass("SHAPE", [] {
  return static_cast<QxDbObject*>(new QxDbShape);
});

QxDbShape::QxDbShape() : QxDbEntity("SHAPE") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupPoint(record, 10, origin, kShape);
  korva::api::setGroupReal(record, 40, 1, kShape);
  korva::api::setGroupText(record, 2, "", kShape);
}

QxGePoint3d QxDbShape::position() const {
  return m::toPoint(toWorld(this).point(m::point(this, 10, kShape)));
}
Qxad::ErrorStatus QxDbShape::setPosition(const QxGePoint3d& position) {
  return m::setPoint(this, 10, toWorld(this).inverse().point(m::fromPoint(position)), kShape);
}
double QxDbShape::size() const {
  return m::real(this, 40, 0, kShape);
}
Qxad::ErrorStatus QxDbShape::setSize(double size) {
  return m::setReal(this, 40, size, kShape);
}
double QxDbShape::rotation() const {
  return m::real(this, 50, 0, kShape) * kDegree;
}
Qxad::ErrorStatus QxDbShape::setRotation(double angle) {
  return m::setReal(this, 50, angle / kDegree, kShape);
}
double QxDbShape::widthFactor() const {
  return m::real(this, 41, 1, kShape);
}
Qxad::ErrorStatus QxDbShape::setWidthFactor(double factor) {
  return m::setReal(this, 41, factor, kShape);
}
double QxDbShape::oblique() const {
  return m::real(this, 51, 0, kShape) * kDegree;
}
Qxad::ErrorStatus QxDbShape::setOblique(double angle) {
  return m::setReal(this, 51, angle / kDegree, kShape);
}
double QxDbShape::thickness() const {
  return m::real(this, 39, 0, kShape);
}
Qxad::ErrorStatus QxDbShape::setThickness(double thickness) {
  return m::setReal(this, 39, thickness, kShape);
}
QxGeVector3d QxDbShape::normal() const {
  return m::toVector(m::normal(this, kShape));
}
wchar_t* QxDbShape::name() const {
  return m::newWide(this, 2, kShape);
}
Qxad::ErrorStatus QxDbShape::setName(const wchar_t* name) {
  return m::setText(this, 2, m::drawing(this, name), kShape);
}
int QxDbShape::shapeNumber() const {
  korva::db::Database* database = korva::api::databaseOf(*this);
  std::optional<std::string_view> name = m::text(this, 2, kShape);
  return database && name ? korva::api::shapeNumberOf(*database, *name) : 0;
}

Qxad::ErrorStatus QxDbShape::getGeomExtents(QxDbExtents& extents) const {
  korva::db::Database* database = korva::api::databaseOf(*this);
  std::optional<std::string_view> name = m::text(this, 2, kShape);
  std::optional<korva::api::ShapeSource> source =
      database && name ? korva::api::shapeSourceOf(*database, *name) : std::nullopt;
  if (!source) return Qxad::eNotApplicable;
  // File units to the shape's plane: size over the font's height, width factor along X,
  // the oblique angle slanting Y, then turned and placed.
  double scale = size() / korva::api::shapeUnitsPerSize(source->text);
  korva::geom::Affine3 slant;
  slant.m[0][1] = std::tan(oblique());
  korva::geom::Affine3 placement = toWorld(this) *
                                   korva::geom::Affine3::translation(m::point(this, 10, kShape)) *
                                   korva::geom::Affine3::rotationZ(rotation()) * slant *
                                   korva::geom::Affine3::scaling(scale * widthFactor(), scale, 1);
  korva::api::PlanarBox box(placement, 0);
  std::vector<korva::api::ShapeStroke> strokes =
      korva::api::shapeStrokes(source->text, source->number);
  for (const korva::api::ShapeStroke& stroke : strokes) {
    if (stroke.arc) {
      box.ellipticArc(stroke.center, {stroke.radius, 0}, {0, stroke.radius}, stroke.from,
                      stroke.to);
    } else {
      box.point(stroke.start);
      box.point(stroke.end);
    }
  }
  // A shape that draws nothing (a space) stands at its insertion point.
  if (strokes.empty()) box.point({0, 0});
  korva::geom::SpaceBox swept = box.box();
  swept.sweep(korva::geom::normalized(m::normal(this, kShape)) * thickness());
  return korva::api::extentsOfBox(swept, extents);
}
