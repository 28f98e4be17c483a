// Comparators of single-line texts, attributes, attribute definitions and mtext.
#include <string>

#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;
using CompareEquality::IsSameDirection;
using CompareEquality::IsSameOwnedString;
using CompareEquality::IsSameString;

namespace {

// The name of a text style record; empty when it can't be opened.
std::wstring StyleName(QxDbObjectId styleId) {
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, styleId, QxDb::kForRead) != Qxad::eOk) return {};
  std::wstring name;
  if (auto* record = QxDbSymbolTableRecord::cast(object)) {
    wchar_t* text = nullptr;
    if (record->getName(text) == Qxad::eOk && text) name = text;
    qxad_free(text);
  }
  object->close();
  return name;
}

}  // namespace

bool VnFileCompareUtils::CompareText(const QxDbText* oldText, const QxDbText* newText) {
  if (HasDifferentThickness(oldText->thickness(), newText->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  return StyleName(oldText->textStyle()) == StyleName(newText->textStyle()) &&
         IsSameString(oldText->textStringConst(), newText->textStringConst()) &&
         oldText->verticalMode() == newText->verticalMode() &&
         oldText->horizontalMode() == newText->horizontalMode() &&
         IsNearEqual(oldText->height(), newText->height()) &&
         IsNearEqual(oldText->rotation(), newText->rotation()) &&
         IsNearEqual(oldText->widthFactor(), newText->widthFactor()) &&
         IsNearEqual(oldText->oblique(), newText->oblique()) &&
         oldText->position().isEqualTo(newText->position()) &&
         oldText->normal().isEqualTo(newText->normal()) &&
         oldText->isMirroredInX() == newText->isMirroredInX() &&
         oldText->isMirroredInY() == newText->isMirroredInY();
}

bool VnFileCompareUtils::CompareAttribute(const QxDbAttribute* oldAttribute,
                                          const QxDbAttribute* newAttribute) {
  if (HasDifferentThickness(oldAttribute->thickness(), newAttribute->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  if (!IsSameString(oldAttribute->tagConst(), newAttribute->tagConst()) ||
      oldAttribute->isInvisible() != newAttribute->isInvisible() ||
      oldAttribute->isConstant() != newAttribute->isConstant() ||
      oldAttribute->isVerifiable() != newAttribute->isVerifiable() ||
      oldAttribute->isPreset() != newAttribute->isPreset() ||
      oldAttribute->fieldLength() != newAttribute->fieldLength() ||
      oldAttribute->lockPositionInBlock() != newAttribute->lockPositionInBlock() ||
      oldAttribute->isMTextAttribute() != newAttribute->isMTextAttribute()) {
    return false;
  }
  return CompareText(oldAttribute, newAttribute);
}

bool VnFileCompareUtils::CompareAttributeDefinition(const QxDbAttributeDefinition* oldDefinition,
                                                    const QxDbAttributeDefinition* newDefinition) {
  if (HasDifferentThickness(oldDefinition->thickness(), newDefinition->thickness())) return false;
  if (!IsGeometryCompared()) return true;
  if (!IsSameOwnedString(oldDefinition->prompt(), newDefinition->prompt()) ||
      !IsSameString(oldDefinition->tagConst(), newDefinition->tagConst()) ||
      oldDefinition->isInvisible() != newDefinition->isInvisible() ||
      oldDefinition->isConstant() != newDefinition->isConstant() ||
      oldDefinition->isVerifiable() != newDefinition->isVerifiable() ||
      oldDefinition->isPreset() != newDefinition->isPreset() ||
      oldDefinition->fieldLength() != newDefinition->fieldLength() ||
      oldDefinition->lockPositionInBlock() != newDefinition->lockPositionInBlock() ||
      oldDefinition->isMTextAttributeDefinition() != newDefinition->isMTextAttributeDefinition()) {
    return false;
  }
  return CompareText(oldDefinition, newDefinition);
}

bool VnFileCompareUtils::CompareMText(const QxDbMText* oldMText, const QxDbMText* newMText) {
  if (!IsGeometryCompared()) return true;
  return StyleName(oldMText->textStyle()) == StyleName(newMText->textStyle()) &&
         IsSameOwnedString(oldMText->contents(), newMText->contents()) &&
         oldMText->attachment() == newMText->attachment() &&
         IsNearEqual(oldMText->textHeight(), newMText->textHeight()) &&
         IsNearEqual(oldMText->rotation(), newMText->rotation()) &&
         IsNearEqual(oldMText->width(), newMText->width()) &&
         IsSameDirection(oldMText->direction(), newMText->direction()) &&
         oldMText->location().isEqualTo(newMText->location()) &&
         IsSameDirection(oldMText->normal(), newMText->normal()) &&
         oldMText->lineSpacingStyle() == newMText->lineSpacingStyle() &&
         IsNearEqual(oldMText->lineSpacingFactor(), newMText->lineSpacingFactor()) &&
         IsNearEqual(oldMText->height(), newMText->height()) &&
         oldMText->flowDirection() == newMText->flowDirection();
}
