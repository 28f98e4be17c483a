// Where the dialog layer finds dialog templates and menus.
#pragma once

#include "ui/resource_module.h"

namespace korva::ui {

// While it lives, a resource module is searched before all others: for callers that
// hold their resources themselves rather than in a loaded resource module.
class PreferredResources {
 public:
  explicit PreferredResources(const ResourceModule& resources);
  ~PreferredResources();
  PreferredResources(const PreferredResources&) = delete;
  PreferredResources& operator=(const PreferredResources&) = delete;
};

// The preferred resources (the latest first), then those in use, then those of the
// extension modules; null when none has the id.
const DialogTemplate* findDialogTemplate(unsigned id);
const MenuTemplate* findMenuTemplate(unsigned id);

}  // namespace korva::ui
