// A record's values looked up by group code, for code that reads geometry.
#pragma once

#include <string_view>
#include <vector>

#include "flat_values.h"
#include "geom/vec.h"

namespace korva::api {

class EntityValues {
 public:
  explicit EntityValues(const db::Record& record);

  const std::vector<FlatValue>& all() const { return values_; }
  // The first value with the code before the extended data; null when there is none.
  const FlatValue* find(int code) const;
  double real(int code, double fallback = 0) const;
  long long integer(int code, long long fallback = 0) const;
  geom::Vec3 point(int code, geom::Vec3 fallback = {}) const;
  std::string_view text(int code) const;
  geom::Vec3 extrusion() const { return point(210, {0, 0, 1}); }

 private:
  std::vector<FlatValue> values_;
};

inline geom::Vec3 pointOf(const FlatValue& value) {
  return {value.point[0], value.point[1], value.point[2]};
}

}  // namespace korva::api
