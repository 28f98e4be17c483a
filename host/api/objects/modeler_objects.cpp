// Classes of the modeler's bodies over 3DSOLID, REGION and BODY records, which stay as
// they were read: their data is the modeler's, not korva's.
#include "object_state.h"
#include "qx_db_modeler.h"

const QxRxClass* QxDb3dSolid::desc() {
  static const QxRxClass record(L"QxDb3dSolid", QxDbEntity::desc(), "3DSOLID");
  return &record;
}
QxDb3dSolid::QxDb3dSolid() : QxDbEntity("3DSOLID") {}
static korva::api::ObjectClassRegistration solidClass("3DSOLID", [] {
  return static_cast<QxDbObject*>(new QxDb3dSolid);
});

const QxRxClass* QxDbRegion::desc() {
  static const QxRxClass record(L"QxDbRegion", QxDbEntity::desc(), "REGION");
  return &record;
}
QxDbRegion::QxDbRegion() : QxDbEntity("REGION") {}
static korva::api::ObjectClassRegistration regionClass("REGION", [] {
  return static_cast<QxDbObject*>(new QxDbRegion);
});

const QxRxClass* QxDbBody::desc() {
  static const QxRxClass record(L"QxDbBody", QxDbEntity::desc(), "BODY");
  return &record;
}
QxDbBody::QxDbBody() : QxDbEntity("BODY") {}
static korva::api::ObjectClassRegistration bodyClass("BODY", [] {
  return static_cast<QxDbObject*>(new QxDbBody);
});
