// The entity: an object with a layer, a colour, a linetype and a place in a block.
#pragma once

#include "qx_color.h"
#include "qx_db_core.h"

class QxDbEntity : public QxDbObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbEntity)

  QxDbObjectId blockId() const;  // the owning block table record

  QxCmColor color() const;
  Qxad::ErrorStatus setColor(const QxCmColor& color);
  std::int16_t colorIndex() const;  // 256 by layer when the entity has no colour
  Qxad::ErrorStatus setColorIndex(std::int16_t index);

  // Names are wide strings of the caller's, to be freed with qxad_free.
  wchar_t* layer() const;
  QxDbObjectId layerId() const;
  // The layer must exist (eKeyNotFound otherwise).
  Qxad::ErrorStatus setLayer(const wchar_t* layerName);
  wchar_t* linetype() const;  // "ByLayer" when the entity names none
  Qxad::ErrorStatus setLinetype(const wchar_t* linetypeName);
  double linetypeScale() const;
  Qxad::ErrorStatus setLinetypeScale(double scale);
  int lineWeight() const;  // -1 by layer, -2 by block, -3 default, else hundredths of mm
  Qxad::ErrorStatus setLineWeight(int weight);
  // 0 visible, 1 invisible (group 60).
  int visibility() const;
  Qxad::ErrorStatus setVisibility(int visibility, bool doSubents = true);

  // Layer, colour, linetype, linetype scale, line weight and visibility of another entity.
  Qxad::ErrorStatus setPropertiesFrom(const QxDbEntity* other, bool doSubents = true);

 protected:
  explicit QxDbEntity(const char* dxfType);
  QxDbEntity();
};
