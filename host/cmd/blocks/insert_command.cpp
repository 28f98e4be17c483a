// INSERT and -INSERT: a reference to a block of the drawing or to a drawing file read
// in as a block, at a point, with scale factors and a rotation.
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "cmd/blocks/attribute_values.h"
#include "cmd/blocks/block_commands.h"
#include "cmd/blocks/block_listing.h"
#include "cmd/blocks/block_placement.h"
#include "cmd/blocks/block_source.h"
#include "cmd/blocks/open_object.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "cmd/drawing/user_system.h"
#include "input/point_input.h"
#include "qx_db_block_reference.h"
#include "qx_db_database.h"
#include "qx_entities.h"
#include "qx_print.h"

namespace korva::cmd::blocks {

namespace {

using drawing::Answer;
using drawing::Vec3;

// The name answer: a block or file name, "?" listing the blocks first. Enter takes the
// last block inserted. Empty when the user stopped.
std::wstring askBlockName() {
  for (;;) {
    std::wstring last = drawing::stringVariable(L"INSNAME");
    std::wstring prompt = last.empty() ? std::wstring(L"\nEnter block name or [?]: ")
                                       : L"\nEnter block name or [?] <" + last + L">: ";
    std::wstring name;
    if (!drawing::askString(prompt.c_str(), false, name).value()) return {};
    if (name.empty()) return last;
    if (name != L"?") return name;
    listBlocks();
  }
}

// Scale factors and rotation given before the insertion point are final: the command
// asks for none of them after the point, as the scripts that give them expect.
struct Presets {
  std::optional<double> x, y, z, rotation;
  bool any() const { return x || y || z || rotation; }
  bool anyScale() const { return x || y || z; }
};

std::optional<double> askFactor(const wchar_t* prompt) {
  double factor = 1;
  Answer answer = drawing::askReal(prompt, factor, {2});
  if (answer.stop()) return std::nullopt;
  return answer.value() ? factor : 1.0;
}

std::optional<double> askRotation(const std::optional<Vec3>& base) {
  double radians = 0;
  Answer answer = drawing::askOrientation(L"\nSpecify rotation angle <0>: ", base, radians);
  if (answer.stop()) return std::nullopt;
  return answer.value() ? radians : 0.0;
}

// The insertion point with the presets typed before it; nothing when the user stopped.
std::optional<Vec3> askInsertionPoint(Presets& presets) {
  for (;;) {
    Vec3 point;
    Answer answer =
        drawing::askPoint(L"\nSpecify insertion point or [Scale/X/Y/Z/Rotate]: ", std::nullopt,
                          point, {0, L"Scale X Y Z Rotate _ Scale X Y Z Rotate"});
    if (answer.value()) return point;
    if (answer.stop() || answer.enter()) return std::nullopt;
    std::optional<double> value;
    if (answer.is(L"Scale")) {
      value = askFactor(L"\nSpecify scale factor for XYZ axes <1>: ");
      if (value) presets.x = presets.y = presets.z = value;
    } else if (answer.is(L"X")) {
      value = presets.x = askFactor(L"\nSpecify X scale factor <1>: ");
    } else if (answer.is(L"Y")) {
      value = presets.y = askFactor(L"\nSpecify Y scale factor <1>: ");
    } else if (answer.is(L"Z")) {
      value = presets.z = askFactor(L"\nSpecify Z scale factor <1>: ");
    } else if (answer.is(L"Rotate")) {
      value = presets.rotation = askRotation(std::nullopt);
    } else {
      continue;
    }
    if (!value) return std::nullopt;
  }
}

// A typed factor: a number other than zero.
std::optional<double> factorOfText(const std::wstring& text) {
  std::optional<double> value = input::parseRealInput(text);
  if (!value || *value == 0) return std::nullopt;
  return value;
}

// The X scale after the point: a factor, a corner whose offsets give X and Y, or XYZ
// for three factors. False when the user stopped.
bool askScales(Placement& placement) {
  bool threeAxes = false;
  bool cornerGiven = false;
  for (;;) {
    Vec3 corner;
    Answer answer = drawing::askPoint(
        threeAxes ? L"\nSpecify X scale factor or specify opposite corner or [Corner] <1>: "
                  : L"\nEnter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: ",
        placement.point, corner, {128, L"Corner XYZ _ Corner XYZ"});
    if (answer.stop()) return false;
    if (answer.is(L"XYZ")) {
      threeAxes = true;
      continue;
    }
    if (answer.is(L"Corner")) {
      answer = drawing::askCorner(L"\nSpecify opposite corner: ", placement.point, corner);
      if (answer.stop()) return false;
      if (!answer.value()) continue;
    }
    if (answer.value()) {
      placement.xScale = corner.x - placement.point.x;
      placement.yScale = corner.y - placement.point.y;
      if (placement.xScale == 0 || placement.yScale == 0) {
        qxutPrintf(L"\nThe corner must lie off both axes of the insertion point.");
        continue;
      }
      placement.zScale = placement.xScale;
      cornerGiven = true;
      if (!threeAxes) return true;
    } else if (answer.status == RTKWORD) {
      std::optional<double> factor = factorOfText(answer.keyword);
      if (!factor) {
        qxutPrintf(L"\nRequires a nonzero scale factor, a corner, or an option keyword.");
        continue;
      }
      placement.xScale = placement.yScale = placement.zScale = *factor;
    } else {
      placement.xScale = placement.yScale = placement.zScale = 1;
    }
    break;
  }
  if (!cornerGiven &&
      drawing::askReal(L"\nEnter Y scale factor <use X scale factor>: ", placement.yScale, {2})
          .stop()) {
    return false;
  }
  if (threeAxes &&
      drawing::askReal(L"\nSpecify Z scale factor <use X scale factor>: ", placement.zScale, {2})
          .stop()) {
    return false;
  }
  return true;
}

bool makeReference(QxDbObjectId blockId, const Placement& placement,
                   const std::vector<AttributeValue>& attributes) {
  ReferenceFrame frame = referenceFrame(drawing::currentUserSystem(), placement);
  auto* reference = new QxDbBlockReference(drawing::toGePoint(frame.position), blockId);
  reference->setNormal(drawing::toGeVector(frame.normal));
  reference->setPosition(drawing::toGePoint(frame.position));
  reference->setRotation(frame.rotation);
  if (reference->setScaleFactors({placement.xScale, placement.yScale, placement.zScale}) !=
      Qxad::eOk) {
    delete reference;
    return false;
  }
  EntityName name;
  if (!drawing::appendToCurrentSpace(reference, name)) return false;
  QxDbObjectId referenceId;
  if (qxdbGetObjectId(referenceId, name) != Qxad::eOk) return false;
  return attachAttributes(referenceId, attributes) == Qxad::eOk;
}

}  // namespace

void insertCommand() {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  if (!database) return;
  std::wstring name = askBlockName();
  if (name.empty()) return;
  QxDbObjectId blockId = blockToInsert(*database, name);
  if (blockId.isNull()) return;
  if (namesDrawingFile(name)) name = blockNameOfFile(name);
  drawing::setStringVariable(L"INSNAME", name);

  Presets presets;
  std::optional<Vec3> point = askInsertionPoint(presets);
  if (!point) return;
  Placement placement;
  placement.point = *point;
  if (presets.anyScale()) {
    placement.xScale = presets.x.value_or(1);
    placement.yScale = presets.y.value_or(placement.xScale);
    placement.zScale = presets.z.value_or(placement.xScale);
  } else if (!presets.any() && !askScales(placement)) {
    return;
  }
  if (presets.rotation) {
    placement.rotation = *presets.rotation;
  } else if (!presets.any()) {
    std::optional<double> rotation = askRotation(placement.point);
    if (!rotation) return;
    placement.rotation = *rotation;
  }
  std::vector<AttributeValue> attributes;
  if (!attributeValues(blockId, attributes)) return;
  if (!makeReference(blockId, placement, attributes)) {
    qxutPrintf(L"\nThe block reference could not be added to the drawing.");
  }
}

}  // namespace korva::cmd::blocks
