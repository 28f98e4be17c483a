// The interactive selection prompt ("Select objects: ") that qxedSSGet's prompting modes
// and the SELECT command run.
#pragma once

#include <string>
#include <vector>

#include "db/handle.h"
#include "document.h"
#include "input/keywords.h"
#include "qx_selection.h"
#include "selection_filter.h"

namespace korva::api {

struct SelectionPromptOptions {
  std::wstring addPrompt = L"\nSelect objects: ";
  std::wstring removePrompt = L"\nRemove objects: ";
  bool single = false;        // the first step that selects something ends the prompt
  bool rejectLocked = false;  // entities on locked layers are not taken
  const SelectionFilter* filter = nullptr;
  // The caller's keywords, offered besides the prompt's own options.
  std::wstring keywordText;
  input::KeywordList keywords;
  QxSelectionCallback keywordCallback = nullptr;
  bool returnOnKeyword = false;  // a keyword ends the prompt after its callback
  QxSelectionCallback otherCallback = nullptr;
};

struct SelectionPromptResult {
  int status = RTNORM;              // RTNORM, or RTCAN when the user cancelled or the input ran out
  std::vector<db::Handle> members;  // in selection order
  bool removalRan = false;          // a removing step ran, even one that found nothing
};

// Asks until Enter (or the single step, or a keyword with returnOnKeyword), starting
// from `initial`. Members are highlighted while the prompt runs; the highlight this
// prompt added is taken away when it ends.
SelectionPromptResult runSelectionPrompt(Document& document, const SelectionPromptOptions& options,
                                         std::vector<db::Handle> initial = {});

// qxedSSGet's prompting branch (null mode, or one starting with ":" or "-").
int selectByPrompting(const wchar_t* mode, const void* first, const void* second,
                      const ResultBuffer* filter, SelectionSet set);

}  // namespace korva::api
