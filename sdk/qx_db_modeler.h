// Bodies of the solid modeler: their geometry is a modeler's data that korva keeps
// whole and does not interpret. Only their classes are known.
#pragma once

#include "qx_db_entity.h"

class QxDb3dSolid : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDb3dSolid)
  QxDb3dSolid();
};

class QxDbRegion : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRegion)
  QxDbRegion();
};

class QxDbBody : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbBody)
  QxDbBody();
};
