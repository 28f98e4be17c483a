// -LINETYPE: lists linetypes, loads them from linetype files found along the support
// path, and sets the current one (CELTYPE).
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "api/utf8.h"
#include "cmd/tables/linetype_file.h"
#include "cmd/tables/linetype_records.h"
#include "cmd/tables/name_list.h"
#include "cmd/tables/prompt_answers.h"
#include "cmd/tables/table_commands.h"
#include "input/support_path.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

constexpr wchar_t kDefaultFile[] = L"KORVA.lin";

std::wstring currentLinetype() {
  ResultBuffer value{};
  if (qxedGetVar(L"CELTYPE", &value) != RTNORM || value.type != RTSTR) return L"ByLayer";
  std::wstring name = value.value.rstring ? value.value.rstring : L"ByLayer";
  qxad_free(value.value.rstring);
  return name;
}

// The linetype file typed, found along the support path (".lin" is added to a name
// without an extension) and read; nullopt after saying why not. shown is the name as
// messages give it: as typed, with the extension added.
std::optional<LinetypeFile> readLinetypeFile(const std::wstring& typed, std::wstring& shown) {
  std::string name = api::toUtf8(typed);
  if (!std::filesystem::path(name).has_extension()) name += ".lin";
  shown = api::fromUtf8(name);
  std::optional<std::string> found = input::findSupportFile(name);
  if (!found) {
    qxutPrintf(L"\nCan't find the linetype file \"%s\".", typed.c_str());
    return std::nullopt;
  }
  std::ifstream stream(*found, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  if (stream.bad()) {
    qxutPrintf(L"\nCan't read the linetype file \"%s\".", shown.c_str());
    return std::nullopt;
  }
  return parseLinetypeFile(text);
}

// Says what's wrong with the broken definitions the user asked for.
void reportProblems(const LinetypeFile& file, const std::wstring& shown,
                    const std::vector<std::wstring>& patterns) {
  for (const LinetypeFileProblem& problem : file.problems) {
    if (problem.linetype.empty() || !matchesNameList(api::fromUtf8(problem.linetype), patterns)) {
      continue;
    }
    qxutPrintf(L"\nBad definition of linetype \"%s\" at line %d of %s: %s",
               api::fromUtf8(problem.linetype).c_str(), static_cast<int>(problem.line),
               shown.c_str(), api::fromUtf8(problem.message).c_str());
  }
}

void reportLoad(const std::wstring& name, const LinetypeLoad& load) {
  std::wstring detail = api::fromUtf8(load.detail);
  switch (load.result) {
    case LinetypeLoadResult::Loaded:
      qxutPrintf(L"\nLinetype \"%s\" loaded.", name.c_str());
      break;
    case LinetypeLoadResult::Reloaded:
      qxutPrintf(L"\nLinetype \"%s\" reloaded.", name.c_str());
      break;
    case LinetypeLoadResult::MissingStyle:
      qxutPrintf(L"\nLinetype \"%s\" needs the text style \"%s\", which the drawing lacks.",
                 name.c_str(), detail.c_str());
      break;
    case LinetypeLoadResult::HasShapes:
      qxutPrintf(
          L"\nLinetype \"%s\" uses the shape \"%s\"; linetypes with shapes can't be "
          L"loaded.",
          name.c_str(), detail.c_str());
      break;
    case LinetypeLoadResult::TooOld:
      qxutPrintf(L"\nLinetype \"%s\" carries texts, which an R12 drawing can't hold.",
                 name.c_str());
      break;
    case LinetypeLoadResult::NoDrawing:
    case LinetypeLoadResult::Failed:
      qxutPrintf(L"\nLinetype \"%s\" could not be loaded.", name.c_str());
      break;
  }
}

bool isLoaded(const std::wstring& name) {
  ResultBuffer* list = qxdbTblSearch(L"LTYPE", name.c_str(), 0);
  qxutRelRb(list);
  return list != nullptr;
}

int askFile(const wchar_t* prompt, std::wstring& file) {
  int status = askText(prompt, file);
  if (status == RTNONE) file = kDefaultFile;
  return status == RTNONE ? RTNORM : status;
}

int loadOption() {
  std::wstring typed;
  int status = askText(L"\nEnter linetype(s) to load: ", typed);
  if (status != RTNORM) return status;
  std::vector<std::wstring> patterns = splitNameList(typed);
  std::wstring fileName;
  std::wstring prompt = std::wstring(L"\nEnter name of linetype file <") + kDefaultFile + L">: ";
  if ((status = askFile(prompt.c_str(), fileName)) != RTNORM) return status;
  std::wstring shown;
  std::optional<LinetypeFile> file = readLinetypeFile(fileName, shown);
  if (!file) return RTERROR;
  reportProblems(*file, shown, patterns);
  int matched = 0;
  for (const LinetypeDefinition& definition : file->definitions) {
    std::wstring name = api::fromUtf8(definition.name);
    // A name defined twice in a file loads from its first definition.
    if (!matchesNameList(name, patterns) || file->find(definition.name) != &definition) continue;
    ++matched;
    if (isLoaded(name)) {
      std::wstring question =
          L"\nLinetype \"" + name + L"\" is already loaded. Reload it? [Yes/No] <Y>: ";
      bool reload = true;
      if (askYesNo(question.c_str(), true, reload) == RTCAN) return RTCAN;
      if (!reload) continue;
    }
    reportLoad(name, loadLinetype(definition));
  }
  if (matched == 0) {
    qxutPrintf(L"\nNo linetype matching \"%s\" in %s.", typed.c_str(), shown.c_str());
  }
  return RTNORM;
}

int listOption() {
  std::wstring typed;
  int status = askText(L"\nEnter linetype(s) to list <*>: ", typed);
  if (status == RTCAN) return status;
  std::vector<std::wstring> patterns = splitNameList(status == RTNORM ? typed : L"*");
  std::wstring fileName;
  status = askText(L"\nEnter linetype file to list from <loaded linetypes>: ", fileName);
  if (status == RTCAN) return status;
  if (status == RTNONE) {
    printLoadedLinetypes(patterns);
    return RTNORM;
  }
  std::wstring shown;
  std::optional<LinetypeFile> file = readLinetypeFile(fileName, shown);
  if (!file) return RTERROR;
  qxutPrintf(L"\n\nLinetypes in %s:", shown.c_str());
  int listed = 0;
  for (const LinetypeDefinition& definition : file->definitions) {
    std::wstring name = api::fromUtf8(definition.name);
    if (!matchesNameList(name, patterns)) continue;
    std::wstring line = L"\n" + name;
    if (line.size() < 24) line.append(24 - line.size(), L' ');
    line += L" " + api::fromUtf8(definition.description);
    qxutPrintf(L"%s", line.c_str());
    ++listed;
  }
  if (listed == 0) qxutPrintf(L"\nNo matching linetypes found.");
  reportProblems(*file, shown, patterns);
  return RTNORM;
}

int setOption() {
  std::wstring name;
  for (;;) {
    std::wstring prompt = L"\nSpecify linetype name or [?] <" + currentLinetype() + L">: ";
    int status = askText(prompt.c_str(), name);
    if (status != RTNORM) return status;
    if (name != L"?") break;
    printLoadedLinetypes({L"*"});
  }
  ResultBuffer* list = qxdbTblSearch(L"LTYPE", name.c_str(), 0);
  if (!list) {
    qxutPrintf(L"\nLinetype \"%s\" is not loaded.", name.c_str());
    return RTERROR;
  }
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 2) name = node->value.rstring;
  }
  qxutRelRb(list);
  ResultBuffer value{};
  value.type = RTSTR;
  value.value.rstring = const_cast<wchar_t*>(name.c_str());
  if (qxedSetVar(L"CELTYPE", &value) != RTNORM) {
    qxutPrintf(L"\nLinetype \"%s\" can't be made current.", name.c_str());
  }
  return RTNORM;
}

}  // namespace

void linetypeCommand() {
  qxutPrintf(L"\nCurrent linetype: \"%s\"", currentLinetype().c_str());
  for (;;) {
    std::wstring option;
    int status =
        askKeyword(L"\nEnter an option [?/Load/Set]: ", L"? Load Set _ ? Load Set", option);
    if (status != RTNORM) return;
    int result = option == L"?" ? listOption() : option == L"Load" ? loadOption() : setOption();
    if (result == RTCAN) return;
  }
}

}  // namespace korva::cmd
