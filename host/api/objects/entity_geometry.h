// What the entity classes share for their box and their transform.
#pragma once

#include "geom/affine.h"
#include "geom/space_box.h"
#include "qx_db_entity.h"

namespace korva::api {

// The affine map of a matrix; false for projective or singular ones.
bool affineOf(const QxGeMatrix3d& matrix, geom::Affine3& map);

// Rewrites the object's record under the map; eNotApplicable, with nothing changed,
// when its kind can't follow the map.
Qxad::ErrorStatus transformRecordOf(QxDbObject& object, const geom::Affine3& map);

// Rewrites the record and the block its picture is drawn from, so that the picture
// keeps showing where the entity now is (dimensions and tables).
Qxad::ErrorStatus transformWithPicture(QxDbEntity& entity, const geom::Affine3& map);

// The box of the entity's block picture and, for references, of its attributes.
Qxad::ErrorStatus pictureExtents(const QxDbEntity& entity, QxDbExtents& extents);

}  // namespace korva::api
