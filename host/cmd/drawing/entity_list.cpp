#include "cmd/drawing/entity_list.h"

#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_value_kind.h"

namespace korva::cmd::drawing {

EntityList::EntityList(const EntityName name) : list_(qxdbEntGet(name)) {}

EntityList::~EntityList() {
  qxutRelRb(list_);
}

const ResultBuffer* EntityList::find(int code) const {
  for (const ResultBuffer* node = list_; node; node = node->next) {
    if (node->type == code) return node;
  }
  return nullptr;
}

std::vector<const ResultBuffer*> EntityList::all(int code) const {
  std::vector<const ResultBuffer*> found;
  for (const ResultBuffer* node = list_; node; node = node->next) {
    if (node->type == code) found.push_back(node);
  }
  return found;
}

std::wstring EntityList::text(int code, const wchar_t* fallback) const {
  const ResultBuffer* node = find(code);
  return node && node->value.rstring ? node->value.rstring : fallback;
}

double EntityList::real(int code, double fallback) const {
  const ResultBuffer* node = find(code);
  return node ? node->value.rreal : fallback;
}

int EntityList::integer(int code, int fallback) const {
  const ResultBuffer* node = find(code);
  if (!node) return fallback;
  switch (api::valueKindOfCode(code)) {
    case api::ValueKind::Int32:
      return node->value.rlong;
    case api::ValueKind::Int64:
      return static_cast<int>(node->value.rint64);
    default:
      return node->value.rint;
  }
}

geom::Vec3 EntityList::point(int code, geom::Vec3 fallback) const {
  const ResultBuffer* node = find(code);
  if (!node) return fallback;
  return {node->value.rpoint[0], node->value.rpoint[1], node->value.rpoint[2]};
}

}  // namespace korva::cmd::drawing
