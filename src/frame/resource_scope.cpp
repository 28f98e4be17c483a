#include "frame/resource_scope.h"

#include "frame/module_state.h"

ResourceScope::ResourceScope() {
  QxModuleHandle resources = frame::resourceModule();
  qxDocManagerPtr()->pushResourceHandle(resources ? resources : frame::ownInstance());
}

ResourceScope::~ResourceScope() {
  qxDocManagerPtr()->popResourceHandle();
}
