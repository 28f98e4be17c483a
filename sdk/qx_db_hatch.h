// The hatch: an area closed by boundary loops and filled with a pattern of lines, a
// solid colour or a gradient. The loops lie in the hatch's object system at its
// elevation; points handed out are 2D coordinates of that system.
#pragma once

#include <cstdint>

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"
#include "qx_ge_arrays.h"

class QxDbHatch : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbHatch)
  // A solid fill without loops.
  QxDbHatch();

  // Bits of a loop's type.
  enum HatchLoopType : int {
    kDefault = 0,
    kExternal = 1,
    kPolyline = 2,
    kDerived = 4,
    kTextbox = 8,
    kOutermost = 16,
  };
  // The kinds of edges of an edge loop, as getLoopAt gives them in edgeTypes.
  enum HatchEdgeType : int { kLine = 1, kCirArc = 2, kEllipseArc = 3, kSpline = 4 };
  enum HatchStyle : int { kNormal = 0, kOuter = 1, kIgnore = 2 };
  enum HatchPatternType : int { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
  enum GradientPatternType : int { kPreDefinedGradient = 0, kUserDefinedGradient = 1 };

  bool associative() const;
  Qxad::ErrorStatus setAssociative(bool associative);
  // The handles of the objects the loops were made from, in loop order.
  Qxad::ErrorStatus getAssocObjIds(QxDbObjectIdArray& ids) const;

  double elevation() const;
  Qxad::ErrorStatus setElevation(double elevation);
  QxGeVector3d normal() const;

  int numLoops() const;
  // The loop's type bits; kDefault for an index out of range.
  int loopTypeAt(int loopIndex) const;
  // A polyline loop (type bit kPolyline): its vertices and one bulge for each (0 for
  // straight segments). The loop is closed: the last vertex joins the first. Edge loops
  // give eNotApplicable here.
  Qxad::ErrorStatus getLoopAt(int loopIndex, int& loopType, QxGePoint2dArray& vertices,
                              QxGeDoubleArray& bulges) const;
  // Any loop, edge by edge: each element of edges is a new QxGeCurve2d that the caller
  // deletes (a QxGeLineSeg2d, QxGeCircArc2d, QxGeEllipArc2d or QxGeNurbCurve2d, its kind
  // in edgeTypes at the same index). A polyline loop comes as lines and circular arcs.
  Qxad::ErrorStatus getLoopAt(int loopIndex, int& loopType, QxGeVoidPointerArray& edges,
                              QxGeIntArray& edgeTypes) const;

  HatchStyle hatchStyle() const;
  HatchPatternType patternType() const;
  // The pattern's name ("SOLID" for a solid fill); the caller frees it with qxad_free.
  wchar_t* patternName() const;
  double patternAngle() const;  // radians
  double patternScale() const;
  double patternSpace() const;
  bool patternDouble() const;
  bool isSolidFill() const;

  // The lines the pattern is drawn with, as the hatch stores them (already rotated and
  // scaled): angle in radians, base point, offset between parallels, and dash lengths
  // (positive drawn, negative gaps, 0 dots).
  int numPatternDefinitions() const;
  Qxad::ErrorStatus getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                           double& offsetX, double& offsetY,
                                           QxGeDoubleArray& dashes) const;

  bool isGradient() const;
  // Predefined when the name is one of the nine gradients every host offers.
  GradientPatternType gradientType() const;
  wchar_t* gradientName() const;  // qxad_free
  double gradientAngle() const;   // radians
  float gradientShift() const;    // 0 centred, up to 1

  // The box of the loops in world coordinates.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
