// The multiline: parallel lines along a path of vertices, drawn by a multiline style.
#pragma once

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

namespace QxMline {
// Which line of the style the vertices lie on.
enum MlineJustification : int { kTop = 0, kZero = 1, kBottom = 2 };
}  // namespace QxMline

class QxDbMline : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbMline)
  QxDbMline();

  QxMline::MlineJustification justification() const;
  double scale() const;
  Qxad::ErrorStatus setScale(double scale);
  // The MLINESTYLE object; null when the multiline names none.
  QxDbObjectId style() const;
  QxGeVector3d normal() const;
  bool closedMline() const;

  // Vertices are world points.
  int numVertices() const;
  QxGePoint3d vertexAt(int index) const;  // the origin for an index out of range
  // Moves one vertex (its direction and miter stay as they were).
  Qxad::ErrorStatus moveVertexAt(int index, const QxGePoint3d& point);

  // The box of the lines where they meet each vertex: every element offset along the
  // vertex's miter. End caps are left out.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // One line per element of the style between each pair of vertices (closing the path
  // when the multiline is closed), where the element meets the vertices' miters.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
};
