#include "compare/file_compare_log.h"

#include <cstdio>
#include <cwchar>
#include <string>

#include "frame/string_helpers.h"

namespace {

constexpr unsigned kHeadingIds[] = {3230, 3231, 3232, 3233, 3234, 3235};
constexpr unsigned kOldEntityLabel = 3237;
constexpr unsigned kNewEntityLabel = 3236;
constexpr unsigned kModifiedPairLabel = 3238;

// Handle, type and layout of an open entity; type and layout only when its list has them.
void FillFromEntity(const QxDbEntity* entity, VnFileCompareData& record) {
  const QxDbObjectId id = entity->objectId();
  wchar_t handle[17] = {};
  id.handle().getIntoAsciiBuffer(handle, 17);
  record.handle = handle;
  EntityName name = {0, 0};
  if (qxdbGetHysName(name, id) != Qxad::eOk) return;
  ResultBuffer* list = qxdbEntGet(name);
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 0 && node->value.rstring) record.type = node->value.rstring;
    if (node->type == 410 && node->value.rstring) record.layout = node->value.rstring;
  }
  qxutRelRb(list);
}

std::string Utf8(const std::wstring& text) {
  std::string bytes;
  for (wchar_t wide : text) {
    const auto c = static_cast<std::uint32_t>(wide);
    if (c < 0x80) {
      bytes += static_cast<char>(c);
    } else if (c < 0x800) {
      bytes += static_cast<char>(0xC0 | (c >> 6));
      bytes += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      bytes += static_cast<char>(0xE0 | (c >> 12));
      bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      bytes += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      bytes += static_cast<char>(0xF0 | (c >> 18));
      bytes += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      bytes += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return bytes;
}

std::wstring Corner(const QxGePoint3d& point) {
  wchar_t text[256];
  std::swprintf(text, 256, L"\"(%.0f,%.0f,%.0f)\"", point.x, point.y, point.z);
  return text;
}

unsigned LabelOf(std::int32_t kind) {
  if (kind == kOldEntity) return kOldEntityLabel;
  if (kind == kNewEntity) return kNewEntityLabel;
  return kModifiedPairLabel;
}

}  // namespace

bool VnFileCompareLog::AddOldEntity(QxDbObjectId entityId) {
  QxDbEntity* entity = nullptr;
  if (qxdbOpenQxDbEntity(entity, entityId, QxDb::kForRead) != Qxad::eOk) return false;
  VnFileCompareData record;
  record.kind = kOldEntity;
  // The class name stands in when the entity has no list to take the type from.
  record.type = entity->isA()->name();
  FillFromEntity(entity, record);
  entity->getGeomExtents(record.extents);
  entity->close();
  records_.push_back(std::move(record));
  return true;
}

bool VnFileCompareLog::AddNewEntity(QxDbObjectId entityId) {
  QxDbEntity* entity = nullptr;
  if (qxdbOpenQxDbEntity(entity, entityId, QxDb::kForRead) != Qxad::eOk) return false;
  VnFileCompareData record;
  record.kind = kNewEntity;
  FillFromEntity(entity, record);
  entity->getGeomExtents(record.extents);
  entity->close();
  records_.push_back(std::move(record));
  return true;
}

bool VnFileCompareLog::AddModifiedEntity(QxDbObjectId oldId, QxDbObjectId newId) {
  QxDbEntity* oldEntity = nullptr;
  if (qxdbOpenQxDbEntity(oldEntity, oldId, QxDb::kForRead) != Qxad::eOk) return false;
  QxDbEntity* newEntity = nullptr;
  if (qxdbOpenQxDbEntity(newEntity, newId, QxDb::kForRead) != Qxad::eOk) {
    oldEntity->close();
    return false;
  }
  VnFileCompareData record;
  record.kind = kModifiedPair;
  FillFromEntity(oldEntity, record);
  // The record spans both positions of the entity.
  oldEntity->getGeomExtents(record.extents);
  QxDbExtents newExtents;
  newEntity->getGeomExtents(newExtents);
  record.extents.addExt(newExtents);
  newEntity->close();
  oldEntity->close();
  records_.push_back(std::move(record));
  return true;
}

bool VnFileCompareLog::Save(const wchar_t* path) const {
  std::FILE* file = std::fopen(Utf8(path).c_str(), "wb");
  if (!file) return false;
  // Lines end with a lone carriage return, as the readers of these logs expect.
  std::wstring text;
  const wchar_t* headingSeparators[] = {L",", L",", L",", L",,", L",,", L"\r"};
  for (int i = 0; i < 6; ++i) {
    text += LoadResourceString(kHeadingIds[i]);
    text += headingSeparators[i];
  }
  for (const VnFileCompareData& record : records_) {
    text += LoadResourceString(LabelOf(record.kind));
    text += L",\"\"\"" + record.handle + L"\"\"\",";
    text += record.type + L",";
    text += Corner(record.extents.minPoint()) + L",,";
    text += Corner(record.extents.maxPoint()) + L",,";
    text += record.layout + L"\r";
  }
  const std::string bytes = Utf8(text);
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}
