// Which model a curve's record has.
#include "curve_model.h"
#include "object_state.h"

namespace korva::api {

std::unique_ptr<CurveModel> curveModelOf(const QxDbObject& curve, Qxad::ErrorStatus& status) {
  std::string_view type = recordOf(curve).type();
  if (type == "LINE" || type == "RAY" || type == "XLINE") return straightModelOf(curve, status);
  if (type == "ARC" || type == "CIRCLE" || type == "ELLIPSE") return conicModelOf(curve, status);
  if (type == "LWPOLYLINE" || type == "POLYLINE") return pathModelOf(curve, status);
  if (type == "SPLINE") return splineModelOf(curve, status);
  status = Qxad::eNotApplicable;
  return nullptr;
}

}  // namespace korva::api
