// QxDbHatch over its HATCH record. Single values are read where they stand; the loops
// and pattern lines, whose codes repeat, are read in order on every call.
#include <algorithm>
#include <cctype>
#include <numbers>
#include <string>

#include "db/handle.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "geom/bulge_path.h"
#include "hatch_boundaries.h"
#include "planar_box.h"
#include "qx_db_hatch.h"
#include "qx_ge_curves2d.h"
#include "repeated_groups.h"

namespace m = korva::api::members;
using korva::api::HatchBoundaries;
using korva::api::HatchEdge;
using korva::api::HatchLoop;
using korva::geom::Vec2;

namespace {

constexpr std::string_view kHatch = "AcDbHatch";
constexpr double kDegree = std::numbers::pi / 180;

HatchBoundaries boundariesOf(const QxDbHatch* hatch) {
  return korva::api::readHatchBoundaries(
      korva::api::partGroups(m::record(hatch), m::part(hatch, kHatch)));
}

QxGePoint2d toPoint2d(Vec2 p) {
  return {p.x, p.y};
}

QxGeCurve2d* newCurveOf(const HatchEdge& edge) {
  double from = 0, to = 0;
  switch (edge.kind) {
    case 1:
      return new QxGeLineSeg2d(toPoint2d(edge.start), toPoint2d(edge.end));
    case 2: {
      korva::api::edgeSpan(edge, from, to);
      // The span runs counterclockwise; a clockwise edge starts at its far end.
      if (edge.counterclockwise)
        return new QxGeCircArc2d(toPoint2d(edge.center), edge.radius, from, to, false);
      return new QxGeCircArc2d(toPoint2d(edge.center), edge.radius, to, from, true);
    }
    case 3: {
      korva::api::edgeSpan(edge, from, to);
      double major = korva::geom::length(edge.majorAxis);
      QxGeVector2d axis = major > 0
                              ? QxGeVector2d(edge.majorAxis.x / major, edge.majorAxis.y / major)
                              : QxGeVector2d(1, 0);
      double minor = major * edge.ratio;
      if (edge.counterclockwise)
        return new QxGeEllipArc2d(toPoint2d(edge.center), axis, major, minor, from, to, false);
      return new QxGeEllipArc2d(toPoint2d(edge.center), axis, major, minor, to, from, true);
    }
    default: {
      QxGeDoubleArray knots, weights;
      QxGePoint2dArray control, fit;
      for (double knot : edge.knots) knots.append(knot);
      for (double weight : edge.weights) weights.append(weight);
      for (Vec2 p : edge.control) control.append(toPoint2d(p));
      for (Vec2 p : edge.fit) fit.append(toPoint2d(p));
      auto* curve = new QxGeNurbCurve2d(edge.degree, knots, control, weights, edge.periodic);
      curve->setFitPoints(fit);
      return curve;
    }
  }
}

// A polyline loop's segments as lines and arcs.
void appendPolylineEdges(const HatchLoop& loop, QxGeVoidPointerArray& edges,
                         QxGeIntArray& edgeTypes) {
  size_t count = loop.vertices.size();
  for (size_t i = 0; i < count && count > 1; ++i) {
    Vec2 a = loop.vertices[i], b = loop.vertices[(i + 1) % count];
    korva::geom::BulgeSegment segment{a, b, loop.bulges[i]};
    if (!segment.isArc()) {
      edges.append(new QxGeLineSeg2d(toPoint2d(a), toPoint2d(b)));
      edgeTypes.append(QxDbHatch::kLine);
      continue;
    }
    double start = segment.startAngle(), sweep = segment.sweep();
    edges.append(new QxGeCircArc2d(toPoint2d(segment.center()), segment.radius(), start,
                                   start + sweep, sweep < 0));
    edgeTypes.append(QxDbHatch::kCirArc);
  }
}

}  // namespace

const QxRxClass* QxDbHatch::desc() {
  static const QxRxClass record(L"QxDbHatch", QxDbEntity::desc(), "HATCH");
  return &record;
}

static korva::api::ObjectClassRegistration hatchClass("HATCH", [] {
  return static_cast<QxDbObject*>(new QxDbHatch);
});

QxDbHatch::QxDbHatch() : QxDbEntity("HATCH") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  const double up[3] = {0, 0, 1};
  korva::api::setGroupPoint(record, 10, origin, kHatch);
  korva::api::setGroupPoint(record, 210, up, kHatch);
  korva::api::setGroupText(record, 2, "SOLID", kHatch);
  korva::api::setGroupInteger(record, 70, 1, kHatch);
  korva::api::setGroupInteger(record, 71, 0, kHatch);
  korva::api::setGroupInteger(record, 91, 0, kHatch);
  korva::api::setGroupInteger(record, 75, 0, kHatch);
  korva::api::setGroupInteger(record, 76, 1, kHatch);
  korva::api::setGroupInteger(record, 98, 0, kHatch);
}

// ---- Associativity and placement

bool QxDbHatch::associative() const {
  return m::integer(this, 71, 0, kHatch) != 0;
}

Qxad::ErrorStatus QxDbHatch::setAssociative(bool associative) {
  return m::setInteger(this, 71, associative ? 1 : 0, kHatch);
}

Qxad::ErrorStatus QxDbHatch::getAssocObjIds(QxDbObjectIdArray& ids) const {
  ids.removeAll();
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eOk;
  for (const HatchLoop& loop : boundariesOf(this).loops) {
    for (std::string_view source : loop.sources) {
      std::optional<korva::db::Handle> handle = korva::db::parseHandle(source);
      if (handle && *handle != 0) ids.append(QxDbObjectId::fromParts(database->serial(), *handle));
    }
  }
  return Qxad::eOk;
}

double QxDbHatch::elevation() const {
  return m::point(this, 10, kHatch).z;
}

Qxad::ErrorStatus QxDbHatch::setElevation(double elevation) {
  return m::setPoint(this, 10, {0, 0, elevation}, kHatch);
}

QxGeVector3d QxDbHatch::normal() const {
  return m::toVector(m::normal(this, kHatch));
}

// ---- Loops

int QxDbHatch::numLoops() const {
  return static_cast<int>(boundariesOf(this).loops.size());
}

int QxDbHatch::loopTypeAt(int loopIndex) const {
  HatchBoundaries boundaries = boundariesOf(this);
  if (loopIndex < 0 || loopIndex >= static_cast<int>(boundaries.loops.size())) return kDefault;
  return static_cast<int>(boundaries.loops[loopIndex].type);
}

Qxad::ErrorStatus QxDbHatch::getLoopAt(int loopIndex, int& loopType, QxGePoint2dArray& vertices,
                                       QxGeDoubleArray& bulges) const {
  HatchBoundaries boundaries = boundariesOf(this);
  if (loopIndex < 0 || loopIndex >= static_cast<int>(boundaries.loops.size()))
    return Qxad::eInvalidIndex;
  const HatchLoop& loop = boundaries.loops[loopIndex];
  loopType = static_cast<int>(loop.type);
  if (!loop.isPolyline()) return Qxad::eNotApplicable;
  vertices.removeAll();
  bulges.removeAll();
  for (size_t i = 0; i < loop.vertices.size(); ++i) {
    vertices.append(toPoint2d(loop.vertices[i]));
    bulges.append(loop.bulges[i]);
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbHatch::getLoopAt(int loopIndex, int& loopType, QxGeVoidPointerArray& edges,
                                       QxGeIntArray& edgeTypes) const {
  HatchBoundaries boundaries = boundariesOf(this);
  if (loopIndex < 0 || loopIndex >= static_cast<int>(boundaries.loops.size()))
    return Qxad::eInvalidIndex;
  const HatchLoop& loop = boundaries.loops[loopIndex];
  loopType = static_cast<int>(loop.type);
  edges.removeAll();
  edgeTypes.removeAll();
  if (loop.isPolyline()) {
    appendPolylineEdges(loop, edges, edgeTypes);
    return Qxad::eOk;
  }
  for (const HatchEdge& edge : loop.edges) {
    edges.append(newCurveOf(edge));
    edgeTypes.append(edge.kind);
  }
  return Qxad::eOk;
}

// ---- Pattern

QxDbHatch::HatchStyle QxDbHatch::hatchStyle() const {
  return static_cast<HatchStyle>(m::integer(this, 75, kNormal, kHatch));
}

QxDbHatch::HatchPatternType QxDbHatch::patternType() const {
  return static_cast<HatchPatternType>(m::integer(this, 76, kPreDefined, kHatch));
}

wchar_t* QxDbHatch::patternName() const {
  return m::newWide(this, 2, kHatch);
}

double QxDbHatch::patternAngle() const {
  return m::real(this, 52, 0, kHatch) * kDegree;
}

double QxDbHatch::patternScale() const {
  return m::real(this, 41, 1, kHatch);
}

double QxDbHatch::patternSpace() const {
  return m::real(this, 41, 1, kHatch);
}

bool QxDbHatch::patternDouble() const {
  return m::integer(this, 77, 0, kHatch) != 0;
}

bool QxDbHatch::isSolidFill() const {
  return m::integer(this, 70, 0, kHatch) != 0;
}

int QxDbHatch::numPatternDefinitions() const {
  return static_cast<int>(boundariesOf(this).patternLines.size());
}

Qxad::ErrorStatus QxDbHatch::getPatternDefinitionAt(int index, double& angle, double& baseX,
                                                    double& baseY, double& offsetX, double& offsetY,
                                                    QxGeDoubleArray& dashes) const {
  HatchBoundaries boundaries = boundariesOf(this);
  if (index < 0 || index >= static_cast<int>(boundaries.patternLines.size()))
    return Qxad::eInvalidIndex;
  const korva::api::HatchPatternLine& line = boundaries.patternLines[index];
  angle = line.angle * kDegree;
  baseX = line.base.x;
  baseY = line.base.y;
  offsetX = line.offset.x;
  offsetY = line.offset.y;
  dashes.removeAll();
  for (double dash : line.dashes) dashes.append(dash);
  return Qxad::eOk;
}

// ---- Gradient

bool QxDbHatch::isGradient() const {
  return m::integer(this, 450, 0, kHatch) != 0;
}

QxDbHatch::GradientPatternType QxDbHatch::gradientType() const {
  static const std::string_view kPredefined[] = {
      "LINEAR",        "CYLINDER",         "INVCYLINDER", "SPHERICAL", "INVSPHERICAL",
      "HEMISPHERICAL", "INVHEMISPHERICAL", "CURVED",      "INVCURVED"};
  std::string name(m::text(this, 470, kHatch).value_or(""));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  bool known =
      std::find(std::begin(kPredefined), std::end(kPredefined), name) != std::end(kPredefined);
  return known ? kPreDefinedGradient : kUserDefinedGradient;
}

wchar_t* QxDbHatch::gradientName() const {
  return m::newWide(this, 470, kHatch);
}

double QxDbHatch::gradientAngle() const {
  return m::real(this, 460, 0, kHatch);
}

float QxDbHatch::gradientShift() const {
  return static_cast<float>(m::real(this, 461, 0, kHatch));
}

// ---- Extents

Qxad::ErrorStatus QxDbHatch::getGeomExtents(QxDbExtents& extents) const {
  korva::api::PlanarBox box(korva::geom::objectToWorld(m::normal(this, kHatch)), elevation());
  for (const HatchLoop& loop : boundariesOf(this).loops) {
    size_t count = loop.vertices.size();
    for (size_t i = 0; i < count; ++i)
      box.bulgeSegment(loop.vertices[i], loop.vertices[(i + 1) % count], loop.bulges[i]);
    for (const HatchEdge& edge : loop.edges) {
      double from = 0, to = 0;
      switch (edge.kind) {
        case 1:
          box.point(edge.start);
          box.point(edge.end);
          break;
        case 2:
          korva::api::edgeSpan(edge, from, to);
          box.ellipticArc(edge.center, {edge.radius, 0}, {0, edge.radius}, from, to);
          break;
        case 3: {
          korva::api::edgeSpan(edge, from, to);
          Vec2 minor{-edge.majorAxis.y * edge.ratio, edge.majorAxis.x * edge.ratio};
          box.ellipticArc(edge.center, edge.majorAxis, minor, from, to);
          break;
        }
        case 4:
          box.spline(edge.degree, edge.knots, edge.control, edge.weights);
          break;
      }
    }
  }
  return korva::api::extentsOfBox(box.box(), extents);
}
