// A MENU statement: POPUP, MENUITEM and MENUITEM SEPARATOR, nested to any depth.
#include "ui/resource_statements.h"

namespace korva::ui {
namespace {

using Kind = ResourceToken::Kind;

// GRAYED, CHECKED and the others, with or without commas between them. INACTIVE
// items can't be chosen either, so they count as grayed.
void itemOptions(ResourceScriptCursor& cursor, MenuItem& item) {
  for (;;) {
    cursor.take(Kind::Comma);
    if (cursor.takeWord("GRAYED") || cursor.takeWord("INACTIVE")) {
      item.grayed = true;
    } else if (cursor.takeWord("CHECKED")) {
      item.checked = true;
    } else if (!cursor.takeWord("MENUBARBREAK") && !cursor.takeWord("MENUBREAK") &&
               !cursor.takeWord("HELP")) {
      return;
    }
  }
}

bool menuItems(ResourceScriptCursor& cursor, std::vector<MenuItem>& items) {
  if (!cursor.expect(Kind::Begin, "BEGIN before the menu's items")) return false;
  while (!cursor.take(Kind::End)) {
    if (cursor.atEnd()) return cursor.fail("the menu is never closed with END");
    MenuItem item;
    if (cursor.takeWord("POPUP")) {
      if (!cursor.text(item.text, "the popup's text in quotes")) return false;
      itemOptions(cursor, item);
      if (!menuItems(cursor, item.popup)) return false;
    } else if (cursor.takeWord("MENUITEM")) {
      if (cursor.takeWord("SEPARATOR")) {
        item.separator = true;
      } else {
        if (!cursor.text(item.text, "the item's text in quotes") ||
            !cursor.expect(Kind::Comma, "',' after the item's text") ||
            !readControlId(cursor, item.id, "the item's id")) {
          return false;
        }
        itemOptions(cursor, item);
      }
    } else {
      return cursor.fail("expected POPUP, MENUITEM or END, found " +
                         describeToken(cursor.current()));
    }
    items.push_back(std::move(item));
  }
  return true;
}

}  // namespace

bool readMenuStatement(ResourceScriptCursor& cursor, MenuTemplate& menu) {
  cursor.skipMemoryOptions();
  return menuItems(cursor, menu.items);
}

}  // namespace korva::ui
