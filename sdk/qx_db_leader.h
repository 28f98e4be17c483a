// Annotations that take their look from a dimension style: the leader and the feature
// control frame (tolerance). A dimension variable they read comes from the entity's own
// override (extended data of the application "ACAD", block "DSTYLE") or else from its
// dimension style; setting one writes the override.
#pragma once

#include "qx_color.h"
#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

class QxDbLeader : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLeader)
  // A leader without vertices, with an arrowhead and no annotation.
  QxDbLeader();

  // What the annotation is (group 73).
  enum AnnoType : int { kMText = 0, kFcf = 1, kBlockRef = 2, kNoAnno = 3 };

  // Vertices are world points.
  int numVertices() const;
  QxGePoint3d vertexAt(int index) const;  // the origin for an index out of range
  Qxad::ErrorStatus setVertexAt(int index, const QxGePoint3d& point);
  Qxad::ErrorStatus appendVertex(const QxGePoint3d& point);
  QxGeVector3d normal() const;

  bool hasArrowHead() const;
  Qxad::ErrorStatus enableArrowHead();
  Qxad::ErrorStatus disableArrowHead();

  QxDbObjectId annotationObjId() const;  // null when there is none
  AnnoType annoType() const;
  // Ties the leader to a paragraph text, a tolerance or a block reference of the same
  // drawing: the reference (340) and the kind (73); a paragraph text also gives its
  // measured height and width (40, 41). Another kind gives eWrongObjectType.
  Qxad::ErrorStatus attachAnnotation(QxDbObjectId annotationId);
  // Clears the reference; the kind becomes kNoAnno.
  Qxad::ErrorStatus detachAnnotation();
  double annoHeight() const;
  double annoWidth() const;

  QxDbObjectId dimensionStyle() const;
  double dimasz() const;
  double dimgap() const;
  double dimscale() const;
  QxCmColor dimclrd() const;
  Qxad::ErrorStatus setDimasz(double value);
  Qxad::ErrorStatus setDimgap(double value);
  Qxad::ErrorStatus setDimscale(double value);
  Qxad::ErrorStatus setDimclrd(const QxCmColor& color);  // by index (0 by block, 256 by layer)

  // The box of the vertices.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const;
};

// A feature control frame: geometric tolerance symbols in boxes, lines of its text
// separated by "^J".
class QxDbFcf : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbFcf)
  QxDbFcf();

  // The whole text for lineNumber -1, else that line (from 0); empty past the last. The
  // caller frees it with qxad_free.
  wchar_t* text(int lineNumber = -1) const;
  Qxad::ErrorStatus setText(const wchar_t* text);
  QxGePoint3d location() const;  // world
  Qxad::ErrorStatus setLocation(const QxGePoint3d& point);
  QxGeVector3d normal() const;
  QxGeVector3d direction() const;  // the frame's X axis in world coordinates

  QxDbObjectId dimensionStyle() const;
  double dimgap() const;
  double dimscale() const;
  double dimtxt() const;
  QxCmColor dimclrd() const;
  QxCmColor dimclrt() const;
  Qxad::ErrorStatus setDimgap(double value);
  Qxad::ErrorStatus setDimscale(double value);
  Qxad::ErrorStatus setDimtxt(double value);
  Qxad::ErrorStatus setDimclrd(const QxCmColor& color);
  Qxad::ErrorStatus setDimclrt(const QxCmColor& color);

  // The frame as drawn: rows of text height plus a gap above and below, the first
  // centered on the location; cells of their contents plus a gap each side, symbols of
  // the GDT font one text height wide. Text height and gap are DIMTXT and DIMGAP times
  // DIMSCALE. A frame without cells gives eDegenerateGeometry.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // The frame's lines and one paragraph text per cell, middle-left in its cell.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
};
