// QxDbRasterImage and QxDbWipeout over IMAGE and WIPEOUT records, which share their
// groups: origin (10), the vectors of one pixel (11, 12), the size in pixels (13), the
// display options (70), the clip state (280) and the clip boundary (71, 91, 14...).
// QxDbOle2Frame over OLE2FRAME: its upper left (10) and lower right (11) corners, and
// a link's source from its data (310).
#include <algorithm>
#include <cwchar>
#include <optional>
#include <string>

#include "entity_members.h"
#include "ole_link.h"
#include "planar_box.h"
#include "qx_db_image.h"
#include "repeated_groups.h"

namespace m = korva::api::members;
using korva::geom::Vec3;

namespace {

constexpr std::string_view kImage = "AcDbRasterImage";
constexpr std::string_view kWipeout = "AcDbWipeout";
constexpr std::string_view kOle2Frame = "AcDbOle2Frame";

std::string_view partOf(const QxDbRasterImage* image) {
  return m::part(image, m::record(image).type() == "WIPEOUT" ? kWipeout : kImage);
}

struct Frame {
  Vec3 origin, pixelU, pixelV;
  double width = 0, height = 0;

  // A point in pixel coordinates (origin at the top left pixel's center, Y down).
  Vec3 atPixel(double x, double y) const {
    return origin + pixelU * (x + 0.5) + pixelV * (height - y - 0.5);
  }
};

Frame frameOf(const QxDbRasterImage* image) {
  std::string_view part = partOf(image);
  Frame frame;
  frame.origin = m::point(image, 10, part);
  frame.pixelU = m::point(image, 11, part, {1, 0, 0});
  frame.pixelV = m::point(image, 12, part, {0, 1, 0});
  Vec3 size = m::point(image, 13, part);
  frame.width = size.x;
  frame.height = size.y;
  return frame;
}

Qxad::ErrorStatus setPercent(QxDbRasterImage* image, int code, std::int8_t value) {
  if (value < 0 || value > 100) return Qxad::eOutOfRange;
  return m::setInteger(image, code, value, partOf(image));
}

}  // namespace

// ---- Raster image

const QxRxClass* QxDbRasterImage::desc() {
  static const QxRxClass record(L"QxDbRasterImage", QxDbEntity::desc(), "IMAGE");
  return &record;
}

static korva::api::ObjectClassRegistration imageClass("IMAGE", [] {
  return static_cast<QxDbObject*>(new QxDbRasterImage);
});

QxDbRasterImage::QxDbRasterImage() : QxDbRasterImage("IMAGE") {}

QxDbRasterImage::QxDbRasterImage(const char* dxfType) : QxDbEntity(dxfType) {
  std::string_view part = std::string_view(dxfType) == "WIPEOUT" ? kWipeout : kImage;
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  const double u[3] = {1, 0, 0};
  const double v[3] = {0, 1, 0};
  const double size[3] = {1, 1, 0};
  korva::api::setGroupInteger(record, 90, 0, part);
  korva::api::setGroupPoint(record, 10, origin, part);
  korva::api::setGroupPoint(record, 11, u, part);
  korva::api::setGroupPoint(record, 12, v, part);
  korva::api::setGroupPoint(record, 13, size, part, false);
  korva::api::setGroupInteger(record, 70, kShow | kShowUnAligned, part);
  korva::api::setGroupInteger(record, 280, 0, part);
  korva::api::setGroupInteger(record, 281, 50, part);
  korva::api::setGroupInteger(record, 282, 50, part);
  korva::api::setGroupInteger(record, 283, 0, part);
  korva::api::setGroupInteger(record, 71, kRect, part);
  korva::api::setGroupInteger(record, 91, 2, part);
  korva::api::replaceRepeatedPoints(record, 14, {{-0.5, -0.5, 0}, {0.5, 0.5, 0}}, false, part);
}

QxDbObjectId QxDbRasterImage::imageDefId() const {
  return m::reference(this, 340, partOf(this));
}

QxGeVector2d QxDbRasterImage::imageSize() const {
  Vec3 size = m::point(this, 13, partOf(this));
  return {size.x, size.y};
}

void QxDbRasterImage::getOrientation(QxGePoint3d& origin, QxGeVector3d& u, QxGeVector3d& v) const {
  Frame frame = frameOf(this);
  origin = m::toPoint(frame.origin);
  u = m::toVector(frame.pixelU * frame.width);
  v = m::toVector(frame.pixelV * frame.height);
}

Qxad::ErrorStatus QxDbRasterImage::setOrientation(const QxGePoint3d& origin, const QxGeVector3d& u,
                                                  const QxGeVector3d& v) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Frame frame = frameOf(this);
  if (frame.width <= 0 || frame.height <= 0 || u.isZeroLength() || v.isZeroLength())
    return Qxad::eInvalidInput;
  std::string_view part = partOf(this);
  m::setPoint(this, 10, m::fromPoint(origin), part);
  m::setPoint(this, 11, m::fromVector(u) * (1 / frame.width), part);
  return m::setPoint(this, 12, m::fromVector(v) * (1 / frame.height), part);
}

bool QxDbRasterImage::isSetDisplayOpt(ImageDisplayOpt option) const {
  return (m::integer(this, 70, kShow | kShowUnAligned, partOf(this)) & option) != 0;
}

Qxad::ErrorStatus QxDbRasterImage::setDisplayOpt(ImageDisplayOpt option, bool value) {
  return m::setFlag(this, 70, option, value, partOf(this));
}

std::int8_t QxDbRasterImage::brightness() const {
  return static_cast<std::int8_t>(m::integer(this, 281, 50, partOf(this)));
}
Qxad::ErrorStatus QxDbRasterImage::setBrightness(std::int8_t value) {
  return setPercent(this, 281, value);
}
std::int8_t QxDbRasterImage::contrast() const {
  return static_cast<std::int8_t>(m::integer(this, 282, 50, partOf(this)));
}
Qxad::ErrorStatus QxDbRasterImage::setContrast(std::int8_t value) {
  return setPercent(this, 282, value);
}
std::int8_t QxDbRasterImage::fade() const {
  return static_cast<std::int8_t>(m::integer(this, 283, 0, partOf(this)));
}
Qxad::ErrorStatus QxDbRasterImage::setFade(std::int8_t value) {
  return setPercent(this, 283, value);
}

// ---- Clipping

bool QxDbRasterImage::isClipped() const {
  return m::integer(this, 280, 0, partOf(this)) != 0;
}

Qxad::ErrorStatus QxDbRasterImage::setClipped(bool clipped) {
  Qxad::ErrorStatus status = m::setInteger(this, 280, clipped ? 1 : 0, partOf(this));
  return status == Qxad::eOk ? setDisplayOpt(kClip, clipped) : status;
}

QxDbRasterImage::ClipBoundaryType QxDbRasterImage::clipBoundaryType() const {
  long long type = m::integer(this, 71, kInvalid, partOf(this));
  return type == kRect || type == kPoly ? static_cast<ClipBoundaryType>(type) : kInvalid;
}

QxGePoint2dArray QxDbRasterImage::clipBoundary() const {
  std::string_view part = partOf(this);
  QxGePoint2dArray points;
  int count = korva::api::countGroups(m::record(this), 14, part);
  for (int i = 0; i < count; ++i) {
    Vec3 p = m::point(this, 14, part, {}, i);
    points.append(QxGePoint2d(p.x, p.y));
  }
  return points;
}

Qxad::ErrorStatus QxDbRasterImage::setClipBoundary(ClipBoundaryType type,
                                                   const QxGePoint2dArray& points) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::vector<Vec3> corners;
  for (int i = 0; i < points.length(); ++i) corners.push_back({points[i].x, points[i].y, 0});
  if (type == kPoly && corners.size() > 3 && points[0].isEqualTo(points[points.length() - 1])) {
    corners.pop_back();
  }
  if ((type == kRect && corners.size() != 2) || (type == kPoly && corners.size() < 3) ||
      type == kInvalid) {
    return Qxad::eInvalidInput;
  }
  std::string_view part = partOf(this);
  m::setInteger(this, 71, type, part);
  m::setInteger(this, 91, static_cast<long long>(corners.size()), part);
  korva::api::replaceRepeatedPoints(m::record(this), 14, corners, false, part);
  return setClipped(true);
}

Qxad::ErrorStatus QxDbRasterImage::getVertices(QxGePoint3dArray& vertices) const {
  vertices.removeAll();
  Frame frame = frameOf(this);
  std::vector<QxGePoint2d> corners;
  QxGePoint2dArray boundary = clipBoundary();
  if (isClipped() && clipBoundaryType() == kRect && boundary.length() == 2) {
    // Counterclockwise from the bottom left, as the frame; pixel rows count downwards.
    double left = std::min(boundary[0].x, boundary[1].x);
    double right = std::max(boundary[0].x, boundary[1].x);
    double top = std::min(boundary[0].y, boundary[1].y);
    double bottom = std::max(boundary[0].y, boundary[1].y);
    corners = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
  } else if (isClipped() && boundary.length() >= 3) {
    for (int i = 0; i < boundary.length(); ++i) corners.push_back(boundary[i]);
    if (corners.front().isEqualTo(corners.back())) corners.pop_back();
  } else {
    // The whole frame, from the outer corners of the corner pixels.
    double right = frame.width - 0.5, bottom = frame.height - 0.5;
    corners = {{-0.5, bottom}, {right, bottom}, {right, -0.5}, {-0.5, -0.5}};
  }
  for (const QxGePoint2d& corner : corners)
    vertices.append(m::toPoint(frame.atPixel(corner.x, corner.y)));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbRasterImage::getGeomExtents(QxDbExtents& extents) const {
  QxGePoint3dArray vertices;
  getVertices(vertices);
  korva::geom::SpaceBox box;
  for (int i = 0; i < vertices.length(); ++i) box.add(m::fromPoint(vertices[i]));
  return korva::api::extentsOfBox(box, extents);
}

// ---- Wipeout

const QxRxClass* QxDbWipeout::desc() {
  static const QxRxClass record(L"QxDbWipeout", QxDbRasterImage::desc(), "WIPEOUT");
  return &record;
}

static korva::api::ObjectClassRegistration wipeoutClass("WIPEOUT", [] {
  return static_cast<QxDbObject*>(new QxDbWipeout);
});

QxDbWipeout::QxDbWipeout() : QxDbRasterImage("WIPEOUT") {}

// ---- OLE frame

const QxRxClass* QxDbOle2Frame::desc() {
  static const QxRxClass record(L"QxDbOle2Frame", QxDbEntity::desc(), "OLE2FRAME");
  return &record;
}

static korva::api::ObjectClassRegistration ole2FrameClass("OLE2FRAME", [] {
  return static_cast<QxDbObject*>(new QxDbOle2Frame);
});

QxDbOle2Frame::QxDbOle2Frame() : QxDbEntity("OLE2FRAME") {
  korva::db::Record& record = m::record(this);
  const double origin[3] = {0, 0, 0};
  korva::api::setGroupInteger(record, 70, 2, kOle2Frame);
  korva::api::setGroupPoint(record, 10, origin, kOle2Frame);
  korva::api::setGroupPoint(record, 11, origin, kOle2Frame);
  korva::api::setGroupInteger(record, 71, kEmbedded, kOle2Frame);
  korva::api::setGroupInteger(record, 72, 0, kOle2Frame);
  korva::api::setGroupInteger(record, 90, 0, kOle2Frame);
}

QxDbOle2Frame::Type QxDbOle2Frame::getType() const {
  long long type = m::integer(this, 71, kUnknown, kOle2Frame);
  return type >= kLink && type <= kStatic ? static_cast<Type>(type) : kUnknown;
}

void QxDbOle2Frame::getLocation(QxGePoint3d corners[4]) const {
  Vec3 upperLeft = m::point(this, 10, kOle2Frame);
  Vec3 lowerRight = m::point(this, 11, kOle2Frame);
  corners[0] = m::toPoint(upperLeft);
  corners[1] = QxGePoint3d(lowerRight.x, upperLeft.y, upperLeft.z);
  corners[2] = m::toPoint(lowerRight);
  corners[3] = QxGePoint3d(upperLeft.x, lowerRight.y, lowerRight.z);
}

namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// The source of a linked frame, read from its data chunks joined.
std::optional<korva::api::OleLinkSource> linkSourceOf(const QxDbOle2Frame* frame) {
  if (frame->getType() != QxDbOle2Frame::kLink) return std::nullopt;
  std::string data;
  for (const korva::db::Group& group : m::record(frame).groups()) {
    if (group.code != 310) continue;
    for (std::size_t i = 0; i + 1 < group.value.size(); i += 2) {
      const int high = hexDigit(group.value[i]);
      const int low = hexDigit(group.value[i + 1]);
      if (high < 0 || low < 0) return std::nullopt;
      data += static_cast<char>(high << 4 | low);
    }
  }
  return korva::api::oleLinkSourceOf(data);
}

bool copyInto(const std::wstring& text, wchar_t* buffer, int size) {
  if (!buffer || size <= 0) return false;
  const std::size_t count = std::min(text.size(), static_cast<std::size_t>(size - 1));
  std::wmemcpy(buffer, text.data(), count);
  buffer[count] = L'\0';
  return true;
}

}  // namespace

bool QxDbOle2Frame::getLinkName(wchar_t* name, int size) const {
  const auto source = linkSourceOf(this);
  return source && copyInto(source->displayName, name, size);
}

bool QxDbOle2Frame::getLinkPath(wchar_t* path, int size) const {
  const auto source = linkSourceOf(this);
  return source && copyInto(source->path, path, size);
}

Qxad::ErrorStatus QxDbOle2Frame::getGeomExtents(QxDbExtents& extents) const {
  QxGePoint3d corners[4];
  getLocation(corners);
  korva::geom::SpaceBox box;
  for (const QxGePoint3d& corner : corners) box.add(m::fromPoint(corner));
  return korva::api::extentsOfBox(box, extents);
}
