#include "frame/entity_helpers.h"

#include "frame/list_helpers.h"

namespace {

// The entity's list for as long as the helper looks at it.
class EntityList {
 public:
  explicit EntityList(const EntityName name) : list_(name ? qxdbEntGet(name) : nullptr) {}
  ~EntityList() { qxutRelRb(list_); }
  EntityList(const EntityList&) = delete;
  EntityList& operator=(const EntityList&) = delete;
  const ResultBuffer* get() const { return list_; }

 private:
  ResultBuffer* list_;
};

}  // namespace

int GetEntityType(const EntityName name, wchar_t* buffer, std::size_t size) {
  return GetEntityString(name, 0, buffer, size);
}

int GetEntityString(const EntityName name, int code, wchar_t* buffer, std::size_t size) {
  EntityList list(name);
  if (!list.get()) return RTERROR;
  GetGroupString(list.get(), code, buffer, size);
  return RTNORM;
}

int GetEntityPoint(const EntityName name, int code, double point[3]) {
  EntityList list(name);
  if (!list.get()) return RTERROR;
  if (const ResultBuffer* node = FindGroupCode(list.get(), code); node && point) {
    for (int axis = 0; axis < 3; ++axis) point[axis] = node->value.rpoint[axis];
  }
  return RTNORM;
}

int GetEntityInt(const EntityName name, int code, int& value) {
  EntityList list(name);
  if (!list.get()) return RTERROR;
  GetGroupInt(list.get(), code, value);
  return RTNORM;
}

int GetEntityReal(const EntityName name, int code, double& value) {
  EntityList list(name);
  if (!list.get()) return RTERROR;
  GetGroupReal(list.get(), code, value);
  return RTNORM;
}

int GetEntityLayer(const EntityName name, std::wstring& layer) {
  EntityList list(name);
  const ResultBuffer* node = FindGroupCode(list.get(), 8);
  if (!node || !node->value.rstring) return 0;
  layer = node->value.rstring;
  return 1;
}

QxDbEntity* OpenEntityForRead(const EntityName name) {
  QxDbObjectId id;
  QxDbEntity* entity = nullptr;
  if (qxdbGetObjectId(id, name) != Qxad::eOk ||
      qxdbOpenQxDbEntity(entity, id, QxDb::kForRead) != Qxad::eOk) {
    return nullptr;
  }
  return entity;
}
