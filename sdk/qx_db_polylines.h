// Polylines: the lightweight kind with its vertices in its own groups, and the
// old-style two- and three-dimensional kinds with VERTEX records up to a SEQEND.
// Parameters run from 0 at the first vertex; vertex i sits at parameter i.
#pragma once

#include "qx_db_curve.h"
#include "qx_db_object_iterator.h"

class QxDbPolyline : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbPolyline)
  QxDbPolyline();
  // Room for this many vertices; the polyline starts empty all the same.
  explicit QxDbPolyline(unsigned int reserve);

  unsigned int numVerts() const;
  // The closed flag, as set (the curve's closing segment is there when it is set).
  bool isClosed() const override;
  // Inserts before index (numVerts() appends); the point is in the object system.
  Qxad::ErrorStatus addVertexAt(unsigned int index, const QxGePoint2d& point, double bulge = 0,
                                double startWidth = -1, double endWidth = -1);
  Qxad::ErrorStatus removeVertexAt(unsigned int index);
  Qxad::ErrorStatus getPointAt(unsigned int index, QxGePoint2d& point) const;  // object system
  Qxad::ErrorStatus getPointAt(unsigned int index, QxGePoint3d& point) const;  // world
  Qxad::ErrorStatus setPointAt(unsigned int index, const QxGePoint2d& point);
  Qxad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
  Qxad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
  Qxad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
  Qxad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
  // eOk with the width when all segments share one; the width otherwise is 0 and the
  // status eNotApplicable.
  Qxad::ErrorStatus getConstantWidth(double& width) const;
  Qxad::ErrorStatus setConstantWidth(double width);

  Qxad::ErrorStatus setClosed(bool closed);
  bool hasPlinegen() const;
  Qxad::ErrorStatus setPlinegen(bool on);
  double elevation() const;
  Qxad::ErrorStatus setElevation(double elevation);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
  bool isOnlyLines() const;
};

namespace QxDb {
enum Poly2dType : int {
  k2dSimplePoly = 0,
  k2dFitCurvePoly = 1,
  k2dQuadSplinePoly = 2,
  k2dCubicSplinePoly = 3,
};
enum Poly3dType : int { k3dSimplePoly = 0, k3dQuadSplinePoly = 1, k3dCubicSplinePoly = 2 };
}  // namespace QxDb

// A vertex of a two-dimensional polyline; its position is in the polyline's object
// system, with the polyline's elevation as Z.
class QxDb2dVertex : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb2dVertex)
  QxDb2dVertex();

  QxGePoint3d position() const;
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
  double bulge() const;
  Qxad::ErrorStatus setBulge(double bulge);
  double startWidth() const;  // the polyline's default width when the vertex has none
  Qxad::ErrorStatus setStartWidth(double width);
  double endWidth() const;
  Qxad::ErrorStatus setEndWidth(double width);
};

class QxDb3dPolylineVertex : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb3dPolylineVertex)
  QxDb3dPolylineVertex();

  QxGePoint3d position() const;  // world
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
};

class QxDb2dPolyline : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb2dPolyline)
  QxDb2dPolyline();

  QxDb::Poly2dType polyType() const;
  double elevation() const;
  Qxad::ErrorStatus setElevation(double elevation);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;
  double defaultStartWidth() const;
  double defaultEndWidth() const;
  Qxad::ErrorStatus setClosed(bool closed);
  // Over the vertices that follow the polyline up to its SEQEND; the caller deletes
  // it. Null for a polyline not in a database.
  QxDbObjectIterator* vertexIterator() const;
};

class QxDb3dPolyline : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb3dPolyline)
  QxDb3dPolyline();

  QxDb::Poly3dType polyType() const;
  Qxad::ErrorStatus setClosed(bool closed);
  QxDbObjectIterator* vertexIterator() const;
};
