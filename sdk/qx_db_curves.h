// The simple curves: lines, rays, construction lines, arcs, circles and ellipses.
#pragma once

#include "qx_db_curve.h"

class QxDbLine : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbLine)
  QxDbLine();
  QxDbLine(const QxGePoint3d& start, const QxGePoint3d& end);

  QxGePoint3d startPoint() const;
  Qxad::ErrorStatus setStartPoint(const QxGePoint3d& point);
  QxGePoint3d endPoint() const;
  Qxad::ErrorStatus setEndPoint(const QxGePoint3d& point);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
};

// A half-infinite line from its base point.
class QxDbRay : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRay)
  QxDbRay();

  QxGePoint3d basePoint() const;
  Qxad::ErrorStatus setBasePoint(const QxGePoint3d& point);
  QxGeVector3d unitDir() const;
  Qxad::ErrorStatus setUnitDir(const QxGeVector3d& direction);  // normalized on the way in
};

// An infinite construction line through its base point.
class QxDbXline : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbXline)
  QxDbXline();

  QxGePoint3d basePoint() const;
  Qxad::ErrorStatus setBasePoint(const QxGePoint3d& point);
  QxGeVector3d unitDir() const;
  Qxad::ErrorStatus setUnitDir(const QxGeVector3d& direction);
};

class QxDbCircle : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbCircle)
  QxDbCircle();
  QxDbCircle(const QxGePoint3d& center, const QxGeVector3d& normal, double radius);

  QxGePoint3d center() const;  // world
  Qxad::ErrorStatus setCenter(const QxGePoint3d& center);
  double radius() const;
  Qxad::ErrorStatus setRadius(double radius);  // > 0
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);  // keeps the world center
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  double circumference() const;
};

// Angles are radians from the X axis of the arc's object system, counterclockwise
// about its normal.
class QxDbArc : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbArc)
  QxDbArc();
  QxDbArc(const QxGePoint3d& center, double radius, double startAngle, double endAngle);
  QxDbArc(const QxGePoint3d& center, const QxGeVector3d& normal, double radius, double startAngle,
          double endAngle);

  QxGePoint3d center() const;
  Qxad::ErrorStatus setCenter(const QxGePoint3d& center);
  double radius() const;
  Qxad::ErrorStatus setRadius(double radius);
  double startAngle() const;
  Qxad::ErrorStatus setStartAngle(double angle);
  double endAngle() const;
  Qxad::ErrorStatus setEndAngle(double angle);
  double totalAngle() const;  // in (0, 2 pi]
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
};

// Points at eccentric angle t: center + cos t * majorAxis + sin t * minorAxis. The
// angles are polar angles from the major axis, as drawn; parameters are eccentric.
class QxDbEllipse : public QxDbCurve {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbEllipse)
  QxDbEllipse();
  // radiusRatio in (0, 1]; the angles are parameters, as in the drawing's groups.
  QxDbEllipse(const QxGePoint3d& center, const QxGeVector3d& unitNormal,
              const QxGeVector3d& majorAxis, double radiusRatio, double startParam = 0,
              double endParam = 6.283185307179586);

  QxGePoint3d center() const;
  Qxad::ErrorStatus setCenter(const QxGePoint3d& center);
  QxGeVector3d normal() const;
  QxGeVector3d majorAxis() const;
  QxGeVector3d minorAxis() const;
  double radiusRatio() const;
  Qxad::ErrorStatus setRadiusRatio(double ratio);
  Qxad::ErrorStatus set(const QxGePoint3d& center, const QxGeVector3d& unitNormal,
                        const QxGeVector3d& majorAxis, double radiusRatio, double startParam = 0,
                        double endParam = 6.283185307179586);
  double startAngle() const;
  Qxad::ErrorStatus setStartAngle(double angle);
  double endAngle() const;
  Qxad::ErrorStatus setEndAngle(double angle);
  double paramAtAngle(double angle) const;
  double angleAtParam(double param) const;
};
