// An entity opened by name for one function's use, closed on every path.
#pragma once

#include "qx_db_entity.h"
#include "qx_types.h"

namespace korva::cmd::edit {

class Opened {
 public:
  // Nothing is open when the name finds no entity or the opening is refused.
  Opened(const EntityName name, int mode) {
    QxDbObjectId id;
    if (qxdbGetObjectId(id, name) == Qxad::eOk) qxdbOpenQxDbEntity(entity_, id, mode);
  }
  ~Opened() {
    if (entity_) entity_->close();
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  QxDbEntity* get() const { return entity_; }
  template <typename T>
  T* as() const {
    return T::cast(entity_);
  }

 private:
  QxDbEntity* entity_ = nullptr;
};

}  // namespace korva::cmd::edit
