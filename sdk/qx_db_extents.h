// A box of world space that grows to take in points and other boxes.
#pragma once

#include "qx_db_core.h"
#include "qx_ge.h"

class QxDbExtents {
 public:
  QxDbExtents();  // empty: min above max until something is added
  QxDbExtents(const QxGePoint3d& minimum, const QxGePoint3d& maximum);

  QxGePoint3d minPoint() const { return min_; }
  QxGePoint3d maxPoint() const { return max_; }
  bool isEmpty() const { return min_.x > max_.x; }
  // Sets both corners; each coordinate of min must not exceed max (eInvalidInput).
  Qxad::ErrorStatus set(const QxGePoint3d& minimum, const QxGePoint3d& maximum);
  void addPoint(const QxGePoint3d& point);
  void addExt(const QxDbExtents& other);
  void expandBy(const QxGeVector3d& vector);     // takes in both corners moved by vector
  void transformBy(const QxGeMatrix3d& matrix);  // the box of the transformed corners

 private:
  QxGePoint3d min_;
  QxGePoint3d max_;
};
