// Images placed in a drawing: raster images, wipeouts (an image that hides what lies
// under its boundary) and OLE frames.
#pragma once

#include <cstdint>

#include "qx_db_entity.h"
#include "qx_db_extents.h"
#include "qx_ge.h"
#include "qx_ge_arrays.h"

// The image spans from its origin along u for its width and along v for its height.
// Clip boundaries are in pixel coordinates with (-0.5, -0.5) at the image's top left
// corner and (width - 0.5, height - 0.5) at its bottom right.
class QxDbRasterImage : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbRasterImage)
  QxDbRasterImage();

  enum ImageDisplayOpt : int { kShow = 1, kShowUnAligned = 2, kClip = 4, kTransparent = 8 };
  enum ClipBoundaryType : int { kInvalid = 0, kRect = 1, kPoly = 2 };

  QxDbObjectId imageDefId() const;
  // Width and height in pixels.
  QxGeVector2d imageSize() const;
  // The origin (the outer corner of the bottom left pixel) and the vectors along the
  // whole width and the whole height, in world coordinates.
  void getOrientation(QxGePoint3d& origin, QxGeVector3d& u, QxGeVector3d& v) const;
  Qxad::ErrorStatus setOrientation(const QxGePoint3d& origin, const QxGeVector3d& u,
                                   const QxGeVector3d& v);

  bool isSetDisplayOpt(ImageDisplayOpt option) const;
  virtual Qxad::ErrorStatus setDisplayOpt(ImageDisplayOpt option, bool value);

  // 0 to 100; 50, 50 and 0 when the record gives none.
  std::int8_t brightness() const;
  Qxad::ErrorStatus setBrightness(std::int8_t value);
  std::int8_t contrast() const;
  Qxad::ErrorStatus setContrast(std::int8_t value);
  std::int8_t fade() const;
  Qxad::ErrorStatus setFade(std::int8_t value);

  bool isClipped() const;
  // Turns clipping on or off (the clip state and the display option kClip together).
  Qxad::ErrorStatus setClipped(bool clipped);
  ClipBoundaryType clipBoundaryType() const;
  // As stored: two opposite corners for a rectangle, the corners of a polygon.
  QxGePoint2dArray clipBoundary() const;
  // A rectangle from two corners or a polygon from three points or more (a closing
  // repeat of the first is taken off); turns clipping on.
  Qxad::ErrorStatus setClipBoundary(ClipBoundaryType type, const QxGePoint2dArray& points);
  // The corners of what shows, in world coordinates: the clip boundary when clipped (a
  // rectangle as its four corners), the whole frame otherwise. Not closed: the last
  // corner joins the first.
  Qxad::ErrorStatus getVertices(QxGePoint3dArray& vertices) const;

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;

 protected:
  explicit QxDbRasterImage(const char* dxfType);
};

class QxDbWipeout : public QxDbRasterImage {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbWipeout)
  QxDbWipeout();
};

// An embedded or linked object of another program, shown in a rectangular frame.
class QxDbOle2Frame : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbOle2Frame)
  QxDbOle2Frame();

  enum Type : int { kUnknown = 0, kLink = 1, kEmbedded = 2, kStatic = 3 };
  Type getType() const;
  // The frame's corners in world coordinates: upper left, upper right, lower right,
  // lower left.
  void getLocation(QxGePoint3d corners[4]) const;
  // A linked frame's source: the whole name (the file and the items in it) and the file
  // alone, cut to fit the buffer of `size` characters. False when the frame is no link
  // or its data doesn't say.
  bool getLinkName(wchar_t* name, int size) const;
  bool getLinkPath(wchar_t* path, int size) const;

  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
};
