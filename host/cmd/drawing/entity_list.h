// An entity's list from the flat layer, held for reading values by group code and
// released when it goes out of scope.
#pragma once

#include <string>
#include <vector>

#include "geom/vec.h"
#include "qx_types.h"

namespace korva::cmd::drawing {

class EntityList {
 public:
  explicit EntityList(const EntityName name);
  ~EntityList();
  EntityList(const EntityList&) = delete;
  EntityList& operator=(const EntityList&) = delete;

  bool valid() const { return list_ != nullptr; }
  // The first node of the code, or null.
  const ResultBuffer* find(int code) const;
  // Every node of the code, in list order.
  std::vector<const ResultBuffer*> all(int code) const;

  std::wstring type() const { return text(0); }
  std::wstring text(int code, const wchar_t* fallback = L"") const;
  double real(int code, double fallback = 0) const;
  int integer(int code, int fallback = 0) const;
  geom::Vec3 point(int code, geom::Vec3 fallback = {}) const;
  geom::Vec3 extrusion() const { return point(210, {0, 0, 1}); }

 private:
  ResultBuffer* list_;
};

}  // namespace korva::cmd::drawing
