#include "spline_groups.h"

#include "db/value_text.h"

namespace korva::api {

namespace {
double real(std::string_view text) {
  return db::parseReal(text).value_or(0);
}
}  // namespace

SplineData readSpline(const db::Record& record) {
  SplineData data;
  data.curve.degree = 3;
  for (const db::Group& group : record.groups()) {
    if (group.code == 1001) break;
    switch (group.code) {
      case 70:
        data.flags = db::parseInteger(group.value).value_or(0);
        break;
      case 71:
        data.curve.degree = static_cast<int>(db::parseInteger(group.value).value_or(3));
        break;
      case 40:
        data.curve.knots.push_back(real(group.value));
        break;
      case 41:
        data.curve.weights.push_back(real(group.value));
        break;
      case 10:
        data.curve.control.push_back({real(group.value), 0, 0});
        break;
      case 20:
        if (!data.curve.control.empty()) data.curve.control.back().y = real(group.value);
        break;
      case 30:
        if (!data.curve.control.empty()) data.curve.control.back().z = real(group.value);
        break;
      case 11:
        data.fit.push_back({real(group.value), 0, 0});
        break;
      case 21:
        if (!data.fit.empty()) data.fit.back().y = real(group.value);
        break;
      case 31:
        if (!data.fit.empty()) data.fit.back().z = real(group.value);
        break;
      default:
        break;
    }
  }
  // Weights are only meaningful one per control point.
  if (data.curve.weights.size() != data.curve.control.size()) data.curve.weights.clear();
  return data;
}

void writeSplinePoints(db::Record& record, const std::vector<geom::Vec3>& control,
                       const std::vector<geom::Vec3>& fit) {
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  size_t c = 0, f = 0;
  // Each point's X starts it; Y and Z follow it.
  int axis = 0;
  const geom::Vec3* current = nullptr;
  for (db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == 10 && c < control.size())
      current = &control[c++], axis = 0;
    else if (group.code == 11 && f < fit.size())
      current = &fit[f++], axis = 0;
    else if (group.code == 20 || group.code == 21)
      axis = 1;
    else if (group.code == 30 || group.code == 31)
      axis = 2;
    else
      continue;
    if (!current) continue;
    group.value = db::formatReal(axis == 0 ? current->x : axis == 1 ? current->y : current->z);
  }
  record.assign(std::move(groups));
}

}  // namespace korva::api
