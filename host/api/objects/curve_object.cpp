// QxDbCurve: the curve operations over the model of the curve's record.
#include <algorithm>
#include <cmath>

#include "curve_edit.h"
#include "curve_model.h"
#include "entity_members.h"
#include "qx_db_curve.h"

using korva::api::CurveModel;
using korva::api::members::fromPoint;
using korva::api::members::toPoint;
using korva::api::members::toVector;

namespace {

std::unique_ptr<CurveModel> modelOf(const QxDbCurve* curve, Qxad::ErrorStatus& status) {
  return korva::api::curveModelOf(*curve, status);
}

// Parameters a hair outside the range still count: they come from computed points.
bool inRange(const CurveModel& model, double& param) {
  double start = model.startParam(), end = model.endParam();
  if (!model.bounded()) return param >= start;
  double slack = 1e-10 * std::fmax(1.0, end - start);
  if (param < start - slack || param > end + slack) return false;
  param = std::clamp(param, start, end);
  return true;
}

// How far a point may lie from the curve and still be on it.
double onCurveTolerance(const QxGePoint3d& point) {
  double magnitude =
      std::fmax(std::fabs(point.x), std::fmax(std::fabs(point.y), std::fabs(point.z)));
  return std::fmax(QxGeContext::gTol.equalPoint(), 1e-9 * std::fmax(1.0, magnitude));
}

}  // namespace

const QxRxClass* QxDbCurve::desc() {
  static const QxRxClass record(L"QxDbCurve", QxDbEntity::desc());
  return &record;
}

QxDbCurve::QxDbCurve(const char* dxfType) : QxDbEntity(dxfType) {}

Qxad::ErrorStatus QxDbCurve::getStartParam(double& param) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  param = model->startParam();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getEndParam(double& param) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!model->bounded()) return Qxad::eNotApplicable;
  param = model->endParam();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getStartPoint(QxGePoint3d& point) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!std::isfinite(model->startParam())) return Qxad::eNotApplicable;
  point = toPoint(model->point(model->startParam()));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getEndPoint(QxGePoint3d& point) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!model->bounded()) return Qxad::eNotApplicable;
  point = toPoint(model->point(model->endParam()));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getPointAtParam(double param, QxGePoint3d& point) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!inRange(*model, param)) return Qxad::eInvalidInput;
  point = toPoint(model->point(param));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getParamAtPoint(const QxGePoint3d& point, double& param) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  double found = model->closestParam(fromPoint(point));
  if (point.distanceTo(toPoint(model->point(found))) > onCurveTolerance(point)) {
    return Qxad::eInvalidInput;
  }
  param = found;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getDistAtParam(double param, double& dist) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!inRange(*model, param)) return Qxad::eInvalidInput;
  return model->distAtParam(param, dist) ? Qxad::eOk : Qxad::eDegenerateGeometry;
}

Qxad::ErrorStatus QxDbCurve::getParamAtDist(double dist, double& param) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (model->bounded()) {
    double length = 0;
    if (!model->distAtParam(model->endParam(), length)) return Qxad::eDegenerateGeometry;
    double slack = 1e-10 * std::fmax(1.0, length);
    if (dist < -slack || dist > length + slack) return Qxad::eInvalidInput;
    dist = std::clamp(dist, 0.0, length);
    if (dist == length) {
      param = model->endParam();
      return Qxad::eOk;
    }
  } else if (dist < 0 && std::isfinite(model->startParam())) {
    return Qxad::eInvalidInput;
  }
  return model->paramAtDist(dist, param) ? Qxad::eOk : Qxad::eDegenerateGeometry;
}

Qxad::ErrorStatus QxDbCurve::getDistAtPoint(const QxGePoint3d& point, double& dist) const {
  double param = 0;
  if (Qxad::ErrorStatus status = getParamAtPoint(point, param); status != Qxad::eOk) return status;
  return getDistAtParam(param, dist);
}

Qxad::ErrorStatus QxDbCurve::getPointAtDist(double dist, QxGePoint3d& point) const {
  double param = 0;
  if (Qxad::ErrorStatus status = getParamAtDist(dist, param); status != Qxad::eOk) return status;
  return getPointAtParam(param, point);
}

bool QxDbCurve::isClosed() const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  return model && model->closed();
}

bool QxDbCurve::isPeriodic() const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  return model && model->periodic();
}

Qxad::ErrorStatus QxDbCurve::getFirstDeriv(double param, QxGeVector3d& derivative) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (!inRange(*model, param)) return Qxad::eInvalidInput;
  derivative = toVector(model->derivative(param));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getClosestPointTo(const QxGePoint3d& given, QxGePoint3d& closest,
                                               bool extend) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  if (extend && korva::api::recordOf(*this).type() == "LINE") {
    // Beyond the ends: the unbounded line through them.
    QxGeVector3d direction = toVector(model->derivative(0));
    QxGePoint3d start = toPoint(model->point(0));
    closest = start + direction * (given - start).dotProduct(direction);
    return Qxad::eOk;
  }
  closest = toPoint(model->point(model->closestParam(fromPoint(given))));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::getArea(double& area) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  return model->area(area) ? Qxad::eOk : Qxad::eNotApplicable;
}

Qxad::ErrorStatus QxDbCurve::getGeomExtents(QxDbExtents& extents) const {
  Qxad::ErrorStatus status;
  auto model = modelOf(this, status);
  if (!model) return status;
  korva::geom::SpaceBox box;
  if (!model->box(box)) return model->bounded() ? Qxad::eDegenerateGeometry : Qxad::eNotApplicable;
  box.sweep(model->sweep);
  extents = QxDbExtents(toPoint(box.min), toPoint(box.max));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbCurve::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Qxad::ErrorStatus status = korva::api::transformCurve(*this, matrix);
  if (status == Qxad::eOk) korva::api::members::changed(this);
  return status;
}

Qxad::ErrorStatus QxDbCurve::explode(QxDbVoidPtrArray& pieces) const {
  return korva::api::explodeCurve(*this, pieces);
}
