// QLATTACH: ties a leader to a paragraph text, a tolerance frame or a block reference.
// A leader already tied to something else stays as it is.
#include <string>

#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

using KindTest = bool (*)(const QxDbEntity*);

bool IsLeader(const QxDbEntity* entity) {
  return entity->isKindOf(QxDbLeader::desc());
}

bool IsAnnotation(const QxDbEntity* entity) {
  return entity->isKindOf(QxDbMText::desc()) || entity->isKindOf(QxDbFcf::desc()) ||
         entity->isKindOf(QxDbBlockReference::desc());
}

// Asks until an entity of the kind is picked. False when the user cancels.
bool PickEntityOfKind(unsigned promptId, KindTest isWanted, QxDbObjectId& picked) {
  const std::wstring prompt = LoadResourceString(promptId);
  for (;;) {
    EntityName name;
    double point[3] = {};
    const int status = qxedEntSel(prompt.c_str(), name, point);
    if (status == RTCAN) return false;
    if (status != RTNORM || qxdbGetObjectId(picked, name) != Qxad::eOk) continue;
    QxDbEntity* entity = nullptr;
    if (qxdbOpenQxDbEntity(entity, picked, QxDb::kForRead) != Qxad::eOk) continue;
    const bool wanted = isWanted(entity);
    entity->close();
    if (wanted) return true;
  }
}

}  // namespace

void cmdQlAttach() {
  ResourceScope resources;
  QxDbObjectId leaderId, annotationId;
  if (!PickEntityOfKind(small_commands::kLeaderPrompt, IsLeader, leaderId)) return;
  if (!PickEntityOfKind(small_commands::kAnnotationPrompt, IsAnnotation, annotationId)) return;

  QxDbEntity* entity = nullptr;
  if (qxdbOpenQxDbEntity(entity, leaderId, QxDb::kForWrite) != Qxad::eOk) return;
  QxDbLeader* leader = QxDbLeader::cast(entity);
  const QxDbObjectId current = leader ? leader->annotationObjId() : QxDbObjectId::kNull;
  if (leader && (current.isNull() || current == annotationId)) {
    leader->attachAnnotation(annotationId);
  }
  entity->close();
}
