#include <cmath>
#include <cstring>

#include "entities_fixture.h"
#include "qx_db_text.h"
#include "qx_entities.h"
#include "qx_ge.h"
#include "qx_memory.h"
#include "qx_text_box.h"

namespace korva::test {
namespace {

class TextTest : public EntitiesTest {
 protected:
  QxDbObjectId addText(const char* text, int horizontal = 0, int vertical = 0) {
    return add("TEXT", {{100, "AcDbEntity"},
                        {8, "0"},
                        {100, "AcDbText"},
                        {10, "3"},
                        {20, "4"},
                        {30, "0"},
                        {40, "2"},
                        {1, text},
                        {50, "30"},
                        {72, std::to_string(horizontal)},
                        {11, "3"},
                        {21, "4"},
                        {31, "0"},
                        {100, "AcDbText"},
                        {73, std::to_string(vertical)}});
  }
  // The corners of the text's box in world coordinates, from the flat layer.
  std::array<double, 4> worldBox(QxDbObjectId id) {
    EntityName name;
    qxdbGetHysName(name, id);
    ResultBuffer* list = qxdbEntGet(name);
    double low[3], high[3];
    EXPECT_EQ(qxedTextBox(list, low, high), RTNORM);
    qxutRelRb(list);
    QxDbObject* object = nullptr;
    qxdbOpenQxDbObject(object, id, QxDb::kForRead);
    QxDbText* text = QxDbText::cast(object);
    QxGePoint3d p = text->position();
    double angle = text->rotation();
    object->close();
    double c = std::cos(angle), s = std::sin(angle);
    return {p.x + low[0] * c - low[1] * s, p.y + low[0] * s + low[1] * c,
            p.x + high[0] * c - high[1] * s, p.y + high[0] * s + high[1] * c};
  }
};

TEST_F(TextTest, ObjectAndFlatLayerSeeTheSameGroups) {
  QxDbObjectId id = addText("Hello");
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  QxDbText* text = QxDbText::cast(object);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->isA(), QxDbText::desc());
  EXPECT_DOUBLE_EQ(text->height(), 2);
  EXPECT_NEAR(text->rotation(), kPi / 6, 1e-12);
  EXPECT_STREQ(text->textStringConst(), L"Hello");
  EXPECT_TRUE(text->isDefaultAlignment());
  ASSERT_EQ(text->setTextString(L"Changed"), Qxad::eOk);
  ASSERT_EQ(text->setHeight(3.5), Qxad::eOk);
  EXPECT_NE(text->setHeight(-1), Qxad::eOk);
  text->close();

  EntityName name;
  qxdbGetHysName(name, id);
  ResultBuffer* list = qxdbEntGet(name);
  bool sawText = false, sawHeight = false;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 1) sawText = std::wstring(node->value.rstring) == L"Changed";
    if (node->type == 40) sawHeight = node->value.rreal == 3.5;
  }
  qxutRelRb(list);
  EXPECT_TRUE(sawText);
  EXPECT_TRUE(sawHeight);
}

TEST_F(TextTest, ReadOnlyObjectRefusesWrites) {
  QxDbObjectId id = addText("Hello");
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForRead), Qxad::eOk);
  EXPECT_EQ(QxDbText::cast(object)->setRotation(1), Qxad::eNotOpenForWrite);
  object->close();
}

TEST_F(TextTest, JustifyingALeftTextKeepsItsBox) {
  QxDbObjectId id = addText("Keep me here");
  std::array<double, 4> before = worldBox(id);
  for (auto [horizontal, vertical] : {std::pair{QxDb::kTextCenter, QxDb::kTextBase},
                                      std::pair{QxDb::kTextRight, QxDb::kTextBase}}) {
    QxDbObject* object = nullptr;
    ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
    QxDbText* text = QxDbText::cast(object);
    // Back to left first: a left text is where its position is.
    ASSERT_EQ(text->setHorizontalMode(QxDb::kTextLeft), Qxad::eOk);
    ASSERT_EQ(text->setHorizontalMode(horizontal), Qxad::eOk);
    ASSERT_EQ(text->setVerticalMode(vertical), Qxad::eOk);
    text->close();
    std::array<double, 4> after = worldBox(id);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(after[i], before[i], 1e-9) << "mode " << horizontal;
  }
}

TEST_F(TextTest, JustifiedTextIsAnchoredAtTheAlignmentPoint) {
  QxDbObjectId id = addText("Anchor", QxDb::kTextRight);
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  QxDbText* text = QxDbText::cast(object);
  ASSERT_EQ(text->setAlignmentPoint(QxGePoint3d(20, 5, 0)), Qxad::eOk);
  QxGePoint3d position = text->position();
  // The right end of the baseline lies on the alignment point, along the rotation.
  double low[3], high[3];
  text->close();
  EntityName name;
  qxdbGetHysName(name, id);
  ResultBuffer* list = qxdbEntGet(name);
  ASSERT_EQ(qxedTextBox(list, low, high), RTNORM);
  qxutRelRb(list);
  double width = high[0];
  EXPECT_GT(width, 0);
  EXPECT_NEAR(position.x + width * std::cos(kPi / 6), 20, 1e-9);
  EXPECT_NEAR(position.y + width * std::sin(kPi / 6), 5, 1e-9);

  // A longer string grows to the left: the anchor stays.
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  text = QxDbText::cast(object);
  text->setTextString(L"Anchor, longer");
  QxGePoint3d moved = text->position();
  QxGePoint3d anchor = text->alignmentPoint();
  text->close();
  EXPECT_LT(moved.x, position.x);
  EXPECT_NEAR(anchor.x, 20, 1e-12);
}

TEST_F(TextTest, TextBoxScalesWithHeightAndWidthFactor) {
  auto box = [](double height, double factor) {
    ResultBuffer* list = qxutBuildList(RTDXF0, L"TEXT", 1, L"Wide", 40, height, 41, factor, RTNONE);
    double low[3], high[3];
    EXPECT_EQ(qxedTextBox(list, low, high), RTNORM);
    qxutRelRb(list);
    return std::array<double, 2>{high[0] - low[0], high[1] - low[1]};
  };
  std::array<double, 2> unit = box(1, 1);
  EXPECT_GT(unit[0], 2);  // four letters of a proportional font
  EXPECT_NEAR(box(2, 1)[0], 2 * unit[0], 1e-9);
  EXPECT_NEAR(box(2, 1)[1], 2 * unit[1], 1e-9);
  EXPECT_NEAR(box(1, 0.5)[0], 0.5 * unit[0], 1e-9);
  ResultBuffer* notText = qxutBuildList(RTDXF0, L"LINE", RTNONE);
  double low[3], high[3];
  EXPECT_EQ(qxedTextBox(notText, low, high), RTERROR);
  qxutRelRb(notText);
}

TEST_F(TextTest, AttributeIsATextWithTagAndFlags) {
  QxDbObjectId id = add("ATTRIB", {{100, "AcDbEntity"},
                                   {8, "0"},
                                   {100, "AcDbText"},
                                   {10, "0"},
                                   {20, "0"},
                                   {40, "1"},
                                   {1, "VALUE"},
                                   {100, "AcDbAttribute"},
                                   {280, "0"},
                                   {2, "PART_NO"},
                                   {70, "9"},
                                   {73, "12"},
                                   {280, "1"}});
  QxDbObject* object = nullptr;
  ASSERT_EQ(qxdbOpenQxDbObject(object, id, QxDb::kForWrite), Qxad::eOk);
  QxDbAttribute* attribute = QxDbAttribute::cast(object);
  ASSERT_NE(attribute, nullptr);
  EXPECT_TRUE(attribute->isKindOf(QxDbText::desc()));
  EXPECT_EQ(QxDbAttributeDefinition::cast(object), nullptr);
  EXPECT_STREQ(attribute->tagConst(), L"PART_NO");
  EXPECT_TRUE(attribute->isInvisible());
  EXPECT_TRUE(attribute->isPreset());
  EXPECT_FALSE(attribute->isConstant());
  EXPECT_EQ(attribute->fieldLength(), 12);
  EXPECT_TRUE(attribute->lockPositionInBlock());  // the 280 after the tag, not the version
  EXPECT_FALSE(attribute->isMTextAttribute());
  EXPECT_STREQ(attribute->textStringConst(), L"VALUE");
  ASSERT_EQ(attribute->setLockPositionInBlock(false), Qxad::eOk);
  EXPECT_FALSE(attribute->lockPositionInBlock());
  EXPECT_EQ(attribute->setTag(L""), Qxad::eInvalidInput);
  attribute->close();
}

class MTextTest : public EntitiesTest {
 protected:
  double width_ = 0, height_ = 0;
  void measure(const char* contents, double wrapWidth) {
    QxDbMText text;
    ASSERT_EQ(text.setTextHeight(1), Qxad::eOk);
    ASSERT_EQ(text.setWidth(wrapWidth), Qxad::eOk);
    std::wstring wide(contents, contents + std::strlen(contents));
    ASSERT_EQ(text.setContents(wide.c_str()), Qxad::eOk);
    width_ = text.actualWidth();
    height_ = text.actualHeight();
  }
};

TEST_F(MTextTest, WrapsAtTheWidthAndStacksLines) {
  measure("alpha beta gamma delta", 0);
  double oneLine = width_;
  EXPECT_DOUBLE_EQ(height_, 1);
  measure("alpha beta gamma delta", oneLine * 0.6);
  EXPECT_LE(width_, oneLine * 0.6);
  EXPECT_NEAR(height_, 1 + 5.0 / 3.0, 1e-12);  // two lines
  measure("alpha\\Pbeta", 0);
  EXPECT_NEAR(height_, 1 + 5.0 / 3.0, 1e-12);
  // A word wider than the width keeps its own, wider line.
  measure("incomprehensibilities", 1);
  EXPECT_GT(width_, 1);
  EXPECT_DOUBLE_EQ(height_, 1);
}

TEST_F(MTextTest, FormatCodesTakeNoWidth) {
  measure("Plain", 0);
  double plain = width_;
  measure("{\\C1;Plain}", 0);
  EXPECT_NEAR(width_, plain, 1e-12);
}

TEST_F(MTextTest, LongContentsSplitIntoChunksAndReadBack) {
  QxDbMText text;
  std::wstring longText(600, L'x');
  ASSERT_EQ(text.setContents(longText.c_str()), Qxad::eOk);
  wchar_t* back = text.contents();
  EXPECT_EQ(std::wstring(back), longText);
  qxad_free(back);
}

}  // namespace
}  // namespace korva::test
