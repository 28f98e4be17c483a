// Viewports of paper-space layouts (VIEWPORT entities).
#pragma once

#include "qx_array.h"
#include "qx_db_entity.h"
#include "qx_ge.h"

class QxDbAnnotationScale;

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

  // The scale annotations show at: a new value the caller deletes, or null when the
  // viewport names none. It is kept in the viewport's extension dictionary as an
  // xrecord ASDK_XREC_ANNOTATION_SCALE_INFO pointing (340) at a SCALE object.
  QxDbAnnotationScale* annotationScale() const;
  // Points the viewport at the scale's SCALE object: the one its id names when that is
  // a live SCALE of this drawing, else the one of its name in ACAD_SCALELIST
  // (eKeyNotFound when there is none). The custom scale is left as it is.
  Qxad::ErrorStatus setAnnotationScale(const QxDbAnnotationScale* scale);

  // The viewport's rectangle in paper space.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
