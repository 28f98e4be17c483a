// Dimensions over their DIMENSION records (the type bits of group 70 choose the
// class), arc and large radial dimensions over their own records. Points are world
// coordinates.
#pragma once

#include "qx_db_entity.h"

class QxGePoint3d;
class QxGeVector3d;

class QxDbDimension : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDimension)
  // The anonymous block (group 2) that shows the dimension; null when missing.
  QxDbObjectId dimBlockId() const;
  QxDbObjectId dimensionStyle() const;
  Qxad::ErrorStatus setDimensionStyle(QxDbObjectId style);
  // The text override (group 1): "" measures, "<>" stands for the measurement.
  wchar_t* dimensionText() const;
  Qxad::ErrorStatus setDimensionText(const wchar_t* text);
  QxGePoint3d textPosition() const;
  Qxad::ErrorStatus setTextPosition(const QxGePoint3d& point);
  double textRotation() const;  // radians
  Qxad::ErrorStatus setTextRotation(double angle);
  QxGeVector3d normal() const;

  // The box of what the dimension's block shows.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // The entities of the dimension's block, placed where the dimension shows them.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
  // Moves the definition points and the block's picture along; non-uniform scaling
  // gives eNotApplicable.
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;

 protected:
  QxDbDimension(const char* dxfType, int typeBits, const char* subclass);
  // A point of the dimension's own part by its group code.
  QxGePoint3d pointOf(int code) const;
  Qxad::ErrorStatus setPointOf(int code, const QxGePoint3d& point);
  double realOf(int code, double fallback) const;
  Qxad::ErrorStatus setRealOf(int code, double value);
  const char* subclass_;
};

class QxDbAlignedDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbAlignedDimension)
  QxDbAlignedDimension();
  QxGePoint3d xLine1Point() const;
  Qxad::ErrorStatus setXLine1Point(const QxGePoint3d& point);
  QxGePoint3d xLine2Point() const;
  Qxad::ErrorStatus setXLine2Point(const QxGePoint3d& point);
  QxGePoint3d dimLinePoint() const;
  Qxad::ErrorStatus setDimLinePoint(const QxGePoint3d& point);
  double oblique() const;  // radians
  Qxad::ErrorStatus setOblique(double angle);

 protected:
  QxDbAlignedDimension(int typeBits, const char* subclass);
};

class QxDbRotatedDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRotatedDimension)
  QxDbRotatedDimension();
  QxGePoint3d xLine1Point() const;
  Qxad::ErrorStatus setXLine1Point(const QxGePoint3d& point);
  QxGePoint3d xLine2Point() const;
  Qxad::ErrorStatus setXLine2Point(const QxGePoint3d& point);
  QxGePoint3d dimLinePoint() const;
  Qxad::ErrorStatus setDimLinePoint(const QxGePoint3d& point);
  double oblique() const;
  double rotation() const;  // radians
  Qxad::ErrorStatus setRotation(double angle);
};

class QxDb2LineAngularDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb2LineAngularDimension)
  QxDb2LineAngularDimension();
  QxGePoint3d xLine1Start() const;
  QxGePoint3d xLine1End() const;
  QxGePoint3d xLine2Start() const;
  QxGePoint3d xLine2End() const;
  QxGePoint3d arcPoint() const;
  Qxad::ErrorStatus setArcPoint(const QxGePoint3d& point);
};

class QxDb3PointAngularDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb3PointAngularDimension)
  QxDb3PointAngularDimension();
  QxGePoint3d centerPoint() const;
  QxGePoint3d xLine1Point() const;
  QxGePoint3d xLine2Point() const;
  QxGePoint3d arcPoint() const;
  Qxad::ErrorStatus setArcPoint(const QxGePoint3d& point);
};

class QxDbArcDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbArcDimension)
  QxDbArcDimension();
  QxGePoint3d centerPoint() const;
  QxGePoint3d xLine1Point() const;
  QxGePoint3d xLine2Point() const;
  QxGePoint3d arcPoint() const;
};

class QxDbRadialDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRadialDimension)
  QxDbRadialDimension();
  QxGePoint3d center() const;
  QxGePoint3d chordPoint() const;
  Qxad::ErrorStatus setChordPoint(const QxGePoint3d& point);
  double leaderLength() const;
  Qxad::ErrorStatus setLeaderLength(double length);
};

class QxDbDiametricDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbDiametricDimension)
  QxDbDiametricDimension();
  QxGePoint3d chordPoint() const;
  QxGePoint3d farChordPoint() const;
  double leaderLength() const;
  Qxad::ErrorStatus setLeaderLength(double length);
  double extArcStartAngle() const;
  double extArcEndAngle() const;
};

class QxDbOrdinateDimension : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbOrdinateDimension)
  QxDbOrdinateDimension();
  QxGePoint3d origin() const;
  QxGePoint3d definingPoint() const;
  QxGePoint3d leaderEndPoint() const;
  bool isUsingXAxis() const;
};

class QxDbRadialDimensionLarge : public QxDbDimension {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRadialDimensionLarge)
  QxDbRadialDimensionLarge();
  QxGePoint3d center() const;
  QxGePoint3d chordPoint() const;
  QxGePoint3d overrideCenter() const;
  QxGePoint3d jogPoint() const;
  double jogAngle() const;  // radians
  double extArcStartAngle() const;
  double extArcEndAngle() const;
};
