#include "cmd/drawing/entity_listing.h"

#include <algorithm>
#include <cmath>
#include <cwctype>
#include <numbers>
#include <string>

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/curve_area.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/entity_list.h"
#include "cmd/drawing/user_system.h"
#include "qx_db_block_reference.h"
#include "qx_db_curves.h"
#include "qx_db_polylines.h"
#include "qx_db_spline.h"
#include "qx_db_text.h"
#include "qx_memory.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

constexpr size_t kLabelWidth = 24;
constexpr size_t kValueWidth = 10;

// Labels stand right-aligned in one column, values after them.
void valueLine(const std::wstring& label, const std::wstring& value) {
  qxutPrintf(L"\n%s %s", padded(label, kLabelWidth).c_str(), padded(value, kValueWidth).c_str());
}

void textLine(const std::wstring& label, const std::wstring& value) {
  qxutPrintf(L"\n%s %s", padded(label, kLabelWidth).c_str(), value.c_str());
}

class Lister {
 public:
  explicit Lister(const EntityName name) : list_(name), user_(currentUserSystem()) {
    name_[0] = name[0];
    name_[1] = name[1];
  }

  void run() {
    if (!list_.valid()) return;
    header();
    QxDbObjectId id;
    QxDbEntity* entity = nullptr;
    if (qxdbGetObjectId(id, name_) == Qxad::eOk &&
        qxdbOpenQxDbEntity(entity, id, QxDb::kForRead) == Qxad::eOk) {
      details(*entity);
      entity->close();
    }
    common();
  }

 private:
  void header() {
    std::wstring type = list_.type();
    std::wstring shown = type == L"INSERT" ? L"BLOCK REFERENCE" : type;
    // The kind starts in column 18; the layer follows in column 28 or after two blanks.
    std::wstring kind = std::wstring(18, L' ') + shown;
    kind.resize(std::max<size_t>(kind.size() + 2, 28), L' ');
    qxutPrintf(L"\n%sLayer: \"%s\"", kind.c_str(), list_.text(8, L"0").c_str());
    qxutPrintf(L"\n%sSpace: %s", std::wstring(28, L' ').c_str(),
               list_.integer(67) == 1 ? L"Paper space" : L"Model space");
    if (const ResultBuffer* color = list_.find(62)) {
      int index = color->value.rint;
      std::wstring text = index == 256 ? L"BYLAYER"
                          : index == 0 ? L"BYBLOCK"
                                       : std::to_wstring(index);
      qxutPrintf(L"\n%sColor: %s", std::wstring(28, L' ').c_str(), text.c_str());
    }
    if (list_.find(6)) {
      qxutPrintf(L"\n%sLinetype: \"%s\"", std::wstring(28, L' ').c_str(), list_.text(6).c_str());
    }
    qxutPrintf(L"\n%sHandle = %s", std::wstring(19, L' ').c_str(),
               lowerText(list_.text(5)).c_str());
  }

  void common() {
    double thickness = list_.real(39);
    if (thickness != 0) valueLine(L"Thickness =", distanceText(thickness));
    // Planar entities whose plane isn't the user system's say which way they face.
    if (!list_.find(210)) return;
    Vec3 extrusion = user_.directionFromWorld(geom::normalized(list_.extrusion()));
    if (std::fabs(extrusion.x) > 1e-10 || std::fabs(extrusion.y) > 1e-10 || extrusion.z < 0) {
      qxutPrintf(L"\n%sExtrusion direction relative to UCS:", std::wstring(10, L' ').c_str());
      pointLine(L"", extrusion);
    }
  }

  void details(QxDbEntity& entity) {
    if (auto* line = QxDbLine::cast(&entity)) return listLine(*line);
    if (auto* circle = QxDbCircle::cast(&entity)) return listCircle(*circle);
    if (auto* arc = QxDbArc::cast(&entity)) return listArc(*arc);
    if (auto* ellipse = QxDbEllipse::cast(&entity)) return listEllipse(*ellipse);
    if (auto* polyline = QxDbPolyline::cast(&entity)) return listPolyline(*polyline);
    if (auto* spline = QxDbSpline::cast(&entity)) return listSpline(*spline);
    if (auto* text = QxDbText::cast(&entity)) return listText(*text);
    if (auto* paragraph = QxDbMText::cast(&entity)) return listParagraph(*paragraph);
    if (auto* reference = QxDbBlockReference::cast(&entity)) return listReference(*reference);
    if (list_.type() == L"POINT") return pointLine(L"at point", seen(list_.point(10)));
    if (auto* curve = QxDbCurve::cast(&entity)) return listCurveLength(*curve);
  }

  void listLine(const QxDbLine& line) {
    Vec3 from = seen(fromGe(line.startPoint())), to = seen(fromGe(line.endPoint()));
    pointLine(L"from point", from);
    pointLine(L"to point", to);
    Vec3 delta = to - from;
    qxutPrintf(L"\n%sLength = %s,  Angle in XY Plane = %s", std::wstring(10, L' ').c_str(),
               distanceText(geom::length(delta)).c_str(),
               angleText(std::atan2(delta.y, delta.x)).c_str());
    qxutPrintf(L"\n%sDelta X = %s, Delta Y = %s, Delta Z = %s", std::wstring(18, L' ').c_str(),
               distanceText(delta.x).c_str(), distanceText(delta.y).c_str(),
               distanceText(delta.z).c_str());
  }

  void listCircle(const QxDbCircle& circle) {
    double radius = circle.radius();
    pointLine(L"center point", seen(fromGe(circle.center())));
    valueLine(L"radius", distanceText(radius));
    valueLine(L"circumference", distanceText(2 * std::numbers::pi * radius));
    valueLine(L"area", distanceText(std::numbers::pi * radius * radius));
  }

  void listArc(const QxDbArc& arc) {
    Vec3 center = seen(fromGe(arc.center()));
    QxGePoint3d start, end;
    arc.getStartPoint(start);
    arc.getEndPoint(end);
    Vec3 fromCenter = seen(fromGe(start)) - center, toEnd = seen(fromGe(end)) - center;
    double radius = arc.radius(), sweep = arc.totalAngle();
    pointLine(L"center point", center);
    valueLine(L"radius", distanceText(radius));
    valueLine(L"start angle", angleText(std::atan2(fromCenter.y, fromCenter.x)));
    valueLine(L"end angle", angleText(std::atan2(toEnd.y, toEnd.x)));
    valueLine(L"length", distanceText(radius * sweep));
    valueLine(L"total angle", angleText(sweep));
  }

  void listEllipse(const QxDbEllipse& ellipse) {
    pointLine(L"Center", seen(fromGe(ellipse.center())));
    pointLine(L"Major Axis", user_.directionFromWorld(fromGe(ellipse.majorAxis())));
    pointLine(L"Minor Axis", user_.directionFromWorld(fromGe(ellipse.minorAxis())));
    valueLine(L"Radius Ratio", distanceText(ellipse.radiusRatio()));
    if (!ellipse.isClosed()) {
      valueLine(L"Start Angle", angleText(ellipse.startAngle()));
      valueLine(L"End Angle", angleText(ellipse.endAngle()));
    }
    listCurveLength(ellipse);
  }

  void listPolyline(const QxDbPolyline& polyline) {
    textLine(L"", polyline.isClosed() ? L"Closed" : L"Open");
    double constant = 0;
    bool isConstant = polyline.getConstantWidth(constant) == Qxad::eOk;
    if (isConstant) valueLine(L"Constant width", distanceText(constant));
    listCurveLength(polyline);
    for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
      QxGePoint3d point;
      polyline.getPointAt(i, point);
      qxutPrintf(L"\n");
      pointLine(L"at point", seen(fromGe(point)));
      double startWidth = 0, endWidth = 0;
      if (!isConstant && polyline.getWidthsAt(i, startWidth, endWidth) == Qxad::eOk) {
        valueLine(L"starting width", distanceText(startWidth));
        valueLine(L"ending width", distanceText(endWidth));
      }
      double bulge = 0;
      bool lastOpen = !polyline.isClosed() && i + 1 == polyline.numVerts();
      if (!lastOpen && polyline.getBulgeAt(i, bulge) == Qxad::eOk && bulge != 0) {
        listBulge(polyline, i, bulge);
      }
    }
  }

  // The arc of a bulged segment: its center, radius and the angles of its ends.
  void listBulge(const QxDbPolyline& polyline, unsigned int index, double bulge) {
    QxGePoint3d from, to;
    unsigned int next = index + 1 == polyline.numVerts() ? 0 : index + 1;
    polyline.getPointAt(index, from);
    polyline.getPointAt(next, to);
    Vec3 a = seen(fromGe(from)), b = seen(fromGe(to));
    Vec3 chord = b - a;
    double length = geom::length(chord);
    if (length == 0) return;
    double sweep = 4 * std::atan(bulge);
    double radius = length / (2 * std::fabs(std::sin(sweep / 2)));
    // The center lies on the chord's bisector; bulges are counterclockwise about the
    // polyline's normal, seen here from the user system.
    double facing = user_.directionFromWorld(fromGe(polyline.normal())).z < 0 ? -1 : 1;
    double offset = length / 2 / std::tan(sweep / 2) * facing;
    Vec3 center = (a + b) * 0.5 + Vec3{-chord.y, chord.x, 0} * (offset / length);
    valueLine(L"bulge", distanceText(bulge));
    pointLine(L"center", center);
    valueLine(L"radius", distanceText(radius));
    valueLine(L"start angle", angleText(std::atan2(a.y - center.y, a.x - center.x)));
    valueLine(L"end angle", angleText(std::atan2(b.y - center.y, b.x - center.x)));
  }

  void listSpline(const QxDbSpline& spline) {
    valueLine(L"Order", std::to_wstring(spline.degree() + 1));
    textLine(L"Properties", std::wstring(spline.isPlanar() ? L"Planar, " : L"") +
                                (spline.isRational() ? L"Rational, " : L"Non-Rational, ") +
                                (spline.isClosed() ? L"Closed" : L"Open"));
    valueLine(L"Number of control points", std::to_wstring(spline.numControlPoints()));
    for (int i = 0; i < spline.numControlPoints(); ++i) {
      QxGePoint3d point;
      if (spline.getControlPointAt(i, point) == Qxad::eOk) {
        pointLine(L"Control point", seen(fromGe(point)));
      }
    }
    if (spline.numFitPoints() > 0) {
      valueLine(L"Number of fit points", std::to_wstring(spline.numFitPoints()));
      for (int i = 0; i < spline.numFitPoints(); ++i) {
        QxGePoint3d point;
        if (spline.getFitPointAt(i, point) == Qxad::eOk) {
          pointLine(L"Fit point", seen(fromGe(point)));
        }
      }
    }
    listCurveLength(spline);
  }

  // Area and length of curves that enclose something; the length of the others.
  void listCurveLength(const QxDbCurve& curve) {
    std::optional<Measured> measured = measureEntity(name_);
    if (measured) {
      valueLine(L"area", distanceText(measured->area));
      valueLine(measured->outline == Measured::Outline::Open ? L"length" : L"perimeter",
                distanceText(measured->length));
      return;
    }
    double end = 0, length = 0;
    if (curve.getEndParam(end) == Qxad::eOk && curve.getDistAtParam(end, length) == Qxad::eOk) {
      valueLine(L"length", distanceText(length));
    }
  }

  void listText(const QxDbText& text) {
    qxutPrintf(L"\nStyle = \"%s\"", list_.text(7, L"Standard").c_str());
    if (text.isDefaultAlignment()) {
      pointLine(L"start point", seen(fromGe(text.position())));
    } else {
      textLine(L"justification", justificationName(text));
      pointLine(L"alignment point", seen(fromGe(text.alignmentPoint())));
    }
    valueLine(L"height", distanceText(text.height()));
    textLine(L"text", text.textStringConst() ? text.textStringConst() : L"");
    valueLine(L"rotation angle", angleText(text.rotation()));
    valueLine(L"width scale factor", distanceText(text.widthFactor()));
    valueLine(L"obliquing angle", angleText(text.oblique()));
    std::wstring generation = text.isMirroredInX() ? L"backward" : L"";
    if (text.isMirroredInY()) generation += generation.empty() ? L"upside down" : L", upside down";
    textLine(L"generation", generation.empty() ? L"normal" : generation);
  }

  static std::wstring justificationName(const QxDbText& text) {
    static const wchar_t* const kHorizontal[] = {L"left",    L"center", L"right",
                                                 L"aligned", L"middle", L"fit"};
    static const wchar_t* const kVertical[] = {L"", L"bottom ", L"middle ", L"top "};
    int horizontal = text.horizontalMode(), vertical = text.verticalMode();
    if (horizontal < 0 || horizontal > 5 || vertical < 0 || vertical > 3) return L"?";
    return std::wstring(kVertical[vertical]) + kHorizontal[horizontal];
  }

  void listParagraph(const QxDbMText& paragraph) {
    pointLine(L"Location", seen(fromGe(paragraph.location())));
    valueLine(L"Width", distanceText(paragraph.width()));
    valueLine(L"Text height", distanceText(paragraph.textHeight()));
    valueLine(L"Rotation", angleText(paragraph.rotation()));
    wchar_t* contents = paragraph.contents();
    textLine(L"Contents", contents ? contents : L"");
    qxad_free(contents);
  }

  void listReference(const QxDbBlockReference& reference) {
    textLine(L"Block Name", L"\"" + list_.text(2) + L"\"");
    pointLine(L"at point", seen(fromGe(reference.position())));
    QxGeScale3d scale = reference.scaleFactors();
    valueLine(L"X scale factor", distanceText(scale.sx));
    valueLine(L"Y scale factor", distanceText(scale.sy));
    valueLine(L"Z scale factor", distanceText(scale.sz));
    valueLine(L"rotation angle", angleText(reference.rotation()));
  }

  // A world point as the user system sees it.
  Vec3 seen(Vec3 point) const { return user_.fromWorld(point); }

  static void pointLine(const std::wstring& label, Vec3 point) {
    qxutPrintf(L"\n%s, X=%s  Y=%s  Z=%s", padded(label, kLabelWidth - 2).c_str(),
               padded(distanceText(point.x), kValueWidth).c_str(),
               padded(distanceText(point.y), kValueWidth).c_str(),
               padded(distanceText(point.z), kValueWidth).c_str());
  }

  static std::wstring lowerText(std::wstring text) {
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(c));
    return text;
  }

  EntityList list_;
  api::CoordinateSystem user_;
  EntityName name_;
};

}  // namespace

void listEntity(const EntityName name) {
  Lister(name).run();
}

}  // namespace korva::cmd::drawing
