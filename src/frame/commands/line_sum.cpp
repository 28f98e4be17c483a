// LINESUM: the total length of the selected lines and polylines.
#include <string>

#include "frame/commands/drawing_length_text.h"
#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/entity_helpers.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/selection_helpers.h"
#include "frame/string_helpers.h"

namespace {

// The length up to the end parameter, so that a closed polyline counts its closing
// segment. False when the entity can't be opened as a curve.
bool MeasureCurve(const EntityName name, double& length) {
  QxDbEntity* entity = OpenEntityForRead(name);
  if (!entity) return false;
  const QxDbCurve* curve = QxDbCurve::cast(entity);
  double end = 0;
  const bool measured = curve && curve->getEndParam(end) == Qxad::eOk &&
                        curve->getDistAtParam(end, length) == Qxad::eOk;
  entity->close();
  return measured;
}

}  // namespace

void cmdLineSum() {
  ResourceScope resources;
  ResultBuffer* filter = qxutBuildList(-4, L"<OR", RTDXF0, L"POLYLINE", RTDXF0, L"LWPOLYLINE",
                                       RTDXF0, L"LINE", -4, L"OR>", RTNONE);
  SelectionSet set;
  const int selected = SelectWithOwnPrompt(small_commands::kLineSelectPrompt, filter, set);
  if (selected != RTNORM) return;

  std::int32_t count = 0;
  qxedSSLength(set, &count);
  double sum = 0;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    double length = 0;
    // A member that can't be measured adds nothing; asking it again would never end.
    if (qxedSSName(set, index, name) == RTNORM && MeasureCurve(name, length)) sum += length;
  }
  const std::wstring format = LoadResourceString(small_commands::kLineLengthFormat);
  qxutPrintf(format.c_str(), FormatDrawingLength(sum).c_str());
  qxedSSFree(set);
  qxedRetVoid();
}
