// Viewports: a window on model space placed in a paper-space layout.
#include <algorithm>
#include <cmath>

#include "db/value_text.h"
#include "object_access.h"
#include "qx_db_viewport.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::OwnedGroup;
using korva::db::Record;

namespace {

constexpr std::string_view kViewportPart = "AcDbViewport";
constexpr long long kNonRectangularClip = 0x10000;
constexpr long long kViewportOff = 0x20000;

Record& recordOf(const QxDbViewport* viewport) {
  return korva::api::recordOf(*viewport);
}

double realOf(const QxDbViewport* viewport, int code, double fallback) {
  return korva::api::groupReal(recordOf(viewport), code, fallback, kViewportPart);
}

QxGePoint3d pointOf(const QxDbViewport* viewport, int code) {
  double point[3];
  korva::api::groupPoint(recordOf(viewport), code, point, kViewportPart);
  return {point[0], point[1], point[2]};
}

long long statusFlags(const QxDbViewport* viewport) {
  return korva::api::groupInteger(recordOf(viewport), 90, 0, kViewportPart);
}

Qxad::ErrorStatus setOnOff(QxDbViewport* viewport, bool on) {
  if (Qxad::ErrorStatus status = viewport->assertWriteEnabled(); status != Qxad::eOk) return status;
  Record& record = recordOf(viewport);
  long long flags = statusFlags(viewport);
  korva::api::setGroupInteger(record, 90, on ? (flags & ~kViewportOff) : (flags | kViewportOff),
                              kViewportPart);
  long long stacking = korva::api::groupInteger(record, 68, 1, kViewportPart);
  if (on && stacking == 0) korva::api::setGroupInteger(record, 68, 1, kViewportPart);
  if (!on) korva::api::setGroupInteger(record, 68, 0, kViewportPart);
  korva::api::noteChanged(*viewport);
  return Qxad::eOk;
}

// The layer handles of the ids, which must be layers of the viewport's database.
std::optional<std::vector<korva::db::Handle>> layerHandles(const QxDbViewport* viewport,
                                                           const QxDbObjectIdArray& ids) {
  Database* database = korva::api::databaseOf(*viewport);
  std::vector<korva::db::Handle> handles;
  for (int i = 0; i < ids.length(); ++i) {
    Database* owner = nullptr;
    Record* layer = korva::api::recordOf(ids[i], &owner);
    if (!layer || layer->type() != "LAYER" || (database && owner != database)) return std::nullopt;
    handles.push_back(layer->handle());
  }
  return handles;
}

std::vector<korva::db::Handle> frozenLayers(const QxDbViewport* viewport) {
  std::vector<korva::db::Handle> handles;
  for (int i = 0;; ++i) {
    std::optional<std::string_view> text =
        korva::api::groupText(recordOf(viewport), 331, kViewportPart, i);
    if (!text) break;
    if (std::optional<korva::db::Handle> handle = korva::db::parseHandle(*text))
      handles.push_back(*handle);
  }
  return handles;
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbViewport, QxDbEntity)
static korva::api::ObjectClassRegistration viewportClass("VIEWPORT", [] {
  return static_cast<QxDbObject*>(new QxDbViewport);
});

QxDbViewport::QxDbViewport() : QxDbEntity("VIEWPORT") {
  Record& record = recordOf(this);
  std::vector<OwnedGroup> groups = record.ownedGroups();
  const std::vector<OwnedGroup> viewport = {{100, std::string(kViewportPart)},
                                            {10, "0.0"},
                                            {20, "0.0"},
                                            {30, "0.0"},
                                            {40, "1.0"},
                                            {41, "1.0"},
                                            {68, "1"},
                                            {69, "2"},
                                            {12, "0.0"},
                                            {22, "0.0"},
                                            {16, "0.0"},
                                            {26, "0.0"},
                                            {36, "1.0"},
                                            {17, "0.0"},
                                            {27, "0.0"},
                                            {37, "0.0"},
                                            {42, "50.0"},
                                            {43, "0.0"},
                                            {44, "0.0"},
                                            {45, "1.0"},
                                            {51, "0.0"},
                                            {72, "1000"},
                                            {90, "32864"}};
  groups.insert(groups.end(), viewport.begin(), viewport.end());
  record.assign(std::move(groups));
}

int QxDbViewport::number() const {
  return static_cast<int>(korva::api::groupInteger(recordOf(this), 69, 0, kViewportPart));
}

bool QxDbViewport::isOn() const {
  return korva::api::groupInteger(recordOf(this), 68, 1, kViewportPart) != 0 &&
         (statusFlags(this) & kViewportOff) == 0;
}
Qxad::ErrorStatus QxDbViewport::setOn() {
  return setOnOff(this, true);
}
Qxad::ErrorStatus QxDbViewport::setOff() {
  return setOnOff(this, false);
}

QxGePoint3d QxDbViewport::centerPoint() const {
  return pointOf(this, 10);
}

Qxad::ErrorStatus QxDbViewport::setCenterPoint(const QxGePoint3d& center) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  const double point[3] = {center.x, center.y, center.z};
  korva::api::setGroupPoint(recordOf(this), 10, point, kViewportPart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

double QxDbViewport::width() const {
  return realOf(this, 40, 0.0);
}
double QxDbViewport::height() const {
  return realOf(this, 41, 0.0);
}

QxGePoint2d QxDbViewport::viewCenter() const {
  QxGePoint3d center = pointOf(this, 12);
  return {center.x, center.y};
}

QxGeVector3d QxDbViewport::viewDirection() const {
  QxGePoint3d direction = pointOf(this, 16);
  return {direction.x, direction.y, direction.z};
}

QxGePoint3d QxDbViewport::viewTarget() const {
  return pointOf(this, 17);
}
double QxDbViewport::viewHeight() const {
  return realOf(this, 45, 0.0);
}
double QxDbViewport::twistAngle() const {
  return realOf(this, 51, 0.0);
}

double QxDbViewport::customScale() const {
  double viewHeight = this->viewHeight();
  return viewHeight > 0 ? height() / viewHeight : 1.0;
}

Qxad::ErrorStatus QxDbViewport::setCustomScale(double scale) {
  if (!(scale > 0)) return Qxad::eOutOfRange;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  // The view's height follows; the viewport keeps its size on paper.
  korva::api::setGroupReal(recordOf(this), 45, height() / scale, kViewportPart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbViewport::freezeLayersInViewport(const QxDbObjectIdArray& layerIds) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::optional<std::vector<korva::db::Handle>> handles = layerHandles(this, layerIds);
  if (!handles) return Qxad::eInvalidInput;
  std::vector<korva::db::Handle> frozen = frozenLayers(this);
  std::vector<OwnedGroup> groups = recordOf(this).ownedGroups();
  // Each new 331 goes after the last one, or at the end of the viewport's part.
  for (korva::db::Handle handle : *handles) {
    if (std::find(frozen.begin(), frozen.end(), handle) != frozen.end()) continue;
    frozen.push_back(handle);
    auto part = std::find_if(groups.begin(), groups.end(), [](const OwnedGroup& group) {
      return group.code == 100 && group.value == kViewportPart;
    });
    auto end = part == groups.end() ? groups.end() : part + 1;
    while (end != groups.end() && end->code != 100 && end->code != 1001 && end->code != 102) ++end;
    groups.insert(end, {331, korva::db::formatHandle(handle)});
  }
  recordOf(this).assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbViewport::thawLayersInViewport(const QxDbObjectIdArray& layerIds) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::optional<std::vector<korva::db::Handle>> handles = layerHandles(this, layerIds);
  if (!handles) return Qxad::eInvalidInput;
  std::vector<OwnedGroup> groups = recordOf(this).ownedGroups();
  std::erase_if(groups, [&](const OwnedGroup& group) {
    if (group.code != 331) return false;
    std::optional<korva::db::Handle> handle = korva::db::parseHandle(group.value);
    return handle && std::find(handles->begin(), handles->end(), *handle) != handles->end();
  });
  recordOf(this).assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbViewport::isLayerFrozenInViewport(QxDbObjectId layerId) const {
  std::vector<korva::db::Handle> frozen = frozenLayers(this);
  return std::find(frozen.begin(), frozen.end(), layerId.handle().value()) != frozen.end();
}

bool QxDbViewport::isNonRectClipOn() const {
  return (statusFlags(this) & kNonRectangularClip) != 0;
}

QxDbObjectId QxDbViewport::nonRectClipEntityId() const {
  Database* database = korva::api::databaseOf(*this);
  std::optional<korva::db::Handle> handle = korva::db::parseHandle(
      korva::api::groupText(recordOf(this), 340, kViewportPart).value_or("0"));
  if (!database || !handle || *handle == korva::db::kNoHandle) return QxDbObjectId::kNull;
  return QxDbObjectId::fromParts(database->serial(), *handle);
}

Qxad::ErrorStatus QxDbViewport::getGeomExtents(QxDbExtents& extents) const {
  QxGePoint3d center = centerPoint();
  QxGeVector3d half(std::fabs(width()) / 2, std::fabs(height()) / 2, 0);
  return extents.set(center - half, center + half);
}
