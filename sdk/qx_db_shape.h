// A shape: one character of a compiled shape file, placed like a text.
#pragma once

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

class QxDbShape : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbShape)
  QxDbShape();

  QxGePoint3d position() const;  // world
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
  double size() const;
  Qxad::ErrorStatus setSize(double size);
  double rotation() const;  // radians
  Qxad::ErrorStatus setRotation(double angle);
  double widthFactor() const;
  Qxad::ErrorStatus setWidthFactor(double factor);
  double oblique() const;  // radians
  Qxad::ErrorStatus setOblique(double angle);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;

  // The shape's name; the caller frees it with qxad_free.
  wchar_t* name() const;
  Qxad::ErrorStatus setName(const wchar_t* name);
  // The number of the shape in its file. The drawing keeps only the name (group 2); the
  // number is looked up in the source (.shp) of a shape file of the drawing's text
  // styles, found on the support path beside the compiled file's name. korva doesn't
  // read compiled (.shx) files: without a readable source this is 0.
  int shapeNumber() const;

  // The box of the strokes the shape draws, read from the same source (pen moves,
  // vectors, octant, fractional and bulge arcs, subshapes), placed by size, width factor,
  // oblique, rotation and normal, swept by the thickness. A shape that draws nothing
  // gives its position. Without a readable source: eNotApplicable.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
