// Curves of the plane, as the edges of a hatch boundary are handed out. Each is a plain
// value: it copies what the entity held and is not tied to it.
#pragma once

#include "qx_ge.h"
#include "qx_ge_arrays.h"

class QxGeCurve2d {
 public:
  // The kinds, numbered as hatch boundaries number their edge types.
  enum Kind : int { kLineSeg2d = 1, kCircArc2d = 2, kEllipArc2d = 3, kNurbCurve2d = 4 };

  virtual ~QxGeCurve2d() = default;
  virtual Kind type() const = 0;
  virtual QxGePoint2d startPoint() const = 0;
  virtual QxGePoint2d endPoint() const = 0;
};

class QxGeLineSeg2d : public QxGeCurve2d {
 public:
  QxGeLineSeg2d() = default;
  QxGeLineSeg2d(const QxGePoint2d& start, const QxGePoint2d& end) : start_(start), end_(end) {}

  Kind type() const override { return kLineSeg2d; }
  QxGePoint2d startPoint() const override { return start_; }
  QxGePoint2d endPoint() const override { return end_; }

 private:
  QxGePoint2d start_;
  QxGePoint2d end_;
};

// A circular arc. Angles are radians from the X axis, counterclockwise; the arc runs
// from startAng to endAng counterclockwise, or clockwise when isClockWise().
class QxGeCircArc2d : public QxGeCurve2d {
 public:
  QxGeCircArc2d() = default;
  QxGeCircArc2d(const QxGePoint2d& center, double radius, double startAngle, double endAngle,
                bool clockwise)
      : center_(center),
        radius_(radius),
        start_(startAngle),
        end_(endAngle),
        clockwise_(clockwise) {}

  Kind type() const override { return kCircArc2d; }
  QxGePoint2d center() const { return center_; }
  double radius() const { return radius_; }
  double startAng() const { return start_; }
  double endAng() const { return end_; }
  bool isClockWise() const { return clockwise_; }
  QxGePoint2d startPoint() const override;
  QxGePoint2d endPoint() const override;

 private:
  QxGePoint2d center_;
  double radius_ = 1;
  double start_ = 0;
  double end_ = 0;
  bool clockwise_ = false;
};

// An arc of an ellipse: center + cos(t) * majorRadius * majorAxis + sin(t) * minorRadius
// * minorAxis, with unit axes, the minor a quarter turn counterclockwise from the major.
// startAng and endAng are such parameters t (eccentric angles, radians); the arc runs
// from the first to the second counterclockwise, or clockwise when isClockWise().
class QxGeEllipArc2d : public QxGeCurve2d {
 public:
  QxGeEllipArc2d() = default;
  QxGeEllipArc2d(const QxGePoint2d& center, const QxGeVector2d& majorAxis, double majorRadius,
                 double minorRadius, double startParam, double endParam, bool clockwise)
      : center_(center),
        major_(majorAxis),
        majorRadius_(majorRadius),
        minorRadius_(minorRadius),
        start_(startParam),
        end_(endParam),
        clockwise_(clockwise) {}

  Kind type() const override { return kEllipArc2d; }
  QxGePoint2d center() const { return center_; }
  QxGeVector2d majorAxis() const { return major_; }
  QxGeVector2d minorAxis() const { return {-major_.y, major_.x}; }
  double majorRadius() const { return majorRadius_; }
  double minorRadius() const { return minorRadius_; }
  double startAng() const { return start_; }
  double endAng() const { return end_; }
  bool isClockWise() const { return clockwise_; }
  QxGePoint2d pointAtParam(double param) const;
  QxGePoint2d startPoint() const override { return pointAtParam(start_); }
  QxGePoint2d endPoint() const override { return pointAtParam(end_); }

 private:
  QxGePoint2d center_;
  QxGeVector2d major_{1, 0};
  double majorRadius_ = 1;
  double minorRadius_ = 1;
  double start_ = 0;
  double end_ = 0;
  bool clockwise_ = false;
};

// A B-spline of the plane: its degree, knots, control points, weights (empty unless
// rational) and the fit points it was made through, when it has them.
class QxGeNurbCurve2d : public QxGeCurve2d {
 public:
  QxGeNurbCurve2d() = default;
  QxGeNurbCurve2d(int degree, const QxGeDoubleArray& knots, const QxGePoint2dArray& controlPoints,
                  const QxGeDoubleArray& weights, bool periodic);

  Kind type() const override { return kNurbCurve2d; }
  int degree() const { return degree_; }
  bool isRational() const { return !weights_.isEmpty(); }
  bool isPeriodic() const { return periodic_; }
  int numKnots() const { return knots_.length(); }
  double knotAt(int index) const { return knots_[index]; }
  int numControlPoints() const { return control_.length(); }
  QxGePoint2d controlPointAt(int index) const { return control_[index]; }
  double weightAt(int index) const { return isRational() ? weights_[index] : 1.0; }
  int numFitPoints() const { return fit_.length(); }
  QxGePoint2d fitPointAt(int index) const { return fit_[index]; }
  void setFitPoints(const QxGePoint2dArray& fitPoints) { fit_ = fitPoints; }
  // On the curve at its first and last knot of the parameter range.
  QxGePoint2d startPoint() const override;
  QxGePoint2d endPoint() const override;
  QxGePoint2d evalPoint(double param) const;

 private:
  int degree_ = 3;
  bool periodic_ = false;
  QxGeDoubleArray knots_;
  QxGePoint2dArray control_;
  QxGeDoubleArray weights_;
  QxGePoint2dArray fit_;
};
