// ARCSUM: the total length of the selected arcs.
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

// The arc's length, measured up to its end point. False when it can't be opened as a
// curve.
bool MeasureArc(const EntityName name, double& length) {
  QxDbEntity* entity = OpenEntityForRead(name);
  if (!entity) return false;
  const QxDbCurve* curve = QxDbCurve::cast(entity);
  QxGePoint3d end;
  const bool measured = curve && curve->getEndPoint(end) == Qxad::eOk &&
                        curve->getDistAtPoint(end, length) == Qxad::eOk;
  entity->close();
  return curve != nullptr && measured;
}

}  // namespace

void cmdArcSum() {
  ResourceScope resources;
  ResultBuffer* filter = qxutBuildList(-4, L"<OR", RTDXF0, L"ARC", -4, L"OR>", RTNONE);
  SelectionSet set;
  const int selected = SelectWithOwnPrompt(small_commands::kArcSelectPrompt, filter, set);
  if (selected != RTNORM) return;

  std::int32_t count = 0;
  qxedSSLength(set, &count);
  double sum = 0;
  for (std::int32_t index = 0; index < count; ++index) {
    EntityName name;
    double length = 0;
    if (qxedSSName(set, index, name) != RTNORM || !MeasureArc(name, length)) {
      // An arc that can't be measured makes any sum wrong: say nothing at all.
      qxedSSFree(set);
      return;
    }
    sum += length;
    // Kept from the command's first form, which also handed each member's name to the
    // set release; a name is no open set, so the host refuses it.
    qxedSSFree(name);
  }
  qxutPrintf(L"%s", LoadResourceString(small_commands::kArcLengthLabel).c_str());
  qxutPrintf(L"%s", FormatDrawingLength(sum).c_str());
  qxedSSFree(set);
}
