// Texts: single-line texts, attributes and their definitions, paragraph texts.
//
// Strings returned as wchar_t* belong to the caller, who frees them with qxad_free;
// textStringConst and tagConst stay valid until the next call on the same object.
#pragma once

#include "qx_db_entity.h"

class QxGePoint3d;
class QxGeVector3d;

namespace QxDb {
enum TextHorzMode : int {
  kTextLeft = 0,
  kTextCenter = 1,
  kTextRight = 2,
  kTextAlign = 3,
  kTextMid = 4,
  kTextFit = 5
};
enum TextVertMode : int { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
}  // namespace QxDb

// A single-line text. Left on the baseline, the position is where the text starts and
// the alignment point is unused. Any other justification anchors the text at the
// alignment point, and the position follows from the text's measured box. Aligned and
// fit texts run from the position to the alignment point.
class QxDbText : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbText)
  QxDbText();
  QxDbText(const QxGePoint3d& position, const wchar_t* text,
           QxDbObjectId style = QxDbObjectId::kNull, double height = 0, double rotation = 0);
  ~QxDbText() override;

  QxGePoint3d position() const;
  // Moves the text; a justified text takes its alignment point along.
  Qxad::ErrorStatus setPosition(const QxGePoint3d& position);
  QxGePoint3d alignmentPoint() const;
  // Moves a justified text to the point; stored but unused for left/baseline texts.
  Qxad::ErrorStatus setAlignmentPoint(const QxGePoint3d& point);
  bool isDefaultAlignment() const;  // left on the baseline

  QxDb::TextHorzMode horizontalMode() const;
  Qxad::ErrorStatus setHorizontalMode(QxDb::TextHorzMode mode);
  QxDb::TextVertMode verticalMode() const;
  Qxad::ErrorStatus setVerticalMode(QxDb::TextVertMode mode);
  // Places the position from the alignment point again (done by every setter).
  Qxad::ErrorStatus adjustAlignment();

  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
  double thickness() const;
  Qxad::ErrorStatus setThickness(double thickness);
  double oblique() const;  // radians
  Qxad::ErrorStatus setOblique(double angle);
  double rotation() const;  // radians
  Qxad::ErrorStatus setRotation(double angle);
  double height() const;
  Qxad::ErrorStatus setHeight(double height);
  double widthFactor() const;
  Qxad::ErrorStatus setWidthFactor(double factor);
  bool isMirroredInX() const;  // drawn backwards (71 bit 2)
  Qxad::ErrorStatus mirrorInX(bool mirrored);
  bool isMirroredInY() const;  // upside down (71 bit 4)
  Qxad::ErrorStatus mirrorInY(bool mirrored);

  wchar_t* textString() const;
  const wchar_t* textStringConst() const;
  Qxad::ErrorStatus setTextString(const wchar_t* text);
  // The STYLE record named by group 7 ("Standard" when none); null outside a database.
  QxDbObjectId textStyle() const;
  Qxad::ErrorStatus setTextStyle(QxDbObjectId style);

  // The text's box (the tag's for a definition), swept by the thickness.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;

 protected:
  explicit QxDbText(const char* dxfType);
  // Where the text's own groups live: AcDbText, or the attribute part for 74.
  virtual int verticalModeCode() const { return 73; }
  mutable wchar_t* constText_ = nullptr;
};

// An attribute definition of a block: a text with a tag, a prompt and flags.
class QxDbAttributeDefinition : public QxDbText {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbAttributeDefinition)
  QxDbAttributeDefinition();
  QxDbAttributeDefinition(const QxGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                          const wchar_t* prompt, QxDbObjectId style = QxDbObjectId::kNull);
  ~QxDbAttributeDefinition() override;

  wchar_t* tag() const;
  const wchar_t* tagConst() const;
  Qxad::ErrorStatus setTag(const wchar_t* tag);
  wchar_t* prompt() const;
  Qxad::ErrorStatus setPrompt(const wchar_t* prompt);
  bool isInvisible() const;
  Qxad::ErrorStatus setInvisible(bool value);
  bool isConstant() const;
  Qxad::ErrorStatus setConstant(bool value);
  bool isVerifiable() const;
  Qxad::ErrorStatus setVerifiable(bool value);
  bool isPreset() const;
  Qxad::ErrorStatus setPreset(bool value);
  int fieldLength() const;
  Qxad::ErrorStatus setFieldLength(int length);
  bool lockPositionInBlock() const;
  Qxad::ErrorStatus setLockPositionInBlock(bool value);
  bool isMTextAttributeDefinition() const;

 protected:
  int verticalModeCode() const override { return 74; }
  mutable wchar_t* constTag_ = nullptr;
};

// An attribute of a block reference: the value is the text string.
class QxDbAttribute : public QxDbText {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbAttribute)
  QxDbAttribute();
  QxDbAttribute(const QxGePoint3d& position, const wchar_t* text, const wchar_t* tag,
                QxDbObjectId style = QxDbObjectId::kNull);
  ~QxDbAttribute() override;

  wchar_t* tag() const;
  const wchar_t* tagConst() const;
  Qxad::ErrorStatus setTag(const wchar_t* tag);
  bool isInvisible() const;
  Qxad::ErrorStatus setInvisible(bool value);
  bool isConstant() const;
  bool isVerifiable() const;
  bool isPreset() const;
  int fieldLength() const;
  Qxad::ErrorStatus setFieldLength(int length);
  bool lockPositionInBlock() const;
  Qxad::ErrorStatus setLockPositionInBlock(bool value);
  bool isMTextAttribute() const;
  // Takes tag, flags, text and placement of a definition (the reference's transform
  // is the caller's business).
  Qxad::ErrorStatus setAttributeFromBlock(const QxDbAttributeDefinition* definition);

 protected:
  int verticalModeCode() const override { return 74; }
  mutable wchar_t* constTag_ = nullptr;
};

// A paragraph text. Contents carry the paragraph format codes (\P, {\H2;...}, \C1;).
// actualWidth and actualHeight come from laying the contents out with the metrics of
// the style's font, wrapped at width() when that is not 0.
class QxDbMText : public QxDbEntity {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbMText)
  QxDbMText();
  ~QxDbMText() override;

  enum AttachmentPoint : int {
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight
  };
  enum FlowDirection : int { kLtoR = 1, kRtoL = 2, kTtoB = 3, kBtoT = 4, kByStyle = 5 };
  enum LineSpacingStyle : int { kAtLeast = 1, kExactly = 2 };

  QxGePoint3d location() const;
  Qxad::ErrorStatus setLocation(const QxGePoint3d& point);
  QxGeVector3d normal() const;
  Qxad::ErrorStatus setNormal(const QxGeVector3d& normal);
  // The text's X axis in world coordinates.
  QxGeVector3d direction() const;
  Qxad::ErrorStatus setDirection(const QxGeVector3d& direction);
  double rotation() const;  // radians, in the text's object system
  Qxad::ErrorStatus setRotation(double angle);
  double width() const;  // the wrapping width; 0 does not wrap
  Qxad::ErrorStatus setWidth(double width);
  double height() const;  // the defined height (46), 0 when not set
  Qxad::ErrorStatus setHeight(double height);
  double textHeight() const;
  Qxad::ErrorStatus setTextHeight(double height);
  AttachmentPoint attachment() const;
  Qxad::ErrorStatus setAttachment(AttachmentPoint attachment);
  FlowDirection flowDirection() const;
  Qxad::ErrorStatus setFlowDirection(FlowDirection direction);
  double lineSpacingFactor() const;
  Qxad::ErrorStatus setLineSpacingFactor(double factor);
  LineSpacingStyle lineSpacingStyle() const;
  Qxad::ErrorStatus setLineSpacingStyle(LineSpacingStyle style);
  wchar_t* contents() const;
  Qxad::ErrorStatus setContents(const wchar_t* text);
  QxDbObjectId textStyle() const;
  Qxad::ErrorStatus setTextStyle(QxDbObjectId style);

  double actualWidth() const;
  double actualHeight() const;

  // The box of the laid-out text about its attachment point.
  Qxad::ErrorStatus getGeomExtents(QxDbExtents& extents) const override;
  // One single-line text per line of the laid-out contents, format codes left out,
  // each left-aligned on its line's baseline.
  Qxad::ErrorStatus explode(QxDbVoidPtrArray& pieces) const override;
};
