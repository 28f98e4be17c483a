// Raster images, wipeouts and OLE frames: placement, display settings and clipping,
// through both layers.
#include "linked_ole_data.h"
#include "more_fixture.h"
#include "qx_db_image.h"

namespace korva::test {
namespace {

class ImageTest : public MoreEntitiesTest {
 protected:
  // 640 by 480 pixels of 0.01 from (1, 2), clipped to its whole frame.
  QxDbObjectId addImage(std::string_view type = "IMAGE",
                        std::string_view subclass = "AcDbRasterImage") {
    return add(
        type, groups("100 " + std::string(subclass) +
                     "|90 0|10 1|20 2|30 0|11 0.01|21 0|31 0|12 0|22 0.01|32 0|13 640|23 480|"
                     "70 7|280 1|281 60|282 45|283 5|71 1|91 2|14 -0.5|24 -0.5|14 639.5|24 479.5"));
  }
};

void expectVertices(const QxGePoint3dArray& vertices, std::vector<QxGePoint3d> expected) {
  ASSERT_EQ(vertices.length(), static_cast<int>(expected.size()));
  for (int i = 0; i < vertices.length(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_POINT_NEAR(vertices[i], expected[i].x, expected[i].y, expected[i].z, 1e-12);
  }
}

TEST_F(ImageTest, PlacementAndDisplaySettings) {
  QxDbObjectId id = addImage();
  QxDbRasterImage* image = open<QxDbRasterImage>(id, QxDb::kForWrite);
  ASSERT_TRUE(image);
  EXPECT_TRUE(image->imageSize().isEqualTo(QxGeVector2d(640, 480)));
  QxGePoint3d origin;
  QxGeVector3d u, v;
  image->getOrientation(origin, u, v);
  EXPECT_POINT_NEAR(origin, 1, 2, 0, 0);
  EXPECT_TRUE(u.isEqualTo(QxGeVector3d(6.4, 0, 0)));
  EXPECT_TRUE(v.isEqualTo(QxGeVector3d(0, 4.8, 0)));
  EXPECT_TRUE(image->isSetDisplayOpt(QxDbRasterImage::kShow));
  EXPECT_TRUE(image->isSetDisplayOpt(QxDbRasterImage::kClip));
  EXPECT_FALSE(image->isSetDisplayOpt(QxDbRasterImage::kTransparent));
  EXPECT_EQ(image->brightness(), 60);
  EXPECT_EQ(image->contrast(), 45);
  EXPECT_EQ(image->fade(), 5);

  EXPECT_EQ(image->setBrightness(80), Qxad::eOk);
  EXPECT_EQ(image->setContrast(101), Qxad::eOutOfRange);
  EXPECT_EQ(image->setDisplayOpt(QxDbRasterImage::kTransparent, true), Qxad::eOk);
  // Turned by a quarter and twice the size: the vectors of one pixel follow.
  EXPECT_EQ(image->setOrientation(QxGePoint3d(0, 0, 1), QxGeVector3d(0, 12.8, 0),
                                  QxGeVector3d(-9.6, 0, 0)),
            Qxad::eOk);
  image->close();

  EXPECT_EQ(listInteger(id, 281), 80);
  EXPECT_EQ(listInteger(id, 282), 45);
  EXPECT_EQ(listInteger(id, 70), 15);
  EXPECT_POINT_NEAR(listPoint(id, 11).value_or(QxGePoint3d()), 0, 0.02, 0, 1e-15);
  EXPECT_POINT_NEAR(listPoint(id, 12).value_or(QxGePoint3d()), -0.02, 0, 0, 1e-15);

  modifyInteger(id, 283, 30);
  modifyPoint(id, 13, QxGePoint3d(100, 50, 0));
  image = open<QxDbRasterImage>(id);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->fade(), 30);
  EXPECT_TRUE(image->imageSize().isEqualTo(QxGeVector2d(100, 50)));
  EXPECT_EQ(image->setFade(1), Qxad::eNotOpenForWrite);
  image->close();
}

TEST_F(ImageTest, ClipBoundaryInPixelsAndWorld) {
  QxDbObjectId id = addImage();
  QxDbRasterImage* image = open<QxDbRasterImage>(id, QxDb::kForWrite);
  ASSERT_TRUE(image);
  EXPECT_TRUE(image->isClipped());
  EXPECT_EQ(image->clipBoundaryType(), QxDbRasterImage::kRect);
  QxGePoint2dArray boundary = image->clipBoundary();
  ASSERT_EQ(boundary.length(), 2);
  EXPECT_TRUE(boundary[1].isEqualTo(QxGePoint2d(639.5, 479.5)));
  // Clipped to the whole frame: the four corners, counterclockwise from the origin.
  QxGePoint3dArray vertices;
  ASSERT_EQ(image->getVertices(vertices), Qxad::eOk);
  expectVertices(vertices, {{1, 2, 0}, {7.4, 2, 0}, {7.4, 6.8, 0}, {1, 6.8, 0}});

  // Pixel rows count from the top: the triangle's first corner is near the top left.
  QxGePoint2dArray triangle;
  triangle.append(QxGePoint2d(-0.5, -0.5));
  triangle.append(QxGePoint2d(99.5, -0.5));
  triangle.append(QxGePoint2d(-0.5, 99.5));
  triangle.append(QxGePoint2d(-0.5, -0.5));
  ASSERT_EQ(image->setClipBoundary(QxDbRasterImage::kPoly, triangle), Qxad::eOk);
  ASSERT_EQ(image->getVertices(vertices), Qxad::eOk);
  expectVertices(vertices, {{1, 6.8, 0}, {2, 6.8, 0}, {1, 5.8, 0}});
  QxDbExtents extents;
  ASSERT_EQ(image->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 1, 5.8, 0, 1e-12);
  EXPECT_POINT_NEAR(extents.maxPoint(), 2, 6.8, 0, 1e-12);
  EXPECT_EQ(image->setClipBoundary(QxDbRasterImage::kRect, triangle), Qxad::eInvalidInput);
  image->close();

  EXPECT_EQ(listInteger(id, 71), QxDbRasterImage::kPoly);
  EXPECT_EQ(listInteger(id, 91), 3);
  EXPECT_POINT_NEAR(listPoint(id, 14, 1).value_or(QxGePoint3d()), 99.5, -0.5, 0, 0);
  EXPECT_FALSE(listPoint(id, 14, 3));

  // Unclipped through the flat layer: what shows is the whole frame again.
  modifyInteger(id, 280, 0);
  image = open<QxDbRasterImage>(id);
  ASSERT_TRUE(image);
  EXPECT_FALSE(image->isClipped());
  ASSERT_EQ(image->getVertices(vertices), Qxad::eOk);
  expectVertices(vertices, {{1, 2, 0}, {7.4, 2, 0}, {7.4, 6.8, 0}, {1, 6.8, 0}});
  image->close();
}

TEST_F(ImageTest, WipeoutDisplayOptionsThroughTheImageClass) {
  // What masking a text does to the wipeout it made: off go options 8 and 1.
  QxDbObjectId id = addImage("WIPEOUT", "AcDbWipeout");
  QxDbEntity* entity = nullptr;
  ASSERT_EQ(qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite), Qxad::eOk);
  QxDbRasterImage* image = QxDbWipeout::cast(entity);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->setDisplayOpt(QxDbRasterImage::kTransparent, true), Qxad::eOk);
  EXPECT_EQ(image->setDisplayOpt(QxDbRasterImage::kTransparent, false), Qxad::eOk);
  EXPECT_EQ(image->setDisplayOpt(QxDbRasterImage::kShow, false), Qxad::eOk);
  EXPECT_EQ(image->brightness(), 60);
  image->close();
  EXPECT_EQ(listInteger(id, 70), 6);
}

TEST_F(ImageTest, OleFrameCornersAndType) {
  QxDbObjectId id = add("OLE2FRAME", groups("100 AcDbOle2Frame|70 2|3 Paintbrush Picture|10 1|20 "
                                            "9|30 0|11 6|21 2|31 0|71 2|72 0|90 0"));
  QxDbOle2Frame* frame = open<QxDbOle2Frame>(id);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->getType(), QxDbOle2Frame::kEmbedded);
  QxGePoint3d corners[4];
  frame->getLocation(corners);
  EXPECT_POINT_NEAR(corners[0], 1, 9, 0, 0);
  EXPECT_POINT_NEAR(corners[1], 6, 9, 0, 0);
  EXPECT_POINT_NEAR(corners[2], 6, 2, 0, 0);
  EXPECT_POINT_NEAR(corners[3], 1, 2, 0, 0);
  QxDbExtents extents;
  ASSERT_EQ(frame->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 1, 2, 0, 0);
  EXPECT_POINT_NEAR(extents.maxPoint(), 6, 9, 0, 0);
  frame->close();
}

TEST_F(ImageTest, LinkedFrameNamesItsSourceAndOthersDont) {
  const std::string data =
      linkedOleData("C:\\plans\\R?ume.xls", u"C:\\plans\\R\u00e4ume.xls", "Sheet1!R1C1:R9C4");
  QxDbOle2Frame* frame = open<QxDbOle2Frame>(add("OLE2FRAME", oleFrameGroups(1, data)));
  ASSERT_TRUE(frame);
  wchar_t text[1024] = {};
  ASSERT_TRUE(frame->getLinkName(text, 1024));
  EXPECT_STREQ(text, L"C:\\plans\\R\u00e4ume.xls!Sheet1!R1C1:R9C4");
  ASSERT_TRUE(frame->getLinkPath(text, 1024));
  EXPECT_STREQ(text, L"C:\\plans\\R\u00e4ume.xls");
  ASSERT_TRUE(frame->getLinkPath(text, 3));  // cut to the buffer
  EXPECT_STREQ(text, L"C:");
  frame->close();

  // Only 8-bit text in the file moniker; an item long enough to span mini sectors.
  const std::string item(150, 'A');
  frame = open<QxDbOle2Frame>(
      add("OLE2FRAME", oleFrameGroups(1, linkedOleData("D:\\a.doc", u"", item))));
  ASSERT_TRUE(frame);
  ASSERT_TRUE(frame->getLinkName(text, 1024));
  EXPECT_EQ(std::wstring(text), L"D:\\a.doc!" + std::wstring(item.begin(), item.end()));
  frame->close();

  // An embedded frame over the same data, and a link whose data is cut short.
  frame = open<QxDbOle2Frame>(add("OLE2FRAME", oleFrameGroups(2, data)));
  ASSERT_TRUE(frame);
  EXPECT_FALSE(frame->getLinkName(text, 1024));
  frame->close();
  frame = open<QxDbOle2Frame>(add("OLE2FRAME", oleFrameGroups(1, data.substr(0, 700))));
  ASSERT_TRUE(frame);
  EXPECT_FALSE(frame->getLinkPath(text, 1024));
  frame->close();
}

}  // namespace
}  // namespace korva::test
