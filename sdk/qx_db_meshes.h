// Meshes kept as old-style polylines: the polyface mesh (vertices, then faces naming
// them by number) and the polygon mesh (an M by N grid of vertices).
#pragma once

#include "qx_db_entity.h"
#include "qx_db_extents.h"

class QxDbPolyFaceMesh : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbPolyFaceMesh)
  QxDbPolyFaceMesh();

  // Counted from the records that follow the mesh up to its SEQEND.
  int numVertices() const;
  int numFaces() const;

  // The box of the vertices.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};

class QxDbPolygonMesh : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbPolygonMesh)
  QxDbPolygonMesh();

  enum PolyMeshType : int {
    kSimpleMesh = 0,
    kQuadSurfaceMesh = 5,
    kCubicSurfaceMesh = 6,
    kBezierSurfaceMesh = 8
  };
  PolyMeshType polyMeshType() const;
  int mSize() const;
  int nSize() const;
  bool isMClosed() const;
  bool isNClosed() const;
  // Counted from the records that follow the mesh up to its SEQEND.
  int numVertices() const;

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
