// The entity: an object with a layer, a colour, a linetype and a place in a block.
#pragma once

#include "qx_array.h"
#include "qx_color.h"
#include "qx_db_core.h"
#include "qx_db_extents.h"
#include "qx_ge.h"

// Objects handed out by explode; each element is a new QxDbEntity* that the caller owns
// (adds to a database or deletes).
using QxDbVoidPtrArray = QxArray<void*>;

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

  // Layer, colour (index, true colour and colour name), linetype, linetype scale, line
  // weight, transparency and visibility of another entity. With doSubents the vertices
  // of an old-style polyline and the attributes of a block reference take them too.
  Qxad::ErrorStatus setPropertiesFrom(const QxDbEntity* other, bool doSubents = true);

  // The box of the entity in world coordinates. Kinds without a bounded shape (rays,
  // construction lines, bodies of the solid modeler) give eNotApplicable.
  virtual Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const;
  // Carries the entity through an affine map, writing its groups. Kinds that can't
  // follow the map give eCannotScaleNonUniformly (a non-uniform scale of a circle) or
  // eNotApplicable (any map of a modeler body) and stay as they were.
  virtual Qxad::ErrorStatus transformBy(const QxGeMatrix3d& matrix);
  // Breaks the entity into simpler ones, new objects with its properties. Kinds that
  // don't break up give eNotApplicable and hand out nothing.
  virtual Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const;

 protected:
  explicit QxDbEntity(const char* dxfType);
  QxDbEntity();
};
