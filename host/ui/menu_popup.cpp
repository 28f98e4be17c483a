// Menus from the resources, and choosing from a context menu.
#include "ui/menu_popup.h"

#include <cwchar>

#include "ui/control_items.h"
#include "ui/dialog_access.h"
#include "ui/dialog_input.h"
#include "ui/dialog_resources.h"
#include "ui/dialog_show.h"

namespace korva::ui {
namespace {

unsigned shownCount = 0;

// An item's text as the user names it: without the access key's "&" and without the
// shortcut written after a tab.
std::wstring plainText(const std::wstring& text) {
  std::wstring plain;
  for (size_t index = 0; index < text.size() && text[index] != L'\t'; ++index) {
    if (text[index] == L'&' && index + 1 < text.size()) ++index;
    plain += text[index];
  }
  return plain;
}

void describeItems(const CQxUiMenu& menu, const std::wstring& indent, std::wstring& text) {
  for (const CQxUiMenu::Item& item : menu.Items()) {
    text += L"\n" + indent;
    if (item.separator) {
      text += L"----";
      continue;
    }
    if (item.popup) {
      text += quoted(plainText(item.text)) + L" >";
      describeItems(*item.popup, indent + L"  ", text);
      continue;
    }
    text += std::to_wstring(item.id) + L" " + quoted(plainText(item.text));
    if (item.grayed) text += L" disabled";
    if (item.checked) text += L" checked";
  }
}

const CQxUiMenu::Item* findByName(const CQxUiMenu& menu, const std::wstring& name) {
  wchar_t* end = nullptr;
  const unsigned long number = std::wcstoul(name.c_str(), &end, 10);
  const bool byId = !name.empty() && *end == L'\0';
  for (const CQxUiMenu::Item& item : menu.Items()) {
    if (item.popup) {
      if (const CQxUiMenu::Item* found = findByName(*item.popup, name)) return found;
      continue;
    }
    if (item.separator) continue;
    if (byId ? item.id == number : equalIgnoringCase(plainText(item.text), name)) return &item;
  }
  return nullptr;
}

std::wstring trimmed(const std::wstring& text) {
  const size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const size_t last = text.find_last_not_of(L" \t");
  return text.substr(first, last - first + 1);
}

std::wstring unquoted(const std::wstring& text) {
  if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"') {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

// The id the user chooses, 0 when the menu is closed.
unsigned choose(const CQxUiMenu& menu, CQxUiDialog& owner) {
  for (;;) {
    const std::optional<std::wstring> line = readActionLine(L"\nDialog> ");
    if (!line) return 0;
    const std::wstring action = trimmed(*line);
    if (action.empty()) continue;
    const size_t blank = action.find_first_of(L" \t");
    const std::wstring word = action.substr(0, blank);
    const std::wstring rest =
        blank == std::wstring::npos ? std::wstring() : unquoted(trimmed(action.substr(blank)));
    if (equalIgnoringCase(word, L"show")) {
      printLine(describeDialog(owner));
      printLine(L"Menu:" + describeMenu(menu));
      continue;
    }
    if (!equalIgnoringCase(word, L"menu")) {
      printLine(
          L"A context menu is open: choose an item with \"menu ID\" or close it with "
          L"\"menu cancel\".");
      continue;
    }
    if (equalIgnoringCase(rest, L"cancel")) return 0;
    const CQxUiMenu::Item* item = findByName(menu, rest);
    if (item == nullptr) {
      printLine(L"The menu has no item " + quoted(rest) + L".");
    } else if (item->grayed) {
      printLine(L"Menu item " + std::to_wstring(item->id) + L" is disabled.");
    } else {
      return item->id;
    }
  }
}

void copyItems(const std::vector<MenuItem>& from, std::vector<CQxUiMenu::Item>& to) {
  for (const MenuItem& source : from) {
    CQxUiMenu::Item item;
    item.id = source.id;
    item.text = source.text;
    item.separator = source.separator;
    item.grayed = source.grayed;
    item.checked = source.checked;
    if (!source.popup.empty()) {
      item.popup = std::make_unique<CQxUiMenu>();
      copyItems(source.popup, DialogAccess::items(*item.popup));
    }
    to.push_back(std::move(item));
  }
}

}  // namespace

unsigned popupMenusShown() {
  return shownCount;
}

std::wstring describeMenu(const CQxUiMenu& menu) {
  std::wstring text;
  describeItems(menu, L"  ", text);
  return text;
}

}  // namespace korva::ui

CQxUiMenu::CQxUiMenu() = default;
CQxUiMenu::~CQxUiMenu() = default;

bool CQxUiMenu::LoadMenu(unsigned menuId) {
  const korva::ui::MenuTemplate* found = korva::ui::findMenuTemplate(menuId);
  if (found == nullptr) return false;
  items_.clear();
  korva::ui::copyItems(found->items, items_);
  return true;
}

int CQxUiMenu::GetMenuItemCount() const {
  return static_cast<int>(items_.size());
}

unsigned CQxUiMenu::GetMenuItemID(int position) const {
  if (position < 0 || position >= GetMenuItemCount()) return 0;
  const Item& item = items_[static_cast<size_t>(position)];
  return item.separator || item.popup ? 0 : item.id;
}

CQxUiMenu* CQxUiMenu::GetSubMenu(int position) {
  if (position < 0 || position >= GetMenuItemCount()) return nullptr;
  return items_[static_cast<size_t>(position)].popup.get();
}

std::wstring CQxUiMenu::GetMenuString(unsigned id) const {
  const Item* item = Find(id);
  return item != nullptr ? item->text : std::wstring();
}

CQxUiMenu::Item* CQxUiMenu::Find(unsigned id) {
  return const_cast<Item*>(static_cast<const CQxUiMenu*>(this)->Find(id));
}

const CQxUiMenu::Item* CQxUiMenu::Find(unsigned id) const {
  for (const Item& item : items_) {
    if (item.popup) {
      if (const Item* found = item.popup->Find(id)) return found;
    } else if (!item.separator && item.id == id) {
      return &item;
    }
  }
  return nullptr;
}

bool CQxUiMenu::EnableMenuItem(unsigned id, bool enable) {
  Item* item = Find(id);
  if (item == nullptr) return false;
  item->grayed = !enable;
  return true;
}

bool CQxUiMenu::CheckMenuItem(unsigned id, bool check) {
  Item* item = Find(id);
  if (item == nullptr) return false;
  item->checked = check;
  return true;
}

bool CQxUiMenu::IsMenuItemEnabled(unsigned id) const {
  const Item* item = Find(id);
  return item != nullptr && !item->grayed;
}

bool CQxUiMenu::IsMenuItemChecked(unsigned id) const {
  const Item* item = Find(id);
  return item != nullptr && item->checked;
}

unsigned CQxUiMenu::TrackPopupMenu(QxUiPoint point, CQxUiDialog& owner, bool returnCommand) {
  ++korva::ui::shownCount;
  korva::ui::printLine(L"Menu at " + std::to_wstring(point.x) + L"," + std::to_wstring(point.y) +
                       L":" + korva::ui::describeMenu(*this));
  const unsigned chosen = korva::ui::choose(*this, owner);
  if (chosen != 0 && !returnCommand) owner.PostMessage(kQxUiMessageCommand, chosen);
  return chosen;
}
