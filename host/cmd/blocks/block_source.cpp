#include "cmd/blocks/block_source.h"

#include <cwctype>

#include "cmd/blocks/block_definition.h"
#include "cmd/blocks/block_names.h"
#include "cmd/drawing/command_input.h"
#include "qx_drawing_file.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::blocks {

namespace {

constexpr size_t kPathChars = 4096;

bool endsWithExtension(const std::wstring& text) {
  const std::wstring extension = QXED_DRAWING_EXTENSION;
  if (text.size() <= extension.size()) return false;
  for (size_t i = 0; i < extension.size(); ++i) {
    wchar_t character = text[text.size() - extension.size() + i];
    if (std::towlower(character) != std::towlower(extension[i])) return false;
  }
  return true;
}

std::wstring foundFile(const std::wstring& name) {
  wchar_t path[kPathChars] = {};
  if (qxedFindFile(name.c_str(), path, kPathChars) != RTNORM) return {};
  return path;
}

bool keepExistingBlock(const std::wstring& name) {
  std::wstring prompt = L"\nBlock \"" + name + L"\" already exists. Redefine it? [Yes/No] <N>: ";
  return !drawing::askKeyword(prompt.c_str(), {0, L"Yes No _ Yes No"}).is(L"Yes");
}

QxDbObjectId blockFromFile(QxDbDatabase& database, const std::wstring& path) {
  std::wstring name = blockNameOfFile(path);
  if (!isValidBlockName(name)) {
    qxutPrintf(L"\nInvalid block name.");
    return QxDbObjectId::kNull;
  }
  QxDbObjectId existing = findBlock(database, name);
  if (!existing.isNull() && keepExistingBlock(name)) return existing;
  Qxad::ErrorStatus status = loadBlockFile(database, path, name);
  if (status == Qxad::eWrongObjectType) {
    // Entities of drawings without block records can't be copied between drawings yet.
    qxutPrintf(L"\nThe drawing file \"%ls\" is older than R13 and can't be read in as a block.",
               path.c_str());
    return QxDbObjectId::kNull;
  }
  if (status != Qxad::eOk) {
    qxutPrintf(L"\nThe drawing file \"%ls\" could not be read.", path.c_str());
    return QxDbObjectId::kNull;
  }
  return findBlock(database, name);
}

}  // namespace

bool namesDrawingFile(const std::wstring& answer) {
  return answer.find_first_of(L"/\\") != std::wstring::npos || endsWithExtension(answer);
}

std::wstring blockNameOfFile(const std::wstring& path) {
  size_t separator = path.find_last_of(L"/\\");
  std::wstring name = separator == std::wstring::npos ? path : path.substr(separator + 1);
  size_t dot = name.find_last_of(L'.');
  if (dot != std::wstring::npos && dot > 0) name.erase(dot);
  return name;
}

QxDbObjectId blockToInsert(QxDbDatabase& database, const std::wstring& answer) {
  if (!namesDrawingFile(answer)) {
    QxDbObjectId block = findBlock(database, answer);
    if (!block.isNull()) return block;
    std::wstring file = answer + QXED_DRAWING_EXTENSION;
    std::wstring path = foundFile(file);
    if (path.empty()) {
      qxutPrintf(L"\nBlock \"%ls\" not found, nor the drawing file \"%ls\".", answer.c_str(),
                 file.c_str());
      return QxDbObjectId::kNull;
    }
    return blockFromFile(database, path);
  }
  std::wstring path = foundFile(answer);
  if (path.empty()) {
    qxutPrintf(L"\nThe drawing file \"%ls\" was not found.", answer.c_str());
    return QxDbObjectId::kNull;
  }
  return blockFromFile(database, path);
}

}  // namespace korva::cmd::blocks
