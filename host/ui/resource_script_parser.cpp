// The statements of a resource source, dispatched by their type word.
#include "ui/resource_script_parser.h"

#include <map>

#include "api/utf8.h"
#include "ui/resource_statements.h"

namespace korva::ui {
namespace {

using Kind = ResourceToken::Kind;

class ScriptReader {
 public:
  ScriptReader(const std::vector<ResourceToken>& tokens, ResourceModule& module, std::string& error)
      : cursor_(tokens, error), module_(module) {}

  bool run() {
    while (!cursor_.atEnd()) {
      if (!statement()) return false;
    }
    return true;
  }

 private:
  bool statement() {
    const ResourceToken& first = cursor_.current();
    if (first.kind == Kind::Directive) {
      cursor_.advance();
      return cursor_.define(first);
    }
    if (cursor_.takeWord("STRINGTABLE")) return stringTable();
    if (cursor_.takeWord("LANGUAGE")) return language();
    const int line = cursor_.line();
    unsigned id = 0;
    if (!resourceId(id)) return false;
    if (cursor_.takeWord("DIALOGEX") || cursor_.takeWord("DIALOG")) {
      if (!firstDefinition(dialogLines_, id, line, "dialog")) return false;
      DialogTemplate dialog;
      dialog.id = id;
      if (!readDialogStatement(cursor_, dialog)) return false;
      module_.dialogs[id] = std::move(dialog);
      return true;
    }
    if (cursor_.takeWord("MENU")) {
      if (!firstDefinition(menuLines_, id, line, "menu")) return false;
      MenuTemplate menu;
      menu.id = id;
      if (!readMenuStatement(cursor_, menu)) return false;
      module_.menus[id] = std::move(menu);
      return true;
    }
    if (cursor_.takeWord("ICON")) {
      if (!firstDefinition(iconLines_, id, line, "icon")) return false;
      cursor_.skipMemoryOptions();
      std::wstring file;
      if (!cursor_.text(file, "the icon's file name in quotes")) return false;
      module_.icons[id] = std::move(file);
      return true;
    }
    if (cursor_.atEnd()) return cursor_.fail("expected a resource type after the id");
    return cursor_.fail("unsupported resource type " + describeToken(cursor_.current()) +
                        " (known: STRINGTABLE, DIALOGEX, DIALOG, MENU, ICON)");
  }

  bool resourceId(unsigned& id) {
    long long value = 0;
    const int line = cursor_.line();
    if (!cursor_.number(value, "a statement (STRINGTABLE, or an id and a type)")) return false;
    if (value < 0 || value > 65535) {
      return cursor_.failAt(line, "the id " + std::to_string(value) + " is not in 0-65535");
    }
    id = static_cast<unsigned>(value);
    return true;
  }

  bool firstDefinition(std::map<unsigned, int>& lines, unsigned id, int line, const char* what) {
    auto [place, added] = lines.emplace(id, line);
    if (added) return true;
    return cursor_.failAt(line, std::string(what) + " " + std::to_string(id) +
                                    " is defined twice (first on line " +
                                    std::to_string(place->second) + ")");
  }

  // LANGUAGE primary, secondary: one language per file, so it changes nothing.
  bool language() {
    long long ignored = 0;
    return cursor_.number(ignored, "a language number") &&
           cursor_.expect(Kind::Comma, "',' between the two language numbers") &&
           cursor_.number(ignored, "a sublanguage number");
  }

  bool stringTable() {
    cursor_.skipMemoryOptions();
    if (!cursor_.expect(Kind::Begin, "BEGIN after STRINGTABLE")) return false;
    while (!cursor_.take(Kind::End)) {
      if (cursor_.atEnd()) return cursor_.fail("the STRINGTABLE is never closed with END");
      const int line = cursor_.line();
      unsigned id = 0;
      if (!resourceId(id)) return false;
      cursor_.take(Kind::Comma);
      std::wstring text;
      if (!cursor_.text(text, "the string of the id in quotes")) return false;
      if (!firstDefinition(stringLines_, id, line, "string")) return false;
      module_.strings[id] = std::move(text);
    }
    return true;
  }

  ResourceScriptCursor cursor_;
  ResourceModule& module_;
  std::map<unsigned, int> stringLines_, dialogLines_, menuLines_, iconLines_;
};

}  // namespace

bool parseResourceScript(const std::vector<ResourceToken>& tokens, ResourceModule& module,
                         std::string& error) {
  error.clear();
  return ScriptReader(tokens, module, error).run();
}

}  // namespace korva::ui
