// Geometry values: the matrix algebra that transforms and coordinate systems rely on.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "qx_db_extents.h"
#include "qx_ge.h"

constexpr double kPi = std::numbers::pi;

TEST(GeometryValues, TolerancesDecideEquality) {
  EXPECT_EQ(QxGeContext::gTol.equalPoint(), 1e-10);
  EXPECT_EQ(QxGeContext::gTol.equalVector(), 1e-10);
  EXPECT_TRUE(QxGePoint3d(1, 2, 3).isEqualTo(QxGePoint3d(1, 2, 3 + 5e-11)));
  EXPECT_FALSE(QxGePoint3d(1, 2, 3).isEqualTo(QxGePoint3d(1, 2, 3 + 2e-10)));
  QxGeTol loose;
  loose.setEqualPoint(1e-3);
  EXPECT_TRUE(QxGePoint2d(0, 0).isEqualTo(QxGePoint2d(5e-4, 0), loose));
  EXPECT_FALSE(QxGeScale3d(1, 1, 1).isEqualTo(QxGeScale3d(1, 1, 1.001)));
  // A vector too short to have a direction stays as it is.
  EXPECT_TRUE(QxGeVector3d(1e-12, 0, 0).normal().isEqualTo(QxGeVector3d(1e-12, 0, 0)));
}

TEST(GeometryValues, AnglesAndProducts) {
  QxGeVector3d x = QxGeVector3d::kXAxis, y = QxGeVector3d::kYAxis;
  EXPECT_NEAR(x.angleTo(y), kPi / 2, 1e-15);
  EXPECT_NEAR(y.angleTo(x, QxGeVector3d::kZAxis), 3 * kPi / 2, 1e-15);
  EXPECT_NEAR(x.angleTo(QxGeVector3d(1, 1e-9, 0)), 1e-9, 1e-20);  // no acos cancellation
  EXPECT_TRUE(x.crossProduct(y).isEqualTo(QxGeVector3d::kZAxis));
  QxGePoint3d p(1, 0, 5);
  p.rotateBy(kPi / 2, QxGeVector3d::kZAxis, QxGePoint3d(1, 1, 0));
  EXPECT_TRUE(p.isEqualTo(QxGePoint3d(2, 1, 5)));
}

TEST(GeometryValues, MatrixProductsAndInverse) {
  QxGeMatrix3d m = QxGeMatrix3d::translation({1, 2, 3}) *
                   QxGeMatrix3d::rotation(0.7, {1, 2, 2}, {4, 0, -1}) *
                   QxGeMatrix3d::scaling(QxGeScale3d(2, 3, 0.5));
  QxGeMatrix3d product;
  product.setToProduct(m, m.inverse());
  EXPECT_TRUE(product.isEqualTo(QxGeMatrix3d::kIdentity));
  EXPECT_FALSE(m.isUniScaledOrtho());
  EXPECT_TRUE((QxGeMatrix3d::rotation(1, {0, 1, 1}) * QxGeMatrix3d::scaling(2)).isUniScaledOrtho());
  QxGeMatrix3d singular = QxGeMatrix3d::scaling(QxGeScale3d(1, 0, 1));
  EXPECT_TRUE(singular.isSingular());
  EXPECT_FALSE(singular.invert());
  // Order: the right factor acts first.
  QxGePoint3d moved =
      (QxGeMatrix3d::translation({1, 0, 0}) * QxGeMatrix3d::scaling(2)) * QxGePoint3d(1, 1, 1);
  EXPECT_TRUE(moved.isEqualTo(QxGePoint3d(3, 2, 2)));
}

TEST(GeometryValues, CoordinateSystemsAndPlanes) {
  QxGeVector3d normal(0.3, -0.4, 0.8);
  QxGeMatrix3d toPlane = QxGeMatrix3d::worldToPlane(normal);
  // The normal becomes Z; X follows the arbitrary-axis rule (world Z x N for tilted N).
  EXPECT_TRUE((toPlane * normal.normal()).isEqualTo(QxGeVector3d::kZAxis));
  QxGeVector3d expectedX = QxGeVector3d::kZAxis.crossProduct(normal).normal();
  EXPECT_TRUE((toPlane * expectedX).isEqualTo(QxGeVector3d::kXAxis));

  QxGePoint3d origin;
  QxGeVector3d x, y, z;
  QxGeMatrix3d system;
  system.setCoordSystem({1, 2, 3}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
  system.getCoordSystem(origin, x, y, z);
  EXPECT_TRUE(origin.isEqualTo({1, 2, 3}));
  EXPECT_TRUE(y.isEqualTo({-1, 0, 0}));
  QxGeMatrix3d align = QxGeMatrix3d::alignCoordSys({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1},
                                                   {1, 2, 3}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
  EXPECT_TRUE(align.isEqualTo(system));

  QxGePlane plane({0, 0, 2}, {0, 0, 5});
  EXPECT_TRUE(plane.normal().isEqualTo(QxGeVector3d::kZAxis));
  EXPECT_TRUE(QxGeMatrix3d::mirroring(plane) * QxGePoint3d(1, 1, 5) == QxGePoint3d(1, 1, -1));
  EXPECT_TRUE(plane.closestPointTo({4, 5, 9}).isEqualTo({4, 5, 2}));
}

TEST(GeometryValues, LinesAndSegments) {
  QxGeLineSeg3d segment({0, 0, 0}, {4, 0, 0});
  EXPECT_TRUE(segment.midPoint().isEqualTo({2, 0, 0}));
  EXPECT_TRUE(segment.closestPointTo({9, 3, 0}).isEqualTo({4, 0, 0}));
  QxGeLine3d line(QxGePoint3d(0, 0, 0), QxGeVector3d(4, 0, 0));
  EXPECT_TRUE(line.closestPointTo({9, 3, 0}).isEqualTo({9, 0, 0}));
  const QxGeCurve3d& curve = segment;
  EXPECT_TRUE(curve.closestPointTo({-2, 1, 1}).isEqualTo({0, 0, 0}));
}

TEST(GeometryValues, ExtentsGrow) {
  QxDbExtents box;
  EXPECT_TRUE(box.isEmpty());
  box.addPoint({1, 2, 3});
  QxDbExtents other({-1, 5, 0}, {0, 6, 1});
  box.addExt(other);
  EXPECT_TRUE(box.minPoint().isEqualTo({-1, 2, 0}));
  EXPECT_TRUE(box.maxPoint().isEqualTo({1, 6, 3}));
  box.addExt(QxDbExtents());  // an empty box adds nothing
  EXPECT_TRUE(box.minPoint().isEqualTo({-1, 2, 0}));
  EXPECT_EQ(box.set({1, 1, 1}, {0, 2, 2}), Qxad::eInvalidInput);
}
