// Style words of controls and dialogs. Words that only concern drawing on a screen
// (borders, scroll bars, alignment) are known and change nothing; an unknown word is a
// fault, so that a misspelt style doesn't silently lose its meaning.
#include "ui/resource_control_styles.h"

#include <algorithm>
#include <cwctype>

namespace korva::ui {
namespace {

enum class Effect {
  None,
  MultipleSelection,
  Sorted,
  ReadOnly,
  Multiline,
  Password,
  Disabled,
  Visible,
  GroupStart,
  Notify,
  ComboWithEdit,
  ComboList,
  PushButton,
  DefaultButton,
  CheckBox,
  RadioButton,
  GroupBox,
  OwnerDrawn,
  StaticIcon,
};

struct KnownWord {
  std::wstring_view word;
  Effect effect;
};

constexpr KnownWord kKnownWords[] = {
    {L"WS_DISABLED", Effect::Disabled},
    {L"WS_VISIBLE", Effect::Visible},
    {L"WS_GROUP", Effect::GroupStart},
    {L"WS_TABSTOP", Effect::None},
    {L"WS_BORDER", Effect::None},
    {L"WS_VSCROLL", Effect::None},
    {L"WS_HSCROLL", Effect::None},
    {L"WS_CHILD", Effect::None},
    {L"WS_POPUP", Effect::None},
    {L"WS_CAPTION", Effect::None},
    {L"WS_SYSMENU", Effect::None},
    {L"WS_THICKFRAME", Effect::None},
    {L"WS_MINIMIZEBOX", Effect::None},
    {L"WS_MAXIMIZEBOX", Effect::None},
    {L"WS_CLIPSIBLINGS", Effect::None},
    {L"WS_CLIPCHILDREN", Effect::None},
    {L"WS_OVERLAPPED", Effect::None},
    {L"WS_DLGFRAME", Effect::None},
    {L"DS_MODALFRAME", Effect::None},
    {L"DS_3DLOOK", Effect::None},
    {L"DS_FIXEDSYS", Effect::None},
    {L"DS_SETFONT", Effect::None},
    {L"DS_SHELLFONT", Effect::None},
    {L"DS_CENTER", Effect::None},
    {L"DS_CONTEXTHELP", Effect::None},
    {L"ES_READONLY", Effect::ReadOnly},
    {L"ES_MULTILINE", Effect::Multiline},
    {L"ES_PASSWORD", Effect::Password},
    {L"ES_AUTOHSCROLL", Effect::None},
    {L"ES_AUTOVSCROLL", Effect::None},
    {L"ES_LEFT", Effect::None},
    {L"ES_CENTER", Effect::None},
    {L"ES_RIGHT", Effect::None},
    {L"ES_NUMBER", Effect::None},
    {L"ES_UPPERCASE", Effect::None},
    {L"ES_LOWERCASE", Effect::None},
    {L"ES_WANTRETURN", Effect::None},
    {L"ES_NOHIDESEL", Effect::None},
    {L"ES_OEMCONVERT", Effect::None},
    {L"LBS_EXTENDEDSEL", Effect::MultipleSelection},
    {L"LBS_MULTIPLESEL", Effect::MultipleSelection},
    {L"LBS_SORT", Effect::Sorted},
    {L"LBS_STANDARD", Effect::Sorted},
    {L"LBS_NOTIFY", Effect::Notify},
    {L"LBS_NOINTEGRALHEIGHT", Effect::None},
    {L"LBS_HASSTRINGS", Effect::None},
    {L"LBS_OWNERDRAWFIXED", Effect::None},
    {L"LBS_OWNERDRAWVARIABLE", Effect::None},
    {L"LBS_USETABSTOPS", Effect::None},
    {L"LBS_DISABLENOSCROLL", Effect::None},
    {L"LBS_WANTKEYBOARDINPUT", Effect::None},
    {L"LBS_MULTICOLUMN", Effect::None},
    {L"LBS_NOSEL", Effect::None},
    {L"CBS_DROPDOWN", Effect::ComboWithEdit},
    {L"CBS_SIMPLE", Effect::ComboWithEdit},
    {L"CBS_DROPDOWNLIST", Effect::ComboList},
    {L"CBS_SORT", Effect::Sorted},
    {L"CBS_AUTOHSCROLL", Effect::None},
    {L"CBS_HASSTRINGS", Effect::None},
    {L"CBS_OWNERDRAWFIXED", Effect::None},
    {L"CBS_OWNERDRAWVARIABLE", Effect::None},
    {L"CBS_DISABLENOSCROLL", Effect::None},
    {L"CBS_NOINTEGRALHEIGHT", Effect::None},
    {L"CBS_UPPERCASE", Effect::None},
    {L"CBS_LOWERCASE", Effect::None},
    {L"BS_PUSHBUTTON", Effect::PushButton},
    {L"BS_DEFPUSHBUTTON", Effect::DefaultButton},
    {L"BS_CHECKBOX", Effect::CheckBox},
    {L"BS_AUTOCHECKBOX", Effect::CheckBox},
    {L"BS_3STATE", Effect::CheckBox},
    {L"BS_AUTO3STATE", Effect::CheckBox},
    {L"BS_RADIOBUTTON", Effect::RadioButton},
    {L"BS_AUTORADIOBUTTON", Effect::RadioButton},
    {L"BS_GROUPBOX", Effect::GroupBox},
    {L"BS_OWNERDRAW", Effect::OwnerDrawn},
    {L"BS_NOTIFY", Effect::Notify},
    {L"BS_LEFT", Effect::None},
    {L"BS_RIGHT", Effect::None},
    {L"BS_CENTER", Effect::None},
    {L"BS_TOP", Effect::None},
    {L"BS_BOTTOM", Effect::None},
    {L"BS_VCENTER", Effect::None},
    {L"BS_MULTILINE", Effect::None},
    {L"BS_FLAT", Effect::None},
    {L"BS_ICON", Effect::None},
    {L"BS_BITMAP", Effect::None},
    {L"BS_LEFTTEXT", Effect::None},
    {L"BS_PUSHLIKE", Effect::None},
    {L"SS_ICON", Effect::StaticIcon},
    {L"SS_NOTIFY", Effect::Notify},
    {L"SS_LEFT", Effect::None},
    {L"SS_RIGHT", Effect::None},
    {L"SS_CENTER", Effect::None},
    {L"SS_CENTERIMAGE", Effect::None},
    {L"SS_SUNKEN", Effect::None},
    {L"SS_ETCHEDHORZ", Effect::None},
    {L"SS_ETCHEDFRAME", Effect::None},
    {L"SS_BLACKFRAME", Effect::None},
    {L"SS_REALSIZEIMAGE", Effect::None},
    {L"SS_LEFTNOWORDWRAP", Effect::None},
    {L"SS_NOPREFIX", Effect::None},
    {L"SS_ENDELLIPSIS", Effect::None},
    {L"SS_PATHELLIPSIS", Effect::None},
};

const KnownWord* findWord(std::wstring_view word) {
  for (const KnownWord& known : kKnownWords) {
    if (known.word == word) return &known;
  }
  return nullptr;
}

bool isButtonKind(ControlKind kind) {
  switch (kind) {
    case ControlKind::Button:
    case ControlKind::DefaultButton:
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::GroupBox:
    case ControlKind::OwnerDrawnButton:
      return true;
    default:
      return false;
  }
}

void refineButton(ControlKind& kind, ControlKind refined, bool negated) {
  if (!negated && isButtonKind(kind)) kind = refined;
}

bool sameTextIgnoringCase(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(
      left, right, [](wchar_t a, wchar_t b) { return std::towupper(a) == std::towupper(b); });
}

}  // namespace

bool isKnownStyleWord(std::wstring_view word) {
  // Extended styles only concern the window frame.
  return findWord(word) != nullptr || word.starts_with(L"WS_EX_");
}

bool applyControlStyles(const std::vector<StyleWord>& words, ControlKind& kind, ControlStyle& style,
                        std::wstring& unknownWord) {
  for (const StyleWord& each : words) {
    const KnownWord* known = findWord(each.word);
    if (!known) {
      if (each.word.starts_with(L"WS_EX_")) continue;
      unknownWord = each.word;
      return false;
    }
    const bool on = !each.negated;
    switch (known->effect) {
      case Effect::None:
        break;
      case Effect::MultipleSelection:
        style.multipleSelection = on;
        break;
      case Effect::Sorted:
        style.sorted = on;
        break;
      case Effect::ReadOnly:
        style.readOnly = on;
        break;
      case Effect::Multiline:
        style.multiline = on;
        break;
      case Effect::Password:
        style.password = on;
        break;
      case Effect::Disabled:
        style.disabled = on;
        break;
      case Effect::Visible:
        style.hidden = !on;
        break;
      case Effect::GroupStart:
        style.groupStart = on;
        break;
      case Effect::Notify:
        style.notify = on;
        break;
      case Effect::ComboWithEdit:
        style.editable = on;
        break;
      case Effect::ComboList:
        style.editable = !on;
        break;
      case Effect::PushButton:
        refineButton(kind, ControlKind::Button, each.negated);
        break;
      case Effect::DefaultButton:
        refineButton(kind, ControlKind::DefaultButton, each.negated);
        break;
      case Effect::CheckBox:
        refineButton(kind, ControlKind::CheckBox, each.negated);
        break;
      case Effect::RadioButton:
        refineButton(kind, ControlKind::RadioButton, each.negated);
        break;
      case Effect::GroupBox:
        refineButton(kind, ControlKind::GroupBox, each.negated);
        break;
      case Effect::OwnerDrawn:
        refineButton(kind, ControlKind::OwnerDrawnButton, each.negated);
        break;
      case Effect::StaticIcon:
        if (on && kind == ControlKind::Static) kind = ControlKind::Icon;
        break;
    }
  }
  return true;
}

bool controlKindOfClass(std::wstring_view className, ControlKind& kind) {
  struct KnownClass {
    std::wstring_view name;
    ControlKind kind;
  };
  static constexpr KnownClass kClasses[] = {
      {L"Static", ControlKind::Static},
      {L"Edit", ControlKind::Edit},
      {L"Button", ControlKind::Button},
      {L"ListBox", ControlKind::ListBox},
      {L"ComboBox", ControlKind::ComboBox},
      {L"CheckListBox", ControlKind::CheckListBox},
      {L"OwnerDrawnButton", ControlKind::OwnerDrawnButton},
  };
  for (const KnownClass& known : kClasses) {
    if (sameTextIgnoringCase(known.name, className)) {
      kind = known.kind;
      return true;
    }
  }
  return false;
}

}  // namespace korva::ui
