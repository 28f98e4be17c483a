#include "frame/list_helpers.h"

#include <cwchar>

ResultBuffer* FindGroupCode(ResultBuffer* list, int code) {
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == code) return node;
  }
  return nullptr;
}

const ResultBuffer* FindGroupCode(const ResultBuffer* list, int code) {
  return FindGroupCode(const_cast<ResultBuffer*>(list), code);
}

int GetGroupInt(const ResultBuffer* list, int code, int& value) {
  const ResultBuffer* node = FindGroupCode(list, code);
  if (!node) return RTERROR;
  value = node->value.rint;
  return RTNORM;
}

int GetGroupString(const ResultBuffer* list, int code, wchar_t* buffer, std::size_t size) {
  const ResultBuffer* node = FindGroupCode(list, code);
  if (!node || !buffer || size == 0) return RTERROR;
  const wchar_t* text = node->value.rstring ? node->value.rstring : L"";
  std::wcsncpy(buffer, text, size - 1);
  buffer[size - 1] = L'\0';
  return RTNORM;
}

int GetGroupReal(const ResultBuffer* list, int code, double& value) {
  const ResultBuffer* node = FindGroupCode(list, code);
  if (!node) return RTERROR;
  value = node->value.rreal;
  return RTNORM;
}

int GetGroupEntity(const ResultBuffer* list, EntityName name) {
  const ResultBuffer* node = FindGroupCode(list, -2);
  if (!node || !name) return RTERROR;
  name[0] = node->value.rlname[0];
  name[1] = node->value.rlname[1];
  return RTNORM;
}

int SetGroupString(ResultBuffer* list, int code, const wchar_t* text) {
  ResultBuffer* node = FindGroupCode(list, code);
  if (!node || !text) return RTERROR;
  auto* copy = static_cast<wchar_t*>(qxad_malloc((std::wcslen(text) + 1) * sizeof(wchar_t)));
  if (!copy) return RTERROR;
  std::wcscpy(copy, text);
  qxad_free(node->value.rstring);
  node->value.rstring = copy;
  return RTNORM;
}

int SetGroupReal(ResultBuffer* list, int code, double value) {
  ResultBuffer* node = FindGroupCode(list, code);
  if (!node) return RTERROR;
  node->value.rreal = value;
  return RTNORM;
}

int SetGroup60(ResultBuffer* list, int value) {
  ResultBuffer* node = FindGroupCode(list, 60);
  if (!node) return RTERROR;
  node->value.rint = static_cast<std::int16_t>(value);
  return RTNORM;
}

int AppendResultBuffer(ResultBuffer*& head, ResultBuffer* node) {
  if (!head) {
    head = node;
    return RTNORM;
  }
  ResultBuffer* tail = head;
  while (tail->next) tail = tail->next;
  tail->next = node;
  return RTNORM;
}
