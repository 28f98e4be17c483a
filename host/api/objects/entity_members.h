// Members of entity classes over their record's groups: points, reals, flags and
// texts of one subclass part, with the write check and the change mark of a setter.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "geom/vec.h"
#include "object_groups.h"
#include "object_state.h"
#include "qx_db_core.h"

class QxGePoint3d;
class QxGeVector3d;
class QxGePoint2d;
class QxGeVector2d;

namespace korva::api::members {

using geom::Vec3;

inline db::Record& record(const QxDbObject* object) {
  return recordOf(*object);
}
// The subclass to read and write: empty for records without subclass markers.
std::string_view part(const QxDbObject* object, std::string_view subclass);

Vec3 point(const QxDbObject* object, int code, std::string_view subclass = {}, Vec3 fallback = {},
           int occurrence = 0);
double real(const QxDbObject* object, int code, double fallback, std::string_view subclass = {},
            int occurrence = 0);
long long integer(const QxDbObject* object, int code, long long fallback,
                  std::string_view subclass = {}, int occurrence = 0);
std::optional<std::string_view> text(const QxDbObject* object, int code,
                                     std::string_view subclass = {}, int occurrence = 0);
// A text group as a wide string of the caller's (qxad_free), empty when missing.
wchar_t* newWide(const QxDbObject* object, int code, std::string_view subclass = {});
std::wstring wide(const QxDbObject* object, std::string_view drawingText);
std::string drawing(const QxDbObject* object, const wchar_t* wideText);
// The extrusion direction (210), +Z when missing.
Vec3 normal(const QxDbObject* object, std::string_view subclass = {});

// The setters: each checks that the object is open for write, writes and marks the
// database changed; the status to return.
Qxad::ErrorStatus setPoint(QxDbObject* object, int code, Vec3 value,
                           std::string_view subclass = {});
Qxad::ErrorStatus setReal(QxDbObject* object, int code, double value,
                          std::string_view subclass = {});
Qxad::ErrorStatus setInteger(QxDbObject* object, int code, long long value,
                             std::string_view subclass = {});
Qxad::ErrorStatus setText(QxDbObject* object, int code, std::string_view value,
                          std::string_view subclass = {});
// Sets or clears bits of an integer group.
Qxad::ErrorStatus setFlag(QxDbObject* object, int code, long long bit, bool on,
                          std::string_view subclass = {});
void changed(QxDbObject* object);

// An object reference group (330-369, 340 ...) as an id of the object's database.
QxDbObjectId reference(const QxDbObject* object, int code, std::string_view subclass = {},
                       int occurrence = 0);
// A table entry named by a group ("Standard" style, "STANDARD" dimension style, ...).
QxDbObjectId tableEntryId(const QxDbObject* object, std::string_view table, int code,
                          std::string_view subclass, std::string_view fallback);
// The name of a table entry by id, when it lives in the object's database.
std::optional<std::string> tableEntryName(const QxDbObject* object, QxDbObjectId id);

// Between the geometry types of the interface and the geometry code.
QxGePoint3d toPoint(Vec3 v);
QxGeVector3d toVector(Vec3 v);
Vec3 fromPoint(const QxGePoint3d& p);
Vec3 fromVector(const QxGeVector3d& v);

}  // namespace korva::api::members
