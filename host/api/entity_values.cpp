#include "entity_values.h"

namespace korva::api {

EntityValues::EntityValues(const db::Record& record) : values_(flatValues(record)) {}

const FlatValue* EntityValues::find(int code) const {
  for (const FlatValue& value : values_) {
    if (value.extendedData) break;
    if (value.code == code) return &value;
  }
  return nullptr;
}

double EntityValues::real(int code, double fallback) const {
  const FlatValue* value = find(code);
  if (!value) return fallback;
  if (value->kind == ValueKind::Int16 || value->kind == ValueKind::Int32) {
    return static_cast<double>(value->integer);
  }
  return value->point[0];
}

long long EntityValues::integer(int code, long long fallback) const {
  const FlatValue* value = find(code);
  return value ? value->integer : fallback;
}

geom::Vec3 EntityValues::point(int code, geom::Vec3 fallback) const {
  const FlatValue* value = find(code);
  return value ? pointOf(*value) : fallback;
}

std::string_view EntityValues::text(int code) const {
  const FlatValue* value = find(code);
  return value ? value->text : std::string_view();
}

}  // namespace korva::api
