// Splines over their records.
#include "entity_members.h"
#include "qx_db_spline.h"
#include "spline_groups.h"

namespace m = korva::api::members;

namespace {
constexpr std::string_view kSpline = "AcDbSpline";

korva::api::ObjectClassRegistration splineClass("SPLINE", [] {
  return static_cast<QxDbObject*>(new QxDbSpline);
});

korva::api::SplineData dataOf(const QxDbSpline* spline) {
  return korva::api::readSpline(korva::api::recordOf(*spline));
}
}  // namespace

const QxRxClass* QxDbSpline::desc() {
  static const QxRxClass record(L"QxDbSpline", QxDbCurve::desc(), "SPLINE");
  return &record;
}

// An empty spline; its curve comes with the groups of a drawing.
QxDbSpline::QxDbSpline() : QxDbCurve("SPLINE") {
  m::setInteger(this, 70, 8, kSpline);
  m::setInteger(this, 71, 3, kSpline);
  m::setInteger(this, 72, 0, kSpline);
  m::setInteger(this, 73, 0, kSpline);
  m::setInteger(this, 74, 0, kSpline);
}

int QxDbSpline::degree() const {
  return static_cast<int>(m::integer(this, 71, 3, kSpline));
}
bool QxDbSpline::isRational() const {
  return (m::integer(this, 70, 0, kSpline) & 4) != 0;
}
bool QxDbSpline::isPlanar() const {
  return (m::integer(this, 70, 0, kSpline) & 8) != 0;
}
int QxDbSpline::numControlPoints() const {
  return static_cast<int>(dataOf(this).curve.control.size());
}

Qxad::ErrorStatus QxDbSpline::getControlPointAt(int index, QxGePoint3d& point) const {
  korva::api::SplineData data = dataOf(this);
  if (index < 0 || index >= static_cast<int>(data.curve.control.size())) return Qxad::eInvalidIndex;
  point = m::toPoint(data.curve.control[index]);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbSpline::setControlPointAt(int index, const QxGePoint3d& point) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::SplineData data = dataOf(this);
  if (index < 0 || index >= static_cast<int>(data.curve.control.size())) return Qxad::eInvalidIndex;
  data.curve.control[index] = m::fromPoint(point);
  korva::api::writeSplinePoints(korva::api::recordOf(*this), data.curve.control, data.fit);
  m::changed(this);
  return Qxad::eOk;
}

int QxDbSpline::numFitPoints() const {
  return static_cast<int>(dataOf(this).fit.size());
}

Qxad::ErrorStatus QxDbSpline::getFitPointAt(int index, QxGePoint3d& point) const {
  korva::api::SplineData data = dataOf(this);
  if (index < 0 || index >= static_cast<int>(data.fit.size())) return Qxad::eInvalidIndex;
  point = m::toPoint(data.fit[index]);
  return Qxad::eOk;
}

double QxDbSpline::fitTolerance() const {
  return m::real(this, 44, 0, kSpline);
}
int QxDbSpline::numKnots() const {
  return static_cast<int>(dataOf(this).curve.knots.size());
}
double QxDbSpline::knotAt(int index) const {
  korva::api::SplineData data = dataOf(this);
  return index >= 0 && index < static_cast<int>(data.curve.knots.size()) ? data.curve.knots[index]
                                                                         : 0;
}
double QxDbSpline::weightAt(int index) const {
  korva::api::SplineData data = dataOf(this);
  return index >= 0 && index < static_cast<int>(data.curve.weights.size())
             ? data.curve.weights[index]
             : 1.0;
}
