// Affine maps of space: a 3x3 linear part and a translation.
#pragma once

#include "vec.h"

namespace korva::geom {

struct Affine3 {
  // Rows of the linear part; the map is p -> linear * p + offset.
  double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  Vec3 offset;

  static Affine3 identity() { return {}; }
  // Columns are the images of the unit axes.
  static Affine3 fromAxes(Vec3 x, Vec3 y, Vec3 z, Vec3 origin);
  static Affine3 translation(Vec3 by);
  static Affine3 scaling(double sx, double sy, double sz);
  static Affine3 rotationZ(double angle);
  // From a 4x4 row-major matrix acting on column vectors; false when its last row is
  // not 0 0 0 1 (a projective map).
  static bool fromMatrix4(const double matrix[4][4], Affine3& out);

  Vec3 point(Vec3 p) const;
  Vec3 vector(Vec3 v) const;
  // Transforms a plane normal so that it stays perpendicular to transformed planes and
  // keeps the orientation rule of curves drawn counterclockwise about it.
  Vec3 normal(Vec3 n) const;
  double determinant() const;
  Affine3 inverse() const;  // identity when singular
};

// a after b: p -> a(b(p)).
Affine3 operator*(const Affine3& a, const Affine3& b);

// The object system of an extrusion direction by the arbitrary-axis rule, as a map from
// object coordinates to world coordinates.
Affine3 objectToWorld(Vec3 extrusion);

// Uniform scale times a rotation or mirror: the maps that keep circles circles. scale
// is the factor.
bool isSimilarity(const Affine3& map, double& scale);

}  // namespace korva::geom
