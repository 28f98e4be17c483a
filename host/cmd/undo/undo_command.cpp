// UNDO and U: taking back steps of the current drawing's journal.
#include <cwctype>
#include <string>
#include <string_view>
#include <vector>

#include "api/document.h"
#include "api/utf8.h"
#include "cmd/undo/undo_commands.h"
#include "db/change_journal.h"
#include "qx_input.h"
#include "qx_print.h"
#include "qx_types.h"

namespace korva::cmd::undo {

namespace {
using Journal = db::ChangeJournal;
constexpr std::size_t kAnswerChars = 64;

bool same(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::towupper(a[i]) != std::towupper(b[i])) return false;
  }
  return true;
}

void markChanged() {
  if (db::Database* database = api::currentDatabase()) database->recordChanged();
}

// One line naming the steps taken back, the last first.
void printLabels(const std::vector<std::string>& labels) {
  std::wstring line;
  for (const std::string& label : labels) {
    if (!line.empty()) line += L' ';
    line += api::fromUtf8(label);
  }
  qxutPrintf(L"\n%s", line.c_str());
}

void report(const Journal& journal, const std::vector<std::string>& labels) {
  if (labels.empty()) {
    qxutPrintf(L"\nNothing to undo");
    return;
  }
  printLabels(labels);
  if (journal.empty()) qxutPrintf(L"\nEverything has been undone");
}

void undoSteps(Journal& journal, int count) {
  if (journal.control() == Journal::Control::None) {
    qxutPrintf(L"\nUndo is turned off; UNDO Control All turns it on");
    return;
  }
  std::vector<std::string> labels;
  for (int step = 0; step < count; ++step) {
    std::optional<std::string> label = journal.undoStep();
    if (!label) break;
    labels.push_back(std::move(*label));
  }
  if (!labels.empty()) markChanged();
  report(journal, labels);
}

bool askYes(const wchar_t* prompt) {
  wchar_t answer[kAnswerChars] = {};
  qxedInitGet(0, L"Yes No _ Yes No");
  int status = qxedGetKword(prompt, answer, kAnswerChars);
  return status == RTNONE || (status == RTNORM && same(answer, L"Yes"));
}

void undoBack(Journal& journal) {
  if (journal.control() == Journal::Control::None) {
    undoSteps(journal, 1);
    return;
  }
  bool toMark = journal.hasMarkInOpenGroup();
  if (!toMark && !askYes(L"\nThis will undo everything. OK? <Y>: ")) return;
  std::vector<std::string> labels = journal.undoToMark();
  if (!labels.empty()) markChanged();
  if (!toMark) {
    report(journal, labels);
    return;
  }
  if (!labels.empty()) printLabels(labels);
  qxutPrintf(L"\nMark encountered");
}

void beginUserGroup(Journal& journal) {
  // A group still open from an earlier BEgin ends first.
  if (journal.innermostGroup() == Journal::GroupKind::User) journal.endGroup();
  journal.beginGroup(Journal::GroupKind::User, "GROUP");
}

void endUserGroup(Journal& journal) {
  if (journal.innermostGroup() == Journal::GroupKind::User) journal.endGroup();
}

void askControl(Journal& journal) {
  wchar_t answer[kAnswerChars] = {};
  qxedInitGet(0, L"All None One _ All None One");
  int status =
      qxedGetKword(L"\nEnter an UNDO control option [All/None/One] <All>: ", answer, kAnswerChars);
  if (status == RTNONE || (status == RTNORM && same(answer, L"All"))) {
    journal.setControl(Journal::Control::All);
  } else if (status == RTNORM && same(answer, L"None")) {
    journal.setControl(Journal::Control::None);
  } else if (status == RTNORM && same(answer, L"One")) {
    journal.setControl(Journal::Control::One);
  }
}

// korva runs no menu macros to group, so Auto only shows in UNDOCTL.
void askAuto(Journal& journal) {
  wchar_t answer[kAnswerChars] = {};
  qxedInitGet(0, L"ON OFF _ ON OFF");
  const wchar_t* prompt = journal.autoGroups() ? L"\nEnter UNDO Auto mode [ON/OFF] <On>: "
                                               : L"\nEnter UNDO Auto mode [ON/OFF] <Off>: ";
  int status = qxedGetKword(prompt, answer, kAnswerChars);
  if (status == RTNORM) journal.setAutoGroups(same(answer, L"ON"));
}

void runOption(Journal& journal, std::wstring_view option) {
  if (same(option, L"Auto")) {
    askAuto(journal);
  } else if (same(option, L"Control")) {
    askControl(journal);
  } else if (same(option, L"BEgin")) {
    beginUserGroup(journal);
  } else if (same(option, L"End")) {
    endUserGroup(journal);
  } else if (same(option, L"Mark")) {
    journal.addMark();
  } else if (same(option, L"Back")) {
    undoBack(journal);
  }
}
}  // namespace

void undoCommand() {
  Journal* journal = currentJournal();
  if (!journal) return;
  int count = 1;
  qxedInitGet(QXED_NO_ZERO | QXED_NO_NEGATIVE,
              L"Auto Control BEgin End Mark Back _ Auto Control BEgin End Mark Back");
  int status = qxedGetInt(
      L"\nEnter the number of operations to undo or [Auto/Control/BEgin/End/Mark/Back] <1>: ",
      &count);
  if (status == RTNONE || status == RTNORM) {
    undoSteps(*journal, status == RTNONE ? 1 : count);
  } else if (status == RTKWORD) {
    wchar_t option[kAnswerChars] = {};
    if (qxedGetInput(option, kAnswerChars) == RTNORM) runOption(*journal, option);
  }
  showUndoControl();
}

void undoOneStepCommand() {
  Journal* journal = currentJournal();
  if (!journal) return;
  undoSteps(*journal, 1);
  showUndoControl();
}

}  // namespace korva::cmd::undo
