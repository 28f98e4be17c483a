// The current user system of the drawing: reading it, making another one current, the
// systems it replaced (for UCS Previous) and the named systems of the UCS table.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geom/vec.h"

namespace korva::cmd::drawing {

struct UserSystem {
  geom::Vec3 origin;
  geom::Vec3 xAxis{1, 0, 0};
  geom::Vec3 yAxis{0, 1, 0};
  std::wstring name;  // empty when unnamed

  bool isWorld() const;
  geom::Vec3 zAxis() const;
};

// From the origin and two directions in the X-Y plane: the Y axis is made square to X.
// Nothing when the directions are parallel or zero.
std::optional<UserSystem> systemFromAxes(geom::Vec3 origin, geom::Vec3 xDirection,
                                         geom::Vec3 inPlaneDirection);

UserSystem currentSystem();
// "*WORLD*", "*NO NAME*" or the name.
std::wstring displayName(const UserSystem& system);

// Makes system current; the one it replaces is kept for restorePrevious.
void makeCurrent(const UserSystem& system);
// Brings back the system before the last change; false when there is none.
bool restorePrevious();
// Names the current system (it stays what it is).
void setCurrentName(const std::wstring& name);

// The UCS table.
std::optional<UserSystem> findNamedSystem(const std::wstring& name);
// Stores the system under its name, replacing a record of that name. False when the
// drawing refused it.
bool saveNamedSystem(const UserSystem& system);
// Names that match the wildcard pattern (case ignored), in table order.
std::vector<UserSystem> namedSystemsMatching(const std::wstring& pattern);
// Erases the records that match; the count erased.
int deleteNamedSystems(const std::wstring& pattern);

}  // namespace korva::cmd::drawing
