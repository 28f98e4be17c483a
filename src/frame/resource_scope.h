// Makes the module's resource module the place where the host looks for strings and
// dialog templates, for as long as the scope lives. Every command holds one for its
// whole body, so that also an exception passing through gives the host's place back.
#pragma once

class ResourceScope {
 public:
  ResourceScope();
  ~ResourceScope();
  ResourceScope(const ResourceScope&) = delete;
  ResourceScope& operator=(const ResourceScope&) = delete;
};
