#include "cmd/edit/light_polyline_list.h"

#include <string>
#include <vector>

#include "api/objects/entity_members.h"
#include "api/objects/lwpolyline_vertices.h"
#include "api/objects/object_state.h"
#include "cmd/edit/opened_entity.h"
#include "qx_db_polylines.h"
#include "qx_entities.h"
#include "qx_memory.h"

namespace korva::cmd::edit {

namespace {

constexpr int kClosedFlag = 1;

// The width all segments share, or nothing when they differ.
std::optional<double> constantWidth(const Chain& chain) {
  double width = chain.vertices.front().startWidth;
  size_t segments = chain.closed ? chain.vertices.size() : chain.vertices.size() - 1;
  for (size_t i = 0; i < segments; ++i) {
    const ChainVertex& v = chain.vertices[i];
    if (v.startWidth != width || v.endWidth != width) return std::nullopt;
  }
  return width;
}

}  // namespace

std::optional<LightPolyline> readLightPolyline(const EntityName name) {
  ResultBuffer* list = qxdbEntGet(name);
  if (!list) return std::nullopt;
  LightPolyline result;
  double constant = 0;
  bool light = false;
  for (ResultBuffer* node = list; node; node = node->next) {
    std::vector<ChainVertex>& vertices = result.chain.vertices;
    switch (node->type) {
      case 0:
        light = node->value.rstring && std::wstring(node->value.rstring) == L"LWPOLYLINE";
        break;
      case 70:
        result.flags = node->value.rint;
        break;
      case 43:
        constant = node->value.rreal;
        break;
      case 38:
        result.elevation = node->value.rreal;
        break;
      case 210:
        result.normal = {node->value.rpoint[0], node->value.rpoint[1], node->value.rpoint[2]};
        break;
      case 10:
        vertices.push_back({{node->value.rpoint[0], node->value.rpoint[1]}, 0, -1, -1});
        break;
      case 40:
        if (!vertices.empty()) vertices.back().startWidth = node->value.rreal;
        break;
      case 41:
        if (!vertices.empty()) vertices.back().endWidth = node->value.rreal;
        break;
      case 42:
        if (!vertices.empty()) vertices.back().bulge = node->value.rreal;
        break;
      default:
        break;
    }
  }
  qxutRelRb(list);
  if (!light || result.chain.vertices.empty()) return std::nullopt;
  // Vertices without widths of their own have the constant width, wherever it stands.
  for (ChainVertex& v : result.chain.vertices) {
    if (v.startWidth < 0) v.startWidth = constant;
    if (v.endWidth < 0) v.endWidth = constant;
  }
  result.chain.closed = (result.flags & kClosedFlag) != 0;
  return result;
}

bool writeLightPolyline(const EntityName name, const Chain& chain) {
  if (chain.vertices.empty()) return false;
  Opened opened(name, QxDb::kForWrite);
  auto* polyline = opened.as<QxDbPolyline>();
  if (!polyline) return false;
  std::optional<double> width = constantWidth(chain);
  // Clears the vertices' own widths when they differ, so that none is left over.
  if (polyline->setConstantWidth(width.value_or(0)) != Qxad::eOk) return false;
  std::vector<api::LwVertex> vertices;
  vertices.reserve(chain.vertices.size());
  for (const ChainVertex& v : chain.vertices) {
    api::LwVertex vertex;
    vertex.point = v.point;
    vertex.bulge = v.bulge;
    vertex.hasWidths = !width;
    vertex.startWidth = v.startWidth;
    vertex.endWidth = v.endWidth;
    vertices.push_back(vertex);
  }
  // All vertices in one write: vertex by vertex, a long polyline would cost the square
  // of its length.
  api::writeLwVertices(api::recordOf(*polyline), vertices);
  api::members::changed(polyline);
  return polyline->setClosed(chain.closed) == Qxad::eOk;
}

}  // namespace korva::cmd::edit
