// Viewports of paper-space layouts (VIEWPORT entities).
#pragma once

#include "qx_array.h"
#include "qx_db_entity.h"
#include "qx_ge.h"

class QxDbViewport : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbViewport)
  QxDbViewport();

  // The viewport's number in its layout (group 69); 1 is the layout's own view.
  int number() const;
  bool isOn() const;
  Qxad::ErrorStatus setOn();
  Qxad::ErrorStatus setOff();
  // In paper space.
  QxGePoint3d centerPoint() const;
  Qxad::ErrorStatus setCenterPoint(const QxGePoint3d& center);
  double width() const;
  double height() const;
  // The view it shows, in model space.
  QxGePoint2d viewCenter() const;
  QxGeVector3d viewDirection() const;
  QxGePoint3d viewTarget() const;
  double viewHeight() const;
  double twistAngle() const;
  // Paper units per drawing unit: the viewport's height over its view's height.
  double customScale() const;
  Qxad::ErrorStatus setCustomScale(double scale);

  // Layers frozen in this viewport only (groups 331).
  Qxad::ErrorStatus freezeLayersInViewport(const QxDbObjectIdArray& layerIds);
  Qxad::ErrorStatus thawLayersInViewport(const QxDbObjectIdArray& layerIds);
  bool isLayerFrozenInViewport(QxDbObjectId layerId) const;

  // Clipped by an entity rather than by its rectangle.
  bool isNonRectClipOn() const;
  QxDbObjectId nonRectClipEntityId() const;
};
