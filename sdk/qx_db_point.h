// The point entity.
#pragma once

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

class QxDbPoint : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbPoint)
  QxDbPoint();
  explicit QxDbPoint(const QxGePoint3d& position);

  QxGePoint3d position() const;  // world
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix) override;
};
