// AREASUM: the total area of the selected closed shapes, measured by the host's AREA.
#include <cmath>
#include <string>

#include "frame/commands/drawing_length_text.h"
#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/scoped_int_var.h"
#include "frame/string_helpers.h"

namespace {

// Areas this small are the zero of an entity AREA can't measure.
constexpr double kNoArea = 1e-10;

double ReadAreaVariable() {
  ResultBuffer value{};
  if (qxedGetVar(L"AREA", &value) != RTNORM || value.type != RTREAL) return 0;
  return value.value.rreal;
}

}  // namespace

void cmdAreaSum() {
  ResourceScope resources;
  ResultBuffer* filter =
      qxutBuildList(-4, L"<OR", RTDXF0, L"POLYLINE", RTDXF0, L"LWPOLYLINE", RTDXF0, L"CIRCLE",
                    RTDXF0, L"ELLIPSE", RTDXF0, L"REGION", -4, L"OR>", RTNONE);
  SelectionSet set;
  const int selected = qxedSSGet(nullptr, nullptr, nullptr, filter, set);
  qxutRelRb(filter);
  if (selected != RTNORM) return;

  // AREA runs once per member: its prompts and answers would bury the result. The
  // saved value comes back when the command ends.
  ScopedIntVar commandEcho(L"CMDECHO");
  commandEcho.Clear();
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  std::int32_t measured = 0;
  double sum = 0;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    if (qxedSSName(set, index, name) != RTNORM) continue;
    qxedCommand(RTSTR, L"_.AREA", RTSTR, L"_E", RTENAME, name, RTNONE);
    const double area = ReadAreaVariable();
    if (std::fabs(area) > kNoArea) ++measured;
    sum += area;
  }
  const std::wstring format = LoadResourceString(small_commands::kAreaSumFormat);
  qxutPrintf(format.c_str(), static_cast<int>(count), static_cast<int>(measured),
             FormatDrawingLength(sum).c_str());
  qxedSSFree(set);
  qxedRetVoid();
}
