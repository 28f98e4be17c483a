// An object of the drawing opened for the length of a scope and closed on every path.
#pragma once

#include "qx_db_core.h"

namespace korva::cmd::blocks {

template <typename Object>
class OpenObject {
 public:
  OpenObject(QxDbObjectId id, int mode) {
    QxDbObject* object = nullptr;
    status_ = qxdbOpenQxDbObject(object, id, mode);
    if (status_ != Qxad::eOk) return;
    object_ = Object::cast(object);
    if (!object_) {
      object->close();
      status_ = Qxad::eWrongObjectType;
    }
  }
  // Takes an object already open (from a table's getAt); null is allowed.
  explicit OpenObject(Object* object) : object_(object) {
    if (!object) status_ = Qxad::eNullObjectId;
  }
  ~OpenObject() { close(); }
  OpenObject(const OpenObject&) = delete;
  OpenObject& operator=(const OpenObject&) = delete;

  void close() {
    if (object_) object_->close();
    object_ = nullptr;
  }
  explicit operator bool() const { return object_ != nullptr; }
  Object* operator->() const { return object_; }
  Object* get() const { return object_; }
  Qxad::ErrorStatus status() const { return status_; }

 private:
  Object* object_ = nullptr;
  Qxad::ErrorStatus status_ = Qxad::eOk;
};

}  // namespace korva::cmd::blocks
