// UCS: makes another user system current (World, Origin, 3point, OBject, Previous,
// Restore) or keeps systems by name in the UCS table (Save, Delete, ?).
#include <string>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/entity_ucs.h"
#include "cmd/drawing/ucs_state.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

namespace {

constexpr const wchar_t* kOptions =
    L"Origin 3point,3 OBject Entity Previous Restore Save Delete ? World _ "
    L"Origin 3point,3 OBject Entity Previous Restore Save Delete ? World";

UserSystem world() {
  return UserSystem{};
}

// The current system's view of a point given in it.
Vec3 toWorld(const UserSystem& system, Vec3 point) {
  return system.origin + system.xAxis * point.x + system.yAxis * point.y + system.zAxis() * point.z;
}

void changeOrigin(const UserSystem& current) {
  Vec3 origin;
  Answer answer = askPoint(L"\nSpecify new origin point <0,0,0>: ", std::nullopt, origin);
  if (answer.stop()) return;
  UserSystem moved = current;
  moved.name.clear();
  if (answer.value()) moved.origin = toWorld(current, origin);
  makeCurrent(moved);
}

void threePoints(const UserSystem& current) {
  Vec3 origin, onX{1, 0, 0}, onY{0, 1, 0};
  Answer answer = askPoint(L"\nSpecify new origin point <0,0,0>: ", std::nullopt, origin);
  if (answer.stop()) return;
  if (answer.enter()) origin = {};
  onX = origin + Vec3{1, 0, 0};
  std::wstring prompt =
      L"\nSpecify point on positive portion of X-axis <" + pointText(onX) + L">: ";
  if (askPoint(prompt.c_str(), origin, onX).stop()) return;
  // The Y point offered lies square to the new X axis.
  Vec3 xDirection = onX - origin;
  onY = origin + Vec3{-xDirection.y, xDirection.x, 0};
  prompt = L"\nSpecify point on positive-Y portion of the UCS XY plane <" + pointText(onY) + L">: ";
  if (askPoint(prompt.c_str(), origin, onY).stop()) return;
  Vec3 worldOrigin = toWorld(current, origin);
  std::optional<UserSystem> system = systemFromAxes(
      worldOrigin, toWorld(current, onX) - worldOrigin, toWorld(current, onY) - worldOrigin);
  if (!system) {
    qxutPrintf(L"\nThe three points lie on one line: they define no plane.");
    return;
  }
  makeCurrent(*system);
}

void alignToObject(const UserSystem& current) {
  EntityName name;
  Vec3 pick;
  if (!askEntity(L"\nSelect object to align UCS: ", name, pick).value()) return;
  std::optional<UserSystem> system = systemOfEntity(name, toWorld(current, pick));
  if (!system) {
    qxutPrintf(L"\nThis object does not define a coordinate system.");
    return;
  }
  makeCurrent(*system);
}

// A name for the UCS table: not empty and without the characters names can't hold.
bool validName(const std::wstring& name) {
  return !name.empty() && name.find_first_of(L"<>/\\\":;?*|,=`") == std::wstring::npos;
}

void listSystems(const std::wstring& pattern) {
  qxutPrintf(L"\nCurrent ucs name:  %s", displayName(currentSystem()).c_str());
  std::vector<UserSystem> systems = namedSystemsMatching(pattern.empty() ? L"*" : pattern);
  if (systems.empty()) {
    qxutPrintf(L"\nNo saved coordinate systems match.");
    return;
  }
  qxutPrintf(L"\nSaved coordinate systems:");
  for (const UserSystem& system : systems) {
    qxutPrintf(L"\n\n%s", system.name.c_str());
    qxutPrintf(L"\n    Origin = <%s>, X Axis = <%s>", pointText(system.origin).c_str(),
               pointText(system.xAxis).c_str());
    qxutPrintf(L"\n    Y Axis = <%s>, Z Axis = <%s>", pointText(system.yAxis).c_str(),
               pointText(system.zAxis()).c_str());
  }
}

// Asks a name, listing the table for "?"; empty when the user stopped.
std::wstring askName(const wchar_t* prompt) {
  for (;;) {
    std::wstring name;
    if (!askString(prompt, false, name).value()) return {};
    if (name != L"?") return name;
    std::wstring pattern;
    if (askString(L"\nEnter UCS name(s) to list <*>: ", false, pattern).stop()) return {};
    listSystems(pattern);
  }
}

void restoreNamed() {
  std::wstring name = askName(L"\nEnter name of UCS to restore or [?]: ");
  if (name.empty()) return;
  std::optional<UserSystem> system = findNamedSystem(name);
  if (!system) {
    qxutPrintf(L"\nCannot find UCS %s.", name.c_str());
    return;
  }
  makeCurrent(*system);
}

void saveNamed() {
  std::wstring name = askName(L"\nEnter name to save current UCS or [?]: ");
  if (name.empty()) return;
  if (!validName(name)) {
    qxutPrintf(L"\nInvalid UCS name: %s.", name.c_str());
    return;
  }
  if (findNamedSystem(name)) {
    std::wstring prompt = L"\nUCS \"" + name + L"\" already exists. Replace it? [Yes/No] <No>: ";
    Answer answer = askKeyword(prompt.c_str(), {0, L"Yes No _ Yes No"});
    if (!answer.is(L"Yes")) return;
  }
  UserSystem system = currentSystem();
  system.name = name;
  if (!saveNamedSystem(system)) {
    qxutPrintf(L"\nThe UCS could not be saved.");
    return;
  }
  std::optional<UserSystem> stored = findNamedSystem(name);
  setCurrentName(stored ? stored->name : name);
}

void deleteNamed() {
  std::wstring pattern;
  if (!askString(L"\nEnter UCS name(s) to delete <none>: ", false, pattern).value() ||
      pattern.empty()) {
    return;
  }
  std::wstring current = currentSystem().name;
  bool currentGoes = false;
  for (const UserSystem& system : namedSystemsMatching(pattern)) {
    currentGoes = currentGoes || sameText(system.name, current);
  }
  int count = deleteNamedSystems(pattern);
  if (count == 0) {
    qxutPrintf(L"\nNo matching UCS names found.");
    return;
  }
  if (currentGoes) setCurrentName(L"");
  qxutPrintf(count == 1 ? L"\nDeleted %d UCS name." : L"\nDeleted %d UCS names.", count);
}

}  // namespace

void ucsCommand() {
  UserSystem current = currentSystem();
  qxutPrintf(L"\nCurrent ucs name:  %s", displayName(current).c_str());
  Answer answer = askKeyword(
      L"\nEnter an option [Origin/3point/OBject/Previous/Restore/Save/Delete/?/World] <World>: ",
      {0, kOptions});
  if (answer.stop()) return;
  if (answer.enter() || answer.is(L"World")) {
    makeCurrent(world());
  } else if (answer.is(L"Origin")) {
    changeOrigin(current);
  } else if (answer.is(L"3point")) {
    threePoints(current);
  } else if (answer.is(L"OBject") || answer.is(L"Entity")) {
    alignToObject(current);
  } else if (answer.is(L"Previous")) {
    if (!restorePrevious()) qxutPrintf(L"\nThere is no previous UCS.");
  } else if (answer.is(L"Restore")) {
    restoreNamed();
  } else if (answer.is(L"Save")) {
    saveNamed();
  } else if (answer.is(L"Delete")) {
    deleteNamed();
  } else if (answer.is(L"?")) {
    std::wstring pattern;
    if (!askString(L"\nEnter UCS name(s) to list <*>: ", false, pattern).stop()) {
      listSystems(pattern);
    }
  }
}

}  // namespace korva::cmd::drawing
