// Prompts answered with an entity: qxedEntSel and qxedNEntSelP.
#include <cwctype>

#include "api/document.h"
#include "input/drawing_variables.h"
#include "input/entity_pick.h"
#include "input/nested_pick.h"
#include "input/point_input.h"
#include "input/prompt_session.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"

namespace korva::input {
namespace {

using Step = PromptSession::Step;

// ERRNO values of entity prompts.
constexpr int kNothingPicked = 7;
constexpr int kEmptyInput = 52;

int nothingFound() {
  setIntegerVariable("ERRNO", kNothingPicked);
  return RTERROR;
}

bool isLastKeyword(std::wstring_view text) {
  if (!text.empty() && text.front() == L'_') text.remove_prefix(1);
  std::wstring upper(text);
  for (wchar_t& c : upper) c = static_cast<wchar_t>(std::towupper(c));
  return upper == L"L" || upper == L"LA" || upper == L"LAS" || upper == L"LAST";
}

void copyName(const std::int64_t from[2], EntityName to) {
  to[0] = from[0];
  to[1] = from[1];
}

void copyPoint(const double from[3], double to[3]) {
  for (int axis = 0; axis < 3; ++axis) to[axis] = from[axis];
}

// A point on an entity named without a pick.
void entityPoint(const EntityName name, double point[3]) {
  point[0] = point[1] = point[2] = 0;
  api::Document* document = nullptr;
  if (db::Record* record = api::recordOf(name, &document); record && document) {
    pointOnEntity(document->database(), *record, point);
  }
}

// Asks until an entity is named. byPoint tells whether it was picked at point (so that a
// nested pick can look inside it).
int askEntity(const wchar_t* prompt, EntityName name, double point[3], bool& byPoint) {
  PromptSession session(prompt ? prompt : L"\nSelect object: ");
  for (;;) {
    const Answer answer = session.ask();
    byPoint = false;
    if (answer.isEnter()) {
      if (session.refusesEnter()) {
        session.refuse({});
        continue;
      }
      setIntegerVariable("ERRNO", kEmptyInput);
      return RTERROR;
    }
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::Return) return status;
    if (step == Step::AskAgain) continue;
    switch (answer.kind) {
      case Answer::Kind::Entity:
        copyName(answer.name, name);
        entityPoint(name, point);
        return RTNORM;
      case Answer::Kind::EntityPick:
        copyName(answer.name, name);
        copyPoint(answer.point, point);
        byPoint = true;
        return RTNORM;
      case Answer::Kind::Point:
        copyPoint(answer.point, point);
        byPoint = true;
        return pickEntityAt(point, name) ? RTNORM : nothingFound();
      case Answer::Kind::Set:
      case Answer::Kind::Cancel:
        session.refuse(L"Invalid selection.");
        continue;
      case Answer::Kind::Text:
        break;
    }
    const std::wstring& text = answer.text;
    if (text.front() == L'#') {
      if (!entityFromHandleInput(text, name)) return nothingFound();
      entityPoint(name, point);
      return RTNORM;
    }
    if (isLastKeyword(text)) {
      if (qxdbEntLast(name) != RTNORM) return nothingFound();
      entityPoint(name, point);
      return RTNORM;
    }
    double picked[3];
    if (parsePointInput(text, nullptr, picked)) {
      copyPoint(picked, point);
      byPoint = true;
      return pickEntityAt(point, name) ? RTNORM : nothingFound();
    }
    if (session.handleOther(text, L"Invalid selection. Expects a point or Last.", status) ==
        Step::Return) {
      return status;
    }
  }
}

void writeMatrix(const geom::Affine3& map, double matrix[4][4]) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) matrix[row][column] = map.m[row][column];
  }
  matrix[0][3] = map.offset.x;
  matrix[1][3] = map.offset.y;
  matrix[2][3] = map.offset.z;
  matrix[3][0] = matrix[3][1] = matrix[3][2] = 0;
  matrix[3][3] = 1;
}

// The containers as RTENAME nodes, innermost first; null when there are none or memory
// ran out.
ResultBuffer* containerList(const api::Document& document,
                            const std::vector<db::Record*>& containers) {
  ResultBuffer* head = nullptr;
  ResultBuffer** tail = &head;
  for (const db::Record* container : containers) {
    ResultBuffer* node = qxutNewRb(RTENAME);
    if (!node) {
      qxutRelRb(head);
      return nullptr;
    }
    api::nameOf(document, *container, node->value.rlname);
    *tail = node;
    tail = &node->next;
  }
  return head;
}

}  // namespace
}  // namespace korva::input

int qxedEntSel(const wchar_t* prompt, EntityName name, double point[3]) {
  if (!name || !point) return RTERROR;
  bool byPoint = false;
  return korva::input::askEntity(prompt, name, point, byPoint);
}

int qxedNEntSelP(const wchar_t* prompt, EntityName name, double point[3], int pickFlag,
                 double matrix[4][4], ResultBuffer** containers) {
  using namespace korva::input;
  if (containers) *containers = nullptr;
  if (!name || !point) return RTERROR;
  EntityName top = {0, 0};
  bool byPoint = true;
  if (pickFlag == 1) {
    if (!pickEntityAt(point, top)) return nothingFound();
  } else {
    const int status = askEntity(prompt, top, point, byPoint);
    if (status != RTNORM) return status;
  }
  korva::api::Document* document = nullptr;
  korva::db::Record* record = korva::api::recordOf(top, &document);
  if (!record || !document) return nothingFound();
  NestedPick pick;
  pick.entity = record;
  if (byPoint) pick = pickNested(document->database(), *record, point);
  korva::api::nameOf(*document, *pick.entity, name);
  if (matrix) writeMatrix(pick.toWorld, matrix);
  if (containers) *containers = containerList(*document, pick.containers);
  return RTNORM;
}
