// Entities of four corners: the filled solid and trace of the plane, and the face of
// space whose edges can be hidden one by one. Corners are numbered 0 to 3 and handed
// out in world coordinates.
#pragma once

#include <cstdint>

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

// Solids and traces are drawn as the triangles 0-1-2 and 1-3-2; a corner 3 that the
// record leaves out is corner 2. Their corners lie in the object system of the normal.
class QxDbSolid : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbSolid)
  QxDbSolid();
  QxDbSolid(const QxGePoint3d& corner0, const QxGePoint3d& corner1, const QxGePoint3d& corner2,
            const QxGePoint3d& corner3);

  // eInvalidIndex past corner 3.
  Qxad::ErrorStatus getPointAt(std::uint16_t index, QxGePoint3d& point) const;
  Qxad::ErrorStatus setPointAt(std::uint16_t index, const QxGePoint3d& point);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;

  // The corners, swept along the normal by the thickness.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;

 protected:
  explicit QxDbSolid(const char* dxfType);
};

// The same four corners as a solid; a class of its own, not a kind of solid.
class QxDbTrace : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbTrace)
  QxDbTrace();

  Qxad::ErrorStatus getPointAt(std::uint16_t index, QxGePoint3d& point) const;
  Qxad::ErrorStatus setPointAt(std::uint16_t index, const QxGePoint3d& point);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};

// Edge i runs from corner i to corner i + 1 (edge 3 back to corner 0).
class QxDbFace : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbFace)
  QxDbFace();
  QxDbFace(const QxGePoint3d& corner0, const QxGePoint3d& corner1, const QxGePoint3d& corner2,
           const QxGePoint3d& corner3, bool edge0Visible = true, bool edge1Visible = true,
           bool edge2Visible = true, bool edge3Visible = true);

  Qxad::ErrorStatus getVertexAt(std::uint16_t index, QxGePoint3d& point) const;
  Qxad::ErrorStatus setVertexAt(std::uint16_t index, const QxGePoint3d& point);
  Qxad::ErrorStatus isEdgeVisibleAt(std::uint16_t index, bool& visible) const;
  Qxad::ErrorStatus makeEdgeVisibleAt(std::uint16_t index);
  Qxad::ErrorStatus makeEdgeInvisibleAt(std::uint16_t index);

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
