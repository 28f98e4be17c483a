// Whether an object's drawing is open as a document. The flat layer's entity lists
// (qxdbEntGet) work only there in this host; objects of side databases are read through
// the object layer alone.
#pragma once

#include "frame/host_interface.h"

bool IsInOpenDocument(const QxDbObject* object);
