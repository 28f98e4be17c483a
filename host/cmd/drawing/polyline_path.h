// The path the PLINE command builds: vertices in the user system's X-Y plane, each
// with the bulge and widths of the segment that starts at it.
#pragma once

#include <vector>

#include "cmd/drawing/arc_construction.h"

namespace korva::cmd::drawing {

struct PathVertex {
  Vec2 point;
  double bulge = 0;
  double startWidth = 0;
  double endWidth = 0;
};

// An arc seen from one of its ends: where it ends and its signed sweep.
struct DirectedArc {
  Vec2 end;
  double sweep = 0;
};
// `from` is the end of the arc the path stands at.
DirectedArc directedFrom(const PlaneArc& arc, Vec2 from);

class PolylinePath {
 public:
  explicit PolylinePath(Vec2 start) { vertices_.push_back({start}); }

  const std::vector<PathVertex>& vertices() const { return vertices_; }
  size_t segmentCount() const { return vertices_.size() - 1; }
  Vec2 last() const { return vertices_.back().point; }
  Vec2 first() const { return vertices_.front().point; }
  // The direction of travel at the last vertex; east before the first segment.
  Vec2 tangent() const;

  void addLine(Vec2 to, double startWidth, double endWidth);
  void addArc(Vec2 to, double bulge, double startWidth, double endWidth);
  // Closes with the segment from the last vertex to the first: straight or tangent arc.
  void closeWithLine(double startWidth, double endWidth);
  void closeWithArc(double startWidth, double endWidth);
  bool closed() const { return closed_; }
  // Takes the last segment back; false when there is none.
  bool undo();

  // The one width of all segments, or a negative value when they differ.
  double constantWidth() const;

 private:
  std::vector<PathVertex> vertices_;
  bool closed_ = false;
};

}  // namespace korva::cmd::drawing
