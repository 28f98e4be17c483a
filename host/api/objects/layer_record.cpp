// Layers: on and off as the sign of the colour, frozen, locked and frozen in new
// viewports as flags of group 70.
#include <cstdlib>

#include "api/record_places.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::Record;

namespace {

constexpr std::string_view kLayerPart = "AcDbLayerTableRecord";
constexpr int kFrozen = 1;
constexpr int kFrozenInNewViewports = 2;
constexpr int kLocked = 4;

Record& recordOf(const QxDbLayerTableRecord* layer) {
  return korva::api::recordOf(*layer);
}

bool hasFlag(const QxDbLayerTableRecord* layer, int flag) {
  return (korva::api::groupInteger(recordOf(layer), 70, 0) & flag) != 0;
}

Qxad::ErrorStatus setFlag(QxDbLayerTableRecord* layer, int flag, bool on) {
  if (Qxad::ErrorStatus status = layer->assertWriteEnabled(); status != Qxad::eOk) return status;
  Record& record = recordOf(layer);
  long long flags = korva::api::groupInteger(record, 70, 0);
  flags = on ? (flags | flag) : (flags & ~static_cast<long long>(flag));
  korva::api::setGroupInteger(record, 70, flags);
  korva::api::noteChanged(*layer);
  return Qxad::eOk;
}

long long colorNumber(const QxDbLayerTableRecord* layer) {
  return korva::api::groupInteger(recordOf(layer), 62, 7);
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbLayerTableRecord, QxDbSymbolTableRecord)
KORVA_DEFINE_TABLE(QxDbLayerTable, QxDbSymbolTable, QxDbLayerTableRecord, QxDbLayerTableIterator,
                   "LAYER")

QxDbLayerTableRecord::QxDbLayerTableRecord()
    : QxDbSymbolTableRecord("LAYER", "AcDbLayerTableRecord") {
  Record& record = recordOf(this);
  korva::api::setGroupInteger(record, 62, 7, kLayerPart);
  korva::api::setGroupText(record, 6, "Continuous", kLayerPart);
  korva::api::setGroupInteger(record, 370, -3, kLayerPart);
}

bool QxDbLayerTableRecord::isOff() const {
  return colorNumber(this) < 0;
}

Qxad::ErrorStatus QxDbLayerTableRecord::setIsOff(bool off) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  long long number = std::llabs(colorNumber(this));
  if (number == 0) number = 7;
  korva::api::setGroupInteger(recordOf(this), 62, off ? -number : number);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbLayerTableRecord::isFrozen() const {
  return hasFlag(this, kFrozen);
}
Qxad::ErrorStatus QxDbLayerTableRecord::setIsFrozen(bool frozen) {
  return setFlag(this, kFrozen, frozen);
}
bool QxDbLayerTableRecord::isLocked() const {
  return hasFlag(this, kLocked);
}
Qxad::ErrorStatus QxDbLayerTableRecord::setIsLocked(bool locked) {
  return setFlag(this, kLocked, locked);
}
bool QxDbLayerTableRecord::VPDFLT() const {
  return hasFlag(this, kFrozenInNewViewports);
}
Qxad::ErrorStatus QxDbLayerTableRecord::setVPDFLT(bool frozen) {
  return setFlag(this, kFrozenInNewViewports, frozen);
}

QxCmColor QxDbLayerTableRecord::color() const {
  QxCmColor color;
  if (std::optional<std::string_view> rgb = korva::api::groupText(recordOf(this), 420)) {
    long long value = korva::api::groupInteger(recordOf(this), 420, 0);
    color.setRGB(static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 8),
                 static_cast<uint8_t>(value));
  } else {
    color.setColorIndex(static_cast<std::int16_t>(std::llabs(colorNumber(this))));
  }
  return color;
}

Qxad::ErrorStatus QxDbLayerTableRecord::setColor(const QxCmColor& color) {
  std::int16_t index = color.colorIndex();
  // A layer has a colour of its own: neither by layer nor by block.
  if (index < 1 || index > 255) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Record& record = recordOf(this);
  korva::api::setGroupInteger(record, 62, isOff() ? -index : index);
  if (color.colorMethod() == QxCmEntityColor::kByColor) {
    korva::api::setGroupInteger(record, 420, color.trueColor());
  } else {
    korva::api::removeGroups(record, 420);
  }
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbLayerTableRecord::isInUse() const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return false;
  std::string_view name = korva::api::groupText(recordOf(this), 2).value_or("");
  for (std::vector<Record*>* list : korva::api::allEntityLists(*database)) {
    for (const Record* entity : *list) {
      if (entity->isErased()) continue;
      if (korva::db::sameName(entity->find(8).value_or("0"), name)) return true;
    }
  }
  return false;
}
