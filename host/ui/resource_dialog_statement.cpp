// A DIALOG or DIALOGEX statement: the frame, its options, and one control per line.
#include "api/utf8.h"
#include "ui/resource_control_styles.h"
#include "ui/resource_statements.h"

namespace korva::ui {
namespace {

using Kind = ResourceToken::Kind;

// The statements of a control and how they are written.
enum class Form {
  Captioned,  // LTEXT "text", id, x, y, w, h [, style [, extended style]]
  Plain,      // EDITTEXT id, x, y, w, h [, style [, extended style]]
  Icon,       // ICON name, id, x, y [, w, h [, style [, extended style]]]
  Control,    // CONTROL "text", id, class, style, x, y, w, h [, extended style]
};

struct ControlStatement {
  const char* word;
  Form form;
  ControlKind kind;
};

constexpr ControlStatement kStatements[] = {
    {"LTEXT", Form::Captioned, ControlKind::Static},
    {"RTEXT", Form::Captioned, ControlKind::Static},
    {"CTEXT", Form::Captioned, ControlKind::Static},
    {"PUSHBUTTON", Form::Captioned, ControlKind::Button},
    {"DEFPUSHBUTTON", Form::Captioned, ControlKind::DefaultButton},
    {"CHECKBOX", Form::Captioned, ControlKind::CheckBox},
    {"AUTOCHECKBOX", Form::Captioned, ControlKind::CheckBox},
    {"STATE3", Form::Captioned, ControlKind::CheckBox},
    {"AUTO3STATE", Form::Captioned, ControlKind::CheckBox},
    {"RADIOBUTTON", Form::Captioned, ControlKind::RadioButton},
    {"AUTORADIOBUTTON", Form::Captioned, ControlKind::RadioButton},
    {"GROUPBOX", Form::Captioned, ControlKind::GroupBox},
    {"EDITTEXT", Form::Plain, ControlKind::Edit},
    {"LISTBOX", Form::Plain, ControlKind::ListBox},
    {"COMBOBOX", Form::Plain, ControlKind::ComboBox},
    {"ICON", Form::Icon, ControlKind::Icon},
    {"CONTROL", Form::Control, ControlKind::Static},
};

bool coordinate(ResourceScriptCursor& cursor, int& value, const char* what) {
  long long number = 0;
  if (!cursor.number(number, what)) return false;
  value = static_cast<int>(number);
  return true;
}

// x, y, w, h with the commas between them.
bool rectangle(ResourceScriptCursor& cursor, int& x, int& y, int& width, int& height) {
  return coordinate(cursor, x, "the x position") &&
         cursor.expect(Kind::Comma, "',' after the x position") &&
         coordinate(cursor, y, "the y position") &&
         cursor.expect(Kind::Comma, "',' after the y position") &&
         coordinate(cursor, width, "the width") &&
         cursor.expect(Kind::Comma, "',' after the width") &&
         coordinate(cursor, height, "the height");
}

// Style words joined by "|", each perhaps behind NOT; numbers and defined names are
// taken and have no effect.
bool styleExpression(ResourceScriptCursor& cursor, std::vector<StyleWord>& words) {
  do {
    StyleWord word;
    word.negated = cursor.takeWord("NOT");
    const ResourceToken& token = cursor.current();
    if (cursor.atEnd() || (token.kind != Kind::Word && token.kind != Kind::Number)) {
      return cursor.expect(Kind::Word, "a style word");
    }
    if (token.kind == Kind::Word && !cursor.isDefinedName(token.text)) {
      word.word = token.text;
      words.push_back(std::move(word));
    }
    cursor.advance();
  } while (cursor.take(Kind::Pipe));
  return true;
}

bool applyStyles(ResourceScriptCursor& cursor, int line, const std::vector<StyleWord>& words,
                 ControlTemplate& control) {
  std::wstring unknown;
  if (applyControlStyles(words, control.kind, control.style, unknown)) return true;
  return cursor.failAt(line, "unknown style word '" + api::toUtf8(unknown) + "'");
}

// The caption of an ICON control: its icon's id as a number, or its name.
bool iconName(ResourceScriptCursor& cursor, std::wstring& caption) {
  const ResourceToken& token = cursor.current();
  if (token.kind == Kind::String) return cursor.text(caption, "the icon's name");
  if (token.kind == Kind::Number ||
      (token.kind == Kind::Word && cursor.isDefinedName(token.text))) {
    long long id = 0;
    if (!cursor.number(id, "the icon's id")) return false;
    caption = std::to_wstring(id);
    return true;
  }
  if (token.kind == Kind::Word) {
    caption = token.text;
  } else {
    return cursor.expect(Kind::String, "the icon's name");
  }
  cursor.advance();
  return true;
}

bool controlClass(ResourceScriptCursor& cursor, ControlKind& kind) {
  std::wstring className;
  const int line = cursor.line();
  if (cursor.current().kind == Kind::Word) {
    className = cursor.current().text;
    cursor.advance();
  } else if (!cursor.text(className, "the control's class")) {
    return false;
  }
  if (controlKindOfClass(className, kind)) return true;
  return cursor.failAt(line, "unknown control class '" + api::toUtf8(className) +
                                 "' (known: Static, Edit, Button, ListBox, ComboBox, "
                                 "CheckListBox, OwnerDrawnButton)");
}

bool control(ResourceScriptCursor& cursor, const ControlStatement& statement,
             ControlTemplate& control) {
  const int line = cursor.line();
  control.kind = statement.kind;
  // A combo box without a CBS_ style word is the simple kind, which has an edit.
  control.style.editable = statement.kind == ControlKind::ComboBox;
  std::vector<StyleWord> words;
  bool ok = true;
  switch (statement.form) {
    case Form::Captioned:
      ok = cursor.text(control.caption, "the control's text in quotes") &&
           cursor.expect(Kind::Comma, "',' after the text") &&
           readControlId(cursor, control.id, "the control's id") &&
           cursor.expect(Kind::Comma, "',' after the id");
      break;
    case Form::Plain:
      ok = readControlId(cursor, control.id, "the control's id") &&
           cursor.expect(Kind::Comma, "',' after the id");
      break;
    case Form::Icon:
      ok = iconName(cursor, control.caption) && cursor.expect(Kind::Comma, "',' after the icon") &&
           readControlId(cursor, control.id, "the control's id") &&
           cursor.expect(Kind::Comma, "',' after the id") &&
           coordinate(cursor, control.x, "the x position") &&
           cursor.expect(Kind::Comma, "',' after the x position") &&
           coordinate(cursor, control.y, "the y position");
      if (!ok) return false;
      if (!cursor.take(Kind::Comma)) return true;
      ok = coordinate(cursor, control.width, "the width") &&
           cursor.expect(Kind::Comma, "',' after the width") &&
           coordinate(cursor, control.height, "the height");
      break;
    case Form::Control:
      ok = cursor.text(control.caption, "the control's text in quotes") &&
           cursor.expect(Kind::Comma, "',' after the text") &&
           readControlId(cursor, control.id, "the control's id") &&
           cursor.expect(Kind::Comma, "',' after the id") && controlClass(cursor, control.kind) &&
           cursor.expect(Kind::Comma, "',' after the class") && styleExpression(cursor, words) &&
           cursor.expect(Kind::Comma, "',' after the style");
      if (ok && control.kind == ControlKind::ComboBox) control.style.editable = true;
      break;
  }
  if (!ok) return false;
  if (statement.form != Form::Icon &&
      !rectangle(cursor, control.x, control.y, control.width, control.height)) {
    return false;
  }
  if (cursor.take(Kind::Comma)) {
    if (statement.form == Form::Control) {
      std::vector<StyleWord> extended;
      if (!styleExpression(cursor, extended)) return false;
    } else {
      if (!styleExpression(cursor, words)) return false;
      std::vector<StyleWord> extended;
      if (cursor.take(Kind::Comma) && !styleExpression(cursor, extended)) return false;
    }
  }
  return applyStyles(cursor, line, words, control);
}

bool dialogStyle(ResourceScriptCursor& cursor) {
  const int line = cursor.line();
  std::vector<StyleWord> words;
  if (!styleExpression(cursor, words)) return false;
  for (const StyleWord& word : words) {
    if (!isKnownStyleWord(word.word)) {
      return cursor.failAt(line, "unknown style word '" + api::toUtf8(word.word) + "'");
    }
  }
  return true;
}

// CAPTION, STYLE, EXSTYLE, FONT, MENU, CLASS, LANGUAGE, CHARACTERISTICS, VERSION.
bool dialogOptions(ResourceScriptCursor& cursor, DialogTemplate& dialog) {
  for (;;) {
    long long ignored = 0;
    std::wstring ignoredText;
    if (cursor.takeWord("CAPTION")) {
      if (!cursor.text(dialog.title, "the caption in quotes")) return false;
    } else if (cursor.takeWord("STYLE") || cursor.takeWord("EXSTYLE")) {
      if (!dialogStyle(cursor)) return false;
    } else if (cursor.takeWord("FONT")) {
      // The font's size and name, then perhaps weight, italic and character set.
      if (!cursor.number(ignored, "the font size") ||
          !cursor.expect(Kind::Comma, "',' after the font size") ||
          !cursor.text(ignoredText, "the font name")) {
        return false;
      }
      while (cursor.take(Kind::Comma)) {
        if (!cursor.number(ignored, "a font number")) return false;
      }
    } else if (cursor.takeWord("MENU") || cursor.takeWord("CHARACTERISTICS") ||
               cursor.takeWord("VERSION")) {
      if (!cursor.number(ignored, "a number")) return false;
    } else if (cursor.takeWord("CLASS")) {
      if (!cursor.text(ignoredText, "the class name")) return false;
    } else if (cursor.takeWord("LANGUAGE")) {
      if (!cursor.number(ignored, "a language number") ||
          !cursor.expect(Kind::Comma, "',' between the language numbers") ||
          !cursor.number(ignored, "a sublanguage number")) {
        return false;
      }
    } else {
      return true;
    }
  }
}

const ControlStatement* findStatement(ResourceScriptCursor& cursor) {
  for (const ControlStatement& statement : kStatements) {
    if (cursor.isWord(statement.word)) return &statement;
  }
  return nullptr;
}

}  // namespace

bool readControlId(ResourceScriptCursor& cursor, unsigned& id, const char* what) {
  const int line = cursor.line();
  long long value = 0;
  if (!cursor.number(value, what)) return false;
  if (value == -1) value = 0xFFFF;
  if (value < 0 || value > 0xFFFF) {
    return cursor.failAt(line, "the id " + std::to_string(value) + " is not in 0-65535");
  }
  id = static_cast<unsigned>(value);
  return true;
}

bool readDialogStatement(ResourceScriptCursor& cursor, DialogTemplate& dialog) {
  cursor.skipMemoryOptions();
  if (!rectangle(cursor, dialog.x, dialog.y, dialog.width, dialog.height)) return false;
  long long helpId = 0;
  if (cursor.take(Kind::Comma) && !cursor.number(helpId, "the help id")) return false;
  if (!dialogOptions(cursor, dialog)) return false;
  if (!cursor.expect(Kind::Begin, "BEGIN (or a dialog option) before the controls")) {
    return false;
  }
  while (!cursor.take(Kind::End)) {
    if (cursor.atEnd()) return cursor.fail("the dialog is never closed with END");
    const ControlStatement* statement = findStatement(cursor);
    if (!statement) {
      return cursor.fail(
          "expected a control statement (LTEXT, EDITTEXT, PUSHBUTTON, "
          "CONTROL ...) or END, found " +
          describeToken(cursor.current()));
    }
    cursor.advance();
    ControlTemplate added;
    if (!control(cursor, *statement, added)) return false;
    dialog.controls.push_back(std::move(added));
  }
  return true;
}

}  // namespace korva::ui
