#include "cmd/blocks/attribute_values.h"

#include "cmd/blocks/open_object.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_variables.h"
#include "qx_db_block_reference.h"
#include "qx_db_blocks.h"
#include "qx_db_text.h"
#include "qx_ge.h"
#include "qx_memory.h"
#include "qx_print.h"

namespace korva::cmd::blocks {

namespace {

// The definitions that give a reference an attribute, with their defaults.
std::vector<AttributeValue> definitionsOf(QxDbObjectId blockId) {
  std::vector<AttributeValue> values;
  OpenObject<QxDbBlockTableRecord> block(blockId, QxDb::kForRead);
  if (!block || !block->hasAttributeDefinitions()) return values;
  QxDbBlockTableRecordIterator* iterator = nullptr;
  if (block->newIterator(iterator) != Qxad::eOk) return values;
  for (; !iterator->done(); iterator->step()) {
    QxDbObjectId id;
    if (iterator->getEntityId(id) != Qxad::eOk) continue;
    OpenObject<QxDbAttributeDefinition> definition(id, QxDb::kForRead);
    if (!definition || definition->isConstant()) continue;
    wchar_t* text = definition->textString();
    values.push_back({id, text ? text : L""});
    qxad_free(text);
  }
  delete iterator;
  return values;
}

std::wstring promptOf(QxDbObjectId definitionId) {
  OpenObject<QxDbAttributeDefinition> definition(definitionId, QxDb::kForRead);
  if (!definition) return {};
  wchar_t* prompt = definition->prompt();
  std::wstring text = prompt && *prompt ? prompt : definition->tagConst();
  qxad_free(prompt);
  return text;
}

}  // namespace

bool attributeValues(QxDbObjectId blockId, std::vector<AttributeValue>& values) {
  values = definitionsOf(blockId);
  if (values.empty() || drawing::shortVariable(L"ATTREQ", 1) == 0) return true;
  qxutPrintf(L"\nEnter attribute values");
  for (AttributeValue& each : values) {
    std::wstring prompt = L"\n" + promptOf(each.definition) + L" <" + each.value + L">: ";
    std::wstring typed;
    drawing::Answer answer = drawing::askString(prompt.c_str(), true, typed);
    if (!answer.value()) return false;
    if (!typed.empty()) each.value = typed;
  }
  return true;
}

Qxad::ErrorStatus attachAttributes(QxDbObjectId referenceId,
                                   const std::vector<AttributeValue>& values) {
  if (values.empty()) return Qxad::eOk;
  OpenObject<QxDbBlockReference> reference(referenceId, QxDb::kForWrite);
  if (!reference) return reference.status();
  QxGeMatrix3d transform = reference->blockTransform();
  for (const AttributeValue& each : values) {
    OpenObject<QxDbAttributeDefinition> definition(each.definition, QxDb::kForRead);
    if (!definition) return definition.status();
    auto* attribute = new QxDbAttribute();
    attribute->setPropertiesFrom(definition.get());
    Qxad::ErrorStatus status = attribute->setAttributeFromBlock(definition.get());
    definition.close();
    if (status == Qxad::eOk) status = attribute->transformBy(transform);
    if (status == Qxad::eOk) status = attribute->setTextString(each.value.c_str());
    QxDbObjectId attributeId;
    if (status == Qxad::eOk) status = reference->appendAttribute(attributeId, attribute);
    if (status != Qxad::eOk) {
      delete attribute;
      return status;
    }
    attribute->close();
  }
  return Qxad::eOk;
}

}  // namespace korva::cmd::blocks
