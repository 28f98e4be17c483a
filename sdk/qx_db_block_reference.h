// Block references: an INSERT record and the ATTRIB records that follow it up to its
// SEQEND; a multiple insert is an INSERT with rows and columns.
#pragma once

#include "qx_db_entity.h"

class QxGePoint3d;
class QxGeVector3d;
class QxGeScale3d;
class QxGeMatrix3d;
class QxDbAttribute;
class QxDbObjectIterator;

class QxDbBlockReference : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbBlockReference)
  QxDbBlockReference();
  // blockId names a block table record; its name goes into group 2.
  QxDbBlockReference(const QxGePoint3d& position, QxDbObjectId blockId);

  // The block table record named by group 2; null when there is none.
  QxDbObjectId blockTableRecord() const;
  Qxad::ErrorStatus setBlockTableRecord(QxDbObjectId blockId);
  QxGePoint3d position() const;  // world
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
  double rotation() const;  // radians
  Qxad::ErrorStatus setRotation(double angle);
  QxGeScale3d scaleFactors() const;
  Qxad::ErrorStatus setScaleFactors(const QxGeScale3d& scale);  // no factor may be 0
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
  // Block coordinates to world coordinates (base point, scale, rotation, position).
  QxGeMatrix3d blockTransform() const;

  // The attributes, in their stored order; the caller deletes the iterator.
  QxDbObjectIterator* attributeIterator() const;
  // Adds the new attribute behind the last one (making the SEQEND when needed) and
  // leaves it open for write; the caller closes it. The reference must be in a
  // database (eNotInDatabase otherwise).
  Qxad::ErrorStatus appendAttribute(QxDbObjectId& id, QxDbAttribute* attribute);

  // The block's entities carried into place, attribute definitions included: new
  // objects that the caller owns (adds to a database or deletes). A nested reference
  // stays a reference where the transform keeps its axes perpendicular, and is broken
  // up further where it doesn't. eNotApplicable, with nothing handed out, when the
  // block holds a kind that can't be carried (modeler bodies, ...) or polyline arcs
  // under non-uniform scaling.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
  // The box of the block's entities in place and of the attributes.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // Moves the reference and its attributes; a map that would skew the block's axes
  // gives eNotApplicable.
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;

 protected:
  explicit QxDbBlockReference(const char* dxfType);
};

class QxDbMInsertBlock : public QxDbBlockReference {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbMInsertBlock)
  QxDbMInsertBlock();
  QxDbMInsertBlock(const QxGePoint3d& position, QxDbObjectId blockId, int columns, int rows,
                   double columnSpacing, double rowSpacing);

  int columns() const;
  Qxad::ErrorStatus setColumns(int count);  // >= 1
  int rows() const;
  Qxad::ErrorStatus setRows(int count);
  double columnSpacing() const;
  Qxad::ErrorStatus setColumnSpacing(double spacing);
  double rowSpacing() const;
  Qxad::ErrorStatus setRowSpacing(double spacing);

  // Every copy of the grid, each as a block reference would explode.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
  // The box of every copy of the grid.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
