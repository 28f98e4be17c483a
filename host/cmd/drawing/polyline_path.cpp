#include "cmd/drawing/polyline_path.h"

#include <cmath>

namespace korva::cmd::drawing {

DirectedArc directedFrom(const PlaneArc& arc, Vec2 from) {
  Vec2 atStart = arc.pointAt(arc.start), atEnd = arc.pointAt(arc.end);
  if (geom::length(from - atStart) <= geom::length(from - atEnd)) return {atEnd, arc.sweep()};
  return {atStart, -arc.sweep()};
}

Vec2 PolylinePath::tangent() const {
  if (vertices_.size() < 2) return {1, 0};
  const PathVertex& before = vertices_[vertices_.size() - 2];
  return endTangent(before.point, vertices_.back().point, before.bulge);
}

void PolylinePath::addLine(Vec2 to, double startWidth, double endWidth) {
  addArc(to, 0, startWidth, endWidth);
}

void PolylinePath::addArc(Vec2 to, double bulge, double startWidth, double endWidth) {
  PathVertex& from = vertices_.back();
  from.bulge = bulge;
  from.startWidth = startWidth;
  from.endWidth = endWidth;
  vertices_.push_back({to});
}

void PolylinePath::closeWithLine(double startWidth, double endWidth) {
  PathVertex& from = vertices_.back();
  from.bulge = 0;
  from.startWidth = startWidth;
  from.endWidth = endWidth;
  closed_ = true;
}

void PolylinePath::closeWithArc(double startWidth, double endWidth) {
  double bulge = bulgeFromTangent(tangent(), last(), first());
  closeWithLine(startWidth, endWidth);
  vertices_.back().bulge = bulge;
}

bool PolylinePath::undo() {
  if (vertices_.size() < 2) return false;
  vertices_.pop_back();
  vertices_.back().bulge = 0;
  return true;
}

double PolylinePath::constantWidth() const {
  size_t segments = closed_ ? vertices_.size() : vertices_.size() - 1;
  if (segments == 0) return 0;
  double width = vertices_.front().startWidth;
  for (size_t i = 0; i < segments; ++i) {
    if (vertices_[i].startWidth != width || vertices_[i].endWidth != width) return -1;
  }
  return width;
}

}  // namespace korva::cmd::drawing
