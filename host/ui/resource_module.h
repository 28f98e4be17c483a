// A module's resources, read from the human-readable resource source that stands in
// for its resource library: strings, dialog templates, menus and icons, by id.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "qx_resources.h"
#include "qx_ui_controls.h"

namespace korva::ui {

// The kinds a template's controls come in: the dialog layer's own (never Dialog).
using ControlKind = QxUiControlKind;

// Styles of a control in its template.
struct ControlStyle {
  bool multipleSelection = false;  // list boxes
  bool editable = false;           // combo boxes: drop-down with an edit, else a list
  bool sorted = false;             // list and combo boxes
  bool readOnly = false;           // edits
  bool multiline = false;          // edits
  bool password = false;           // edits
  bool disabled = false;
  bool hidden = false;
  bool groupStart = false;  // the first radio button of a group
  bool notify = true;       // sends notifications to the dialog
};

struct ControlTemplate {
  unsigned id = 0;  // 0xFFFF (65535) for controls without an id, like labels
  ControlKind kind = ControlKind::Static;
  std::wstring caption;
  int x = 0, y = 0, width = 0, height = 0;  // dialog units
  ControlStyle style;
};

struct DialogTemplate {
  unsigned id = 0;
  std::wstring title;
  int x = 0, y = 0, width = 0, height = 0;
  std::vector<ControlTemplate> controls;  // in tab order
};

struct MenuItem {
  unsigned id = 0;    // 0 for a separator or a popup
  std::wstring text;  // "&" marks the access key
  bool separator = false;
  bool grayed = false;
  bool checked = false;
  std::vector<MenuItem> popup;  // the items of a submenu
};

struct MenuTemplate {
  unsigned id = 0;
  std::vector<MenuItem> items;  // submenu n is items[n].popup
};

class ResourceModule {
 public:
  // Reads a resource source; false with a message naming the line on a fault.
  bool read(const std::filesystem::path& source, std::string& error);

  const std::filesystem::path& source() const { return source_; }
  const wchar_t* string(unsigned id) const;  // null when unknown
  const DialogTemplate* dialog(unsigned id) const;
  const MenuTemplate* menu(unsigned id) const;
  bool hasIcon(unsigned id) const;

  std::map<unsigned, std::wstring> strings;
  std::map<unsigned, DialogTemplate> dialogs;
  std::map<unsigned, MenuTemplate> menus;
  std::map<unsigned, std::wstring> icons;  // id -> file name

 private:
  std::filesystem::path source_;
};

// Loads the resource module for a library file name ("VnExtendRes.dll" reads
// "VnExtendRes.rc" from the installation folder, else beside loaded modules, else
// along the support path). Loading a name twice gives the same handle and counts a
// reference; null when no source is found or it doesn't read (korva says why on
// stderr).
QxModuleHandle loadResourceModule(const wchar_t* fileName);
// The resource module of a handle; null for a handle that isn't one (a module's own
// instance holds no resources).
const ResourceModule* resourceModuleOf(QxModuleHandle handle);
// Where dialogs and strings are looked up now: the document manager's current
// resource handle, then the resource handles of the dialog layer's extension modules.
const ResourceModule* currentResources();

}  // namespace korva::ui
