// A multiline's groups under an affine map. Its vertices, segment directions and miters
// are world values, carried as the map takes them; each element's first parameter is
// its distance from the vertex along the miter, the others (and the fill parameters)
// distances along the segment.
//
// An affine map keeps lines parallel and where they meet, so the moved element lines
// still meet on the moved miters. What a map can break is the style: each element keeps
// one offset across every segment, and the end caps keep their angle. A map that
// stretches the plane unevenly scales offsets across a segment by a factor that depends
// on the segment's direction; the multiline follows it only where that factor is the
// same for every segment (all segments parallel, or a map that is a similarity in the
// plane, such as an axis-aligned scaling of an axis-aligned multiline) and the caps
// keep their angle. The style's scale (40) then takes the factor. Other maps are
// refused: the result would not be a multiline of its style.
#include <cmath>

#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

// Where one vertex's values stand in the groups.
struct VertexPlaces {
  size_t position = 0, direction = 0, miter = 0;
  std::vector<size_t> offsets;  // the first parameter of each element
  std::vector<size_t> lengths;  // the other element parameters and the fill parameters
};

class MultilineRewriter {
 public:
  MultilineRewriter(Groups& groups, const Affine3& map) : groups_(groups), map_(map) {}

  bool read() {
    size_t i = 0;
    while (i < groups_.size() && groups_[i].code != 11 && groups_[i].code != 1001) ++i;
    while (i < groups_.size() && groups_[i].code == 11) {
      VertexPlaces vertex;
      if (!pointAt(i, 11, vertex.position) || !pointAt(i, 12, vertex.direction) ||
          !pointAt(i, 13, vertex.miter)) {
        return false;
      }
      while (i < groups_.size() && groups_[i].code == 74) {
        long long count = db::parseInteger(groups_[i++].value).value_or(0);
        for (long long k = 0; k < count; ++k, ++i) {
          if (i >= groups_.size() || groups_[i].code != 41) return false;
          (k == 0 ? vertex.offsets : vertex.lengths).push_back(i);
        }
        if (i < groups_.size() && groups_[i].code == 75) {
          long long fills = db::parseInteger(groups_[i++].value).value_or(0);
          for (long long k = 0; k < fills; ++k, ++i) {
            if (i >= groups_.size() || groups_[i].code != 42) return false;
            vertex.lengths.push_back(i);
          }
        }
      }
      vertices_.push_back(std::move(vertex));
    }
    return true;
  }

  // False when the map would break the style (see above).
  bool rewrite(bool& cannotScaleNonUniformly) {
    Vec3 normal = extrusion(groups_);
    Vec3 newNormal = map_.normal(normal);
    double similarScale = 1;
    bool similar = geom::isSimilarity(map_, similarScale);
    Affine3 plane = geom::objectToWorld(normal);
    double area = geom::length(
        geom::cross(map_.vector(plane.vector({1, 0, 0})), map_.vector(plane.vector({0, 1, 0}))));
    bool closed =
        (db::parseInteger(find(groups_, 71) ? find(groups_, 71)->value : "0").value_or(0) & 2) != 0;
    double across = similar ? similarScale : 0;
    for (size_t k = 0; k < vertices_.size(); ++k) {
      Vec3 direction = geom::normalized(vectorAt(vertices_[k].direction));
      if (geom::length(direction) == 0) continue;
      double factor = area / geom::length(map_.vector(direction));
      if (across == 0) across = factor;
      if (std::fabs(factor - across) > 1e-9 * across) {
        cannotScaleNonUniformly = true;
        return false;
      }
      bool end = !closed && (k == 0 || k + 1 == vertices_.size());
      if (end && !similar && !capKeepsItsAngle(vertices_[k], normal, newNormal)) {
        cannotScaleNonUniformly = true;
        return false;
      }
    }
    if (across == 0) {
      cannotScaleNonUniformly = true;
      return false;
    }
    moveWorldPoints(groups_, map_, 10);
    for (const VertexPlaces& vertex : vertices_) {
      Vec3 direction = vectorAt(vertex.direction), miter = vectorAt(vertex.miter);
      double along = lengthRatio(direction), onMiter = lengthRatio(miter);
      setAt(vertex.position, map_.point(vectorAt(vertex.position)));
      setAt(vertex.direction, geom::normalized(map_.vector(direction)));
      setAt(vertex.miter, geom::normalized(map_.vector(miter)));
      for (size_t place : vertex.offsets) scaleAt(place, onMiter);
      for (size_t place : vertex.lengths) scaleAt(place, along);
    }
    if (db::OwnedGroup* scale = find(groups_, 40))
      scale->value = db::formatReal(number(*scale) * across);
    setExtrusion(groups_, newNormal);
    return true;
  }

 private:
  bool pointAt(size_t& i, int code, size_t& place) {
    if (i + 2 >= groups_.size() || groups_[i].code != code || groups_[i + 1].code != code + 10 ||
        groups_[i + 2].code != code + 20) {
      return false;
    }
    place = i;
    i += 3;
    return true;
  }
  Vec3 vectorAt(size_t i) const {
    return {number(groups_[i]), number(groups_[i + 1]), number(groups_[i + 2])};
  }
  void setAt(size_t i, Vec3 value) {
    groups_[i].value = db::formatReal(value.x);
    groups_[i + 1].value = db::formatReal(value.y);
    groups_[i + 2].value = db::formatReal(value.z);
  }
  void scaleAt(size_t i, double factor) {
    groups_[i].value = db::formatReal(number(groups_[i]) * factor);
  }
  // How the map stretches lengths along a direction.
  double lengthRatio(Vec3 direction) const {
    double length = geom::length(direction);
    return length == 0 ? 1 : geom::length(map_.vector(direction)) / length;
  }
  // The angle between an open end's segment and its miter, as the plane sees it.
  bool capKeepsItsAngle(const VertexPlaces& vertex, Vec3 normal, Vec3 newNormal) const {
    Vec3 direction = vectorAt(vertex.direction), miter = vectorAt(vertex.miter);
    if (geom::length(miter) == 0) return true;
    auto cosSin = [](Vec3 a, Vec3 b, Vec3 n, double out[2]) {
      a = geom::normalized(a);
      b = geom::normalized(b);
      out[0] = geom::dot(a, b);
      out[1] = geom::dot(geom::cross(a, b), n);
    };
    double before[2], after[2];
    cosSin(direction, miter, normal, before);
    cosSin(map_.vector(direction), map_.vector(miter), newNormal, after);
    return std::fabs(before[0] - after[0]) <= 1e-9 && std::fabs(before[1] - after[1]) <= 1e-9;
  }

  Groups& groups_;
  const Affine3& map_;
  std::vector<VertexPlaces> vertices_;
};

}  // namespace

bool transformMultilineGroups(Groups& groups, const Affine3& map, bool& cannotScaleNonUniformly) {
  MultilineRewriter rewriter(groups, map);
  return rewriter.read() && rewriter.rewrite(cannotScaleNonUniformly);
}

}  // namespace korva::api
