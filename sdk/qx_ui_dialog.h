// Modal dialogs of the dialog layer: the dialog class, data exchange between controls
// and fields, context menus, and the records that attach a module's resources.
//
// korva has no screen. A modal dialog reads its user's actions from the command line's
// input, one line per action ("show", "set ID TEXT", "click ID" ...; docs/DIALOGS.md),
// and every action reaches the dialog's handlers as the same action on a screen would.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "qx_resources.h"
#include "qx_ui_controls.h"
#include "qx_ui_services.h"

// Results of DoModal besides the ids a dialog ends with.
constexpr int kQxUiIdOk = 1;
constexpr int kQxUiIdCancel = 2;

// Message numbers that dialogs receive.
constexpr unsigned kQxUiMessageSize = 0x0005;  // long parameter: client width and height
constexpr unsigned kQxUiMessageClose = 0x0010;
constexpr unsigned kQxUiMessageGetMinMaxInfo = 0x0024;  // long parameter: QxUiMinMaxInfo*
constexpr unsigned kQxUiMessageHelp = 0x0053;
// Word parameter: the control's id; long parameter: the packed point on the desktop.
constexpr unsigned kQxUiMessageContextMenu = 0x007B;
// Word parameter: the key (an upper-case letter or digit); long parameter: bit 29 set
// while Alt is held. A handler that returns non-zero has taken the key.
constexpr unsigned kQxUiMessageSystemKeyDown = 0x0104;
// Word parameter: the id in the low 16 bits, the notification in the high 16.
constexpr unsigned kQxUiMessageCommand = 0x0111;
constexpr unsigned kQxUiMessageUser = 0x0400;  // a dialog's own messages start here

constexpr std::intptr_t kQxUiAltHeld = std::intptr_t{1} << 29;

// The limits a dialog gives to the user's resizing (message kQxUiMessageGetMinMaxInfo).
struct QxUiMinMaxInfo {
  QxUiPoint minTrackSize;
  QxUiPoint maxTrackSize;
};

class CQxUiDialog;

// A menu from the resources; TrackPopupMenu shows one of its submenus as a context
// menu.
class CQxUiMenu {
 public:
  CQxUiMenu();
  ~CQxUiMenu();
  CQxUiMenu(const CQxUiMenu&) = delete;
  CQxUiMenu& operator=(const CQxUiMenu&) = delete;

  // From the resources in use; false when there is no such menu.
  bool LoadMenu(unsigned menuId);
  int GetMenuItemCount() const;
  // The id of the item at a position; 0 for a separator or a submenu.
  unsigned GetMenuItemID(int position) const;
  CQxUiMenu* GetSubMenu(int position);
  std::wstring GetMenuString(unsigned id) const;  // "" when there is no such item

  // By id, in this menu and its submenus; false when there is no such item.
  bool EnableMenuItem(unsigned id, bool enable);
  bool CheckMenuItem(unsigned id, bool check);
  bool IsMenuItemEnabled(unsigned id) const;
  bool IsMenuItemChecked(unsigned id) const;

  // Shows the menu at a point on the desktop and lets the user choose an enabled item
  // ("menu ID" or "menu TEXT"; "menu cancel" closes it). Returns the id chosen, 0
  // when the menu was closed. Unless returnCommand, the choice is also posted to the
  // owner as a Clicked command of that id, as choosing an item on a screen does.
  unsigned TrackPopupMenu(QxUiPoint point, CQxUiDialog& owner, bool returnCommand = false);

  struct Item {
    unsigned id = 0;
    std::wstring text;  // "&" marks the access key
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    std::unique_ptr<CQxUiMenu> popup;
  };
  const std::vector<Item>& Items() const { return items_; }

 private:
  friend struct korva::ui::DialogAccess;
  Item* Find(unsigned id);
  const Item* Find(unsigned id) const;

  std::vector<Item> items_;
};

// One run of data exchange between a dialog's controls and its fields: saving reads
// the controls into the fields, loading writes the fields into the controls. A value
// that doesn't read shows a message box, puts the focus on its control and fails the
// exchange; the exchanges after it do nothing.
class CQxUiDataExchange {
 public:
  CQxUiDataExchange(CQxUiDialog& dialog, bool saveAndValidate);

  bool IsSaving() const { return saving_; }
  bool Failed() const { return failed_; }
  CQxUiDialog& Dialog() const { return dialog_; }

  void Text(unsigned id, std::wstring& value);
  void Text(unsigned id, int& value);
  void Text(unsigned id, double& value);
  // Check boxes: 0, 1 or 2.
  void Check(unsigned id, int& value);
  // A group of radio buttons from firstId to the next group start: the index of the
  // checked one, -1 for none.
  void Radio(unsigned firstId, int& index);
  void ComboIndex(unsigned id, int& index);
  void ComboText(unsigned id, std::wstring& value);
  void ListIndex(unsigned id, int& index);
  void ListText(unsigned id, std::wstring& value);
  // Binds a control object to the id (as CQxUiDialog::BindControl), on loading.
  void Control(unsigned id, CQxUiWnd& control);
  // Fails the exchange with a message about the control.
  void Fail(unsigned id, const std::wstring& message);

 private:
  CQxUiWnd* Find(unsigned id);

  CQxUiDialog& dialog_;
  bool saving_;
  bool failed_ = false;
};

class CQxUiDialog : public CQxUiWnd {
 public:
  using CommandHandler = std::function<void()>;
  using RangeHandler = std::function<void(unsigned id)>;
  using MessageHandler =
      std::function<std::intptr_t(std::uintptr_t wordParameter, std::intptr_t longParameter)>;

  // templateId: the dialog template in the resources in use when DoModal runs.
  explicit CQxUiDialog(unsigned templateId, CQxUiWnd* parent = nullptr);
  ~CQxUiDialog() override;

  unsigned GetTemplateId() const;
  CQxUiWnd* GetParentWindow() const;

  // Runs the dialog until EndDialog: kQxUiIdOk, kQxUiIdCancel or the id it ended with;
  // -1 when the template isn't in the resources. The end of the input cancels it.
  virtual int DoModal();
  void EndDialog(int result);

  // OnInitDialog loads the fields into the controls; true gives the focus to the first
  // control that takes it. OnOK saves them and ends with kQxUiIdOk when they read.
  // OnCancel ends with kQxUiIdCancel.
  virtual bool OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();
  virtual void DoDataExchange(CQxUiDataExchange& exchange);
  // False when a saved value didn't read.
  bool UpdateData(bool saveAndValidate = true);

  // Controls, by template id. A control object bound to an id before DoModal (or
  // during it: it takes over the state of the one the dialog made) is the control of
  // that id; other controls are made by the dialog, of the class for their kind.
  CQxUiWnd* GetDlgItem(unsigned id) const;
  void BindControl(unsigned id, CQxUiWnd& control);
  // All controls in template order, labels without an id included.
  std::vector<CQxUiWnd*> GetControls() const;

  void SetDlgItemText(unsigned id, const std::wstring& text);
  std::wstring GetDlgItemText(unsigned id) const;
  void SetDlgItemInt(unsigned id, int value);
  int GetDlgItemInt(unsigned id, bool* translated = nullptr) const;
  void CheckDlgButton(unsigned id, int state);
  int IsDlgButtonChecked(unsigned id) const;
  // Checks checkedId and clears the other radio buttons from firstId to lastId.
  void CheckRadioButton(unsigned firstId, unsigned lastId, unsigned checkedId);
  // The checked radio button from firstId to lastId, 0 for none.
  unsigned GetCheckedRadioButton(unsigned firstId, unsigned lastId) const;

  CQxUiWnd* GetFocus() const;
  // Focus to the control; an edit's text is selected, as tabbing to it does.
  void GotoDlgCtrl(CQxUiWnd* control);
  void SetDefID(unsigned id);
  unsigned GetDefID() const;
  // Centres the dialog on its parent, or on the desktop.
  void CenterWindow();
  // A dialog that moves sends itself kQxUiMessageSize when its size changed.
  using CQxUiWnd::MoveWindow;
  void MoveWindow(int x, int y, int width, int height) override;

  // Handlers: a command of a control (a notification from it, or a menu choice as
  // Clicked), of a range of ids, and messages by number. A later registration for the
  // same command or message replaces the earlier one. Clicked of kQxUiIdOk and
  // kQxUiIdCancel go to OnOK and OnCancel unless a handler is registered.
  void HandleCommand(unsigned id, QxUiNotification code, CommandHandler handler);
  void HandleCommandRange(unsigned firstId, unsigned lastId, QxUiNotification code,
                          RangeHandler handler);
  void HandleMessage(unsigned message, MessageHandler handler);

  // Handles a message now; 0 when nothing handles it.
  std::intptr_t SendMessage(unsigned message, std::uintptr_t wordParameter = 0,
                            std::intptr_t longParameter = 0);
  // Queues a message; the dialog handles it after the action at hand.
  void PostMessage(unsigned message, std::uintptr_t wordParameter = 0,
                   std::intptr_t longParameter = 0);
  // A control's notification, or a command, as the control would send it.
  void SendCommand(unsigned id, QxUiNotification code);

 private:
  friend struct korva::ui::DialogAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// A dialog that lets the user select in the drawing: BeginEditorCommand hides it while
// the command line asks (the prompts read the input as usual); CompleteEditorCommand
// and CancelEditorCommand bring it back.
class CHyUiBaseDialog : public CQxUiDialog {
 public:
  using CQxUiDialog::CQxUiDialog;

  void BeginEditorCommand();
  void CompleteEditorCommand(bool restoreDialogs = true);
  void CancelEditorCommand();
  bool IsEditorCommandActive() const { return editorCommand_; }

 private:
  bool editorCommand_ = false;
};

// The dialog layer's record of an extension module: the module's own instance and the
// resource module its dialogs and strings come from.
struct QxUiExtensionModule {
  bool initialized = false;
  QxModuleHandle instance = nullptr;
  QxModuleHandle resources = nullptr;
};

// Fills the record for the module's instance; false for a null instance or a record
// already initialised.
bool qxuiInitExtensionModule(QxUiExtensionModule& module, QxModuleHandle instance);
// Deletes the module's library records and clears the record.
void qxuiTermExtensionModule(QxUiExtensionModule& module);

// While it lives, the dialog layer looks for templates, menus and strings in the
// module's resources (in the override, when one is given) after those in use. Made
// with new; qxuiTermExtensionModule deletes the records of its module.
class CQxUiDynamicLinkLibrary {
 public:
  explicit CQxUiDynamicLinkLibrary(QxUiExtensionModule& module,
                                   QxModuleHandle resourceOverride = nullptr);
  ~CQxUiDynamicLinkLibrary();
  CQxUiDynamicLinkLibrary(const CQxUiDynamicLinkLibrary&) = delete;
  CQxUiDynamicLinkLibrary& operator=(const CQxUiDynamicLinkLibrary&) = delete;

  const QxUiExtensionModule& Module() const { return module_; }
  QxModuleHandle Resources() const;

 private:
  QxUiExtensionModule& module_;
  QxModuleHandle override_;
};
