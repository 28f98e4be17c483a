#include "affine.h"

#include <cmath>

namespace korva::geom {

Affine3 Affine3::fromAxes(Vec3 x, Vec3 y, Vec3 z, Vec3 origin) {
  Affine3 a;
  const Vec3 cols[3] = {x, y, z};
  for (int c = 0; c < 3; ++c) {
    a.m[0][c] = cols[c].x;
    a.m[1][c] = cols[c].y;
    a.m[2][c] = cols[c].z;
  }
  a.offset = origin;
  return a;
}

Affine3 Affine3::translation(Vec3 by) {
  Affine3 a;
  a.offset = by;
  return a;
}

Affine3 Affine3::scaling(double sx, double sy, double sz) {
  Affine3 a;
  a.m[0][0] = sx;
  a.m[1][1] = sy;
  a.m[2][2] = sz;
  return a;
}

Affine3 Affine3::rotationZ(double angle) {
  Affine3 a;
  double c = std::cos(angle), s = std::sin(angle);
  a.m[0][0] = c;
  a.m[0][1] = -s;
  a.m[1][0] = s;
  a.m[1][1] = c;
  return a;
}

bool Affine3::fromMatrix4(const double matrix[4][4], Affine3& out) {
  if (matrix[3][0] != 0 || matrix[3][1] != 0 || matrix[3][2] != 0 || matrix[3][3] != 1) {
    return false;
  }
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) out.m[r][c] = matrix[r][c];
  }
  out.offset = {matrix[0][3], matrix[1][3], matrix[2][3]};
  return true;
}

Vec3 Affine3::vector(Vec3 v) const {
  return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z,
          m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
          m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
}

Vec3 Affine3::point(Vec3 p) const {
  return vector(p) + offset;
}

Vec3 Affine3::normal(Vec3 n) const {
  // The cofactor matrix: det * inverse transpose, without dividing by the determinant,
  // so that a mirror turns the normal over together with the curve's direction.
  const Vec3 c0{m[0][0], m[1][0], m[2][0]};
  const Vec3 c1{m[0][1], m[1][1], m[2][1]};
  const Vec3 c2{m[0][2], m[1][2], m[2][2]};
  const Vec3 r0 = cross(c1, c2), r1 = cross(c2, c0), r2 = cross(c0, c1);
  return normalized(Vec3{r0.x * n.x + r1.x * n.y + r2.x * n.z, r0.y * n.x + r1.y * n.y + r2.y * n.z,
                         r0.z * n.x + r1.z * n.y + r2.z * n.z});
}

double Affine3::determinant() const {
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

Affine3 Affine3::inverse() const {
  double det = determinant();
  if (det == 0) return {};
  Affine3 inv;
  inv.m[0][0] = (m[1][1] * m[2][2] - m[1][2] * m[2][1]) / det;
  inv.m[0][1] = (m[0][2] * m[2][1] - m[0][1] * m[2][2]) / det;
  inv.m[0][2] = (m[0][1] * m[1][2] - m[0][2] * m[1][1]) / det;
  inv.m[1][0] = (m[1][2] * m[2][0] - m[1][0] * m[2][2]) / det;
  inv.m[1][1] = (m[0][0] * m[2][2] - m[0][2] * m[2][0]) / det;
  inv.m[1][2] = (m[0][2] * m[1][0] - m[0][0] * m[1][2]) / det;
  inv.m[2][0] = (m[1][0] * m[2][1] - m[1][1] * m[2][0]) / det;
  inv.m[2][1] = (m[0][1] * m[2][0] - m[0][0] * m[2][1]) / det;
  inv.m[2][2] = (m[0][0] * m[1][1] - m[0][1] * m[1][0]) / det;
  inv.offset = inv.vector(offset) * -1.0;
  return inv;
}

Affine3 operator*(const Affine3& a, const Affine3& b) {
  Affine3 r;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      r.m[i][j] = a.m[i][0] * b.m[0][j] + a.m[i][1] * b.m[1][j] + a.m[i][2] * b.m[2][j];
    }
  }
  r.offset = a.point(b.offset);
  return r;
}

Affine3 objectToWorld(Vec3 extrusion) {
  Vec3 z = normalized(extrusion);
  if (dot(z, z) == 0) return {};
  Vec3 x = arbitraryXAxis(z);
  Vec3 y = normalized(cross(z, x));
  return Affine3::fromAxes(x, y, z, {});
}

bool isSimilarity(const Affine3& map, double& scale) {
  Vec3 c[3];
  for (int k = 0; k < 3; ++k) c[k] = {map.m[0][k], map.m[1][k], map.m[2][k]};
  scale = length(c[0]);
  if (scale <= 0) return false;
  double tolerance = 1e-9 * scale * scale;
  for (int k = 0; k < 3; ++k) {
    if (std::fabs(dot(c[k], c[k]) - scale * scale) > tolerance) return false;
    if (std::fabs(dot(c[k], c[(k + 1) % 3])) > tolerance) return false;
  }
  return true;
}

}  // namespace korva::geom
