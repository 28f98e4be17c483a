// QxDbEntity: the properties every entity has, in its AcDbEntity groups.
#include <cstdint>

#include "api/record_places.h"
#include "object_groups.h"
#include "object_state.h"
#include "qx_db_entity.h"
#include "qx_memory.h"

namespace {

constexpr std::string_view kEntity = "AcDbEntity";

korva::db::Record& recordOf(const QxDbEntity* entity) {
  return korva::api::recordOf(*entity);
}

wchar_t* newWide(const std::wstring& text) {
  return qxutNewString(text.c_str());
}

// Layer, colour (index, true colour, colour book name), linetype and its scale, line
// weight, transparency and visibility. Names are copied as drawing text: both entities
// normally share a drawing.
void copyProperties(const korva::db::Record& source, korva::db::Record& target) {
  std::string layer(korva::api::groupText(source, 8, kEntity).value_or("0"));
  korva::api::setGroupText(target, 8, layer, kEntity);
  for (int code : {6, 62, 420, 430, 440, 48, 370, 60}) {
    if (std::optional<std::string_view> value = korva::api::groupText(source, code, kEntity)) {
      korva::api::setGroupText(target, code, std::string(*value), kEntity);
    } else {
      korva::api::removeGroups(target, code, kEntity);
    }
  }
}

}  // namespace

const QxRxClass* QxDbEntity::desc() {
  static const QxRxClass record(L"QxDbEntity", QxDbObject::desc());
  return &record;
}

QxDbEntity::QxDbEntity() : QxDbEntity("ENTITY") {}

QxDbEntity::QxDbEntity(const char* dxfType) : QxDbObject(dxfType) {
  korva::api::setGroupText(korva::api::recordOf(*this), 8, "0", kEntity);
}

QxDbObjectId QxDbEntity::blockId() const {
  return ownerId();
}

QxCmColor QxDbEntity::color() const {
  const korva::db::Record& record = recordOf(this);
  QxCmColor color;
  long long index = korva::api::groupInteger(record, 62, 256, kEntity);
  std::optional<std::string_view> trueColor = korva::api::groupText(record, 420, kEntity);
  if (trueColor) {
    long long rgb = korva::api::groupInteger(record, 420, 0, kEntity);
    color.setRGB(static_cast<uint8_t>(rgb >> 16), static_cast<uint8_t>(rgb >> 8),
                 static_cast<uint8_t>(rgb));
  } else {
    color.setColorIndex(static_cast<int16_t>(index));
  }
  return color;
}

Qxad::ErrorStatus QxDbEntity::setColor(const QxCmColor& color) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Record& record = recordOf(this);
  korva::api::removeGroups(record, 420, kEntity);
  if (color.colorMethod() == QxCmEntityColor::kByColor) {
    korva::api::setGroupInteger(record, 62, color.colorIndex(), kEntity);
    korva::api::setGroupInteger(record, 420, color.trueColor(), kEntity);
  } else if (color.isByLayer()) {
    korva::api::removeGroups(record, 62, kEntity);
  } else {
    korva::api::setGroupInteger(record, 62, color.colorIndex(), kEntity);
  }
  if (korva::db::Database* database = korva::api::databaseOf(*this)) database->recordChanged();
  return Qxad::eOk;
}

int16_t QxDbEntity::colorIndex() const {
  return color().colorIndex();
}

Qxad::ErrorStatus QxDbEntity::setColorIndex(int16_t index) {
  if (index < 0 || index > 256) return Qxad::eOutOfRange;
  QxCmColor color;
  color.setColorIndex(index);
  return setColor(color);
}

wchar_t* QxDbEntity::layer() const {
  std::string_view name = korva::api::groupText(recordOf(this), 8, kEntity).value_or("0");
  return newWide(korva::api::wideText(korva::api::databaseOf(*this), name));
}

QxDbObjectId QxDbEntity::layerId() const {
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (!database) return QxDbObjectId::kNull;
  std::string_view name = korva::api::groupText(recordOf(this), 8, kEntity).value_or("0");
  korva::db::Record* layer = database->tableEntry("LAYER", name);
  return layer ? korva::api::idOf(*database, *layer) : QxDbObjectId::kNull;
}

Qxad::ErrorStatus QxDbEntity::setLayer(const wchar_t* layerName) {
  if (!layerName) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Database* database = korva::api::databaseOf(*this);
  std::string name = korva::api::drawingText(database, layerName);
  if (database && !database->tableEntry("LAYER", name)) return Qxad::eKeyNotFound;
  korva::api::setGroupText(recordOf(this), 8, name, kEntity);
  if (database) database->recordChanged();
  return Qxad::eOk;
}

wchar_t* QxDbEntity::linetype() const {
  std::string_view name = korva::api::groupText(recordOf(this), 6, kEntity).value_or("ByLayer");
  return newWide(korva::api::wideText(korva::api::databaseOf(*this), name));
}

Qxad::ErrorStatus QxDbEntity::setLinetype(const wchar_t* linetypeName) {
  if (!linetypeName) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Database* database = korva::api::databaseOf(*this);
  std::string name = korva::api::drawingText(database, linetypeName);
  if (database && !database->tableEntry("LTYPE", name)) return Qxad::eKeyNotFound;
  korva::api::setGroupText(recordOf(this), 6, name, kEntity);
  if (database) database->recordChanged();
  return Qxad::eOk;
}

double QxDbEntity::linetypeScale() const {
  return korva::api::groupReal(recordOf(this), 48, 1.0, kEntity);
}

Qxad::ErrorStatus QxDbEntity::setLinetypeScale(double scale) {
  if (scale <= 0) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupReal(recordOf(this), 48, scale, kEntity);
  if (korva::db::Database* database = korva::api::databaseOf(*this)) database->recordChanged();
  return Qxad::eOk;
}

int QxDbEntity::lineWeight() const {
  return static_cast<int>(korva::api::groupInteger(recordOf(this), 370, -1, kEntity));
}

Qxad::ErrorStatus QxDbEntity::setLineWeight(int weight) {
  if (weight < -3 || weight > 211) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupInteger(recordOf(this), 370, weight, kEntity);
  if (korva::db::Database* database = korva::api::databaseOf(*this)) database->recordChanged();
  return Qxad::eOk;
}

int QxDbEntity::visibility() const {
  return static_cast<int>(korva::api::groupInteger(recordOf(this), 60, 0, kEntity));
}

Qxad::ErrorStatus QxDbEntity::setVisibility(int visibility, bool) {
  if (visibility != 0 && visibility != 1) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::db::Record& record = recordOf(this);
  if (visibility == 0) {
    korva::api::removeGroups(record, 60, kEntity);
  } else {
    korva::api::setGroupInteger(record, 60, 1, kEntity);
  }
  if (korva::db::Database* database = korva::api::databaseOf(*this)) database->recordChanged();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbEntity::setPropertiesFrom(const QxDbEntity* other, bool doSubents) {
  if (!other) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const korva::db::Record& source = recordOf(other);
  korva::db::Record& target = recordOf(this);
  copyProperties(source, target);
  korva::db::Database* database = korva::api::databaseOf(*this);
  if (doSubents && database) {
    // Vertices and attributes follow their owner up to its SEQEND.
    korva::api::EntityPlace place = korva::api::placeOf(*database, target);
    for (size_t i = place.index + 1; place.list && i < place.list->size(); ++i) {
      korva::db::Record* follower = (*place.list)[i];
      if (!korva::api::isSubEntityType(follower->type())) break;
      copyProperties(source, *follower);
      if (follower->type() == "SEQEND") break;
    }
  }
  if (database) database->recordChanged();
  return Qxad::eOk;
}
