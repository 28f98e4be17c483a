// Windows and controls of the dialog layer.
//
// korva has no screen: a control is its state (text, enabling, visibility, position in
// dialog units, contents), which dialog code reads and writes as it would on a screen
// and which the dialog driver shows to the user and changes on the user's actions.
// Controls come from the dialog's template; a dialog binds its own control objects to
// template ids (CQxUiDialog::BindControl) and finds the others with GetDlgItem.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CQxUiDialog;
namespace korva::ui {
struct DialogAccess;
}

struct QxUiPoint {
  int x = 0;
  int y = 0;
};

struct QxUiRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
};

// A point packed into a message's long parameter: x in the low 16 bits, y in the next
// 16, both signed.
std::intptr_t qxuiPackPoint(QxUiPoint point);
QxUiPoint qxuiUnpackPoint(std::intptr_t packed);

enum class QxUiControlKind {
  Static,
  Edit,
  Button,
  DefaultButton,
  CheckBox,
  RadioButton,
  ListBox,
  ComboBox,
  CheckListBox,
  OwnerDrawnButton,
  GroupBox,
  Icon,
  Dialog,
};

// Styles a control takes from its template.
struct QxUiControlStyle {
  bool multipleSelection = false;  // list boxes
  bool editable = false;           // combo boxes: an edit above the list
  bool sorted = false;             // list and combo boxes keep added items in order
  bool readOnly = false;           // edits
  bool multiline = false;          // edits
  bool password = false;           // edits
  bool groupStart = false;         // the first radio button of a group
  bool notify = true;              // sends notifications to the dialog
};

// What a control tells its dialog.
enum class QxUiNotification {
  Clicked,        // a button was pressed
  DoubleClicked,  // a list line was double-clicked
  Changed,        // the text of an edit or an editable combo changed
  SetFocus,
  KillFocus,
  SelectionChanged,    // list and combo boxes
  SelectionEnded,      // a combo box line was chosen
  SelectionCancelled,  // a combo box closed without a choice
  CheckChanged,        // a check list box line was ticked or cleared
};

// Results of list and combo box operations that fail.
constexpr int kQxUiListError = -1;

// The base of dialogs and controls.
class CQxUiWnd {
 public:
  CQxUiWnd() = default;
  virtual ~CQxUiWnd();
  CQxUiWnd(const CQxUiWnd&) = delete;
  CQxUiWnd& operator=(const CQxUiWnd&) = delete;

  // Whether the control is part of a dialog that is open.
  bool IsCreated() const { return created_; }
  CQxUiDialog* GetParent() const { return parent_; }
  unsigned GetDlgCtrlID() const { return id_; }
  QxUiControlKind GetKind() const { return kind_; }
  const QxUiControlStyle& GetControlStyle() const { return style_; }

  virtual void SetWindowText(const std::wstring& text);
  virtual std::wstring GetWindowText() const;
  int GetWindowTextLength() const { return static_cast<int>(GetWindowText().size()); }

  void EnableWindow(bool enable = true) { enabled_ = enable; }
  bool IsWindowEnabled() const { return enabled_; }
  void ShowWindow(bool show) { visible_ = show; }
  bool IsWindowVisible() const { return visible_; }
  // Gives the focus to this control (within its dialog).
  void SetFocus();

  // Position and size in dialog units, a control's within its dialog's client area.
  virtual void MoveWindow(int x, int y, int width, int height);
  void MoveWindow(const QxUiRect& rect) {
    MoveWindow(rect.left, rect.top, rect.Width(), rect.Height());
  }
  // The rectangle in the parent's client area (for a dialog: on the desktop).
  QxUiRect GetPlacement() const { return rect_; }
  QxUiRect GetWindowRect() const;  // on the desktop
  QxUiRect GetClientRect() const;  // origin 0, 0
  void ClientToScreen(QxUiPoint& point) const;
  void ScreenToClient(QxUiPoint& point) const;

  // The icon of a dialog or an icon control, by resource id; 0 for none.
  void SetIcon(unsigned iconId) { icon_ = iconId; }
  unsigned GetIcon() const { return icon_; }

  // User input, as the dialog driver hands it on; points in client coordinates. By
  // default a right click asks the dialog for a context menu (message
  // kQxUiMessageContextMenu) and a double click on a list line notifies DoubleClicked.
  virtual void OnRightButtonDown(QxUiPoint point);
  virtual void OnLeftButtonDoubleClick(QxUiPoint point);
  // A notification about to go from this control to its dialog; controls that act on
  // their own notifications override it.
  virtual void OnReflectedNotification(QxUiNotification code);

 protected:
  // Called when the control joins an open dialog, after its template state was set.
  virtual void OnCreated() {}
  // Takes the contents of the control the dialog made for the same id (when a control
  // is bound to an open dialog).
  virtual void TakeContents(CQxUiWnd& from);
  // Sends a notification to the dialog (nothing when the control isn't created).
  void NotifyParent(QxUiNotification code);

 private:
  friend class CQxUiDialog;
  friend struct korva::ui::DialogAccess;

  CQxUiDialog* parent_ = nullptr;
  bool created_ = false;
  unsigned id_ = 0;
  QxUiControlKind kind_ = QxUiControlKind::Static;
  QxUiControlStyle style_;
  std::wstring text_;
  QxUiRect rect_;
  bool enabled_ = true;
  bool visible_ = true;
  unsigned icon_ = 0;
};

// Static text, group boxes and icons.
class CQxUiStatic : public CQxUiWnd {};

class CQxUiEdit : public CQxUiWnd {
 public:
  // Setting the text notifies Changed, as an edit does.
  void SetWindowText(const std::wstring& text) override;
  // The most characters the user can type; 0 gives the largest limit.
  void LimitText(int maxCharacters = 0);
  int GetLimitText() const { return limit_; }
  // The selected text: start to end; end -1 selects to the end of the text, start -1
  // removes the selection.
  void SetSel(int start, int end);
  void GetSel(int& start, int& end) const;
  void ReplaceSel(const std::wstring& text);
  void SetReadOnly(bool readOnly = true) { readOnly_ = readOnly; }
  bool IsReadOnly() const { return readOnly_; }

  static constexpr int kLargestLimit = 30000;

 protected:
  void OnCreated() override;
  void TakeContents(CQxUiWnd& from) override;

 private:
  int limit_ = kLargestLimit;
  int selectionStart_ = 0;
  int selectionEnd_ = 0;
  bool readOnly_ = false;
};

// Push, default, check, radio and owner-drawn buttons. An owner-drawn button is drawn
// by its dialog on a screen; korva has none, so nothing draws it.
class CQxUiButton : public CQxUiWnd {
 public:
  // 0 clear, 1 checked, 2 indeterminate; check boxes and radio buttons.
  int GetCheck() const { return check_; }
  void SetCheck(int state) { check_ = state; }

 protected:
  void OnCreated() override { check_ = 0; }
  void TakeContents(CQxUiWnd& from) override;

 private:
  int check_ = 0;
};

// The lines of a list or combo box.
struct QxUiListItem {
  std::wstring text;
  std::uintptr_t data = 0;
  bool selected = false;  // multiple-selection lists
  int check = 0;          // check list boxes
};

class CQxUiListBox : public CQxUiWnd {
 public:
  // Adds at the end, or in order in a sorted list; the new line's index.
  int AddString(const std::wstring& text);
  // Inserts before index (-1: at the end), never sorting; the new line's index.
  int InsertString(int index, const std::wstring& text);
  // The number of lines left, or kQxUiListError.
  int DeleteString(int index);
  void ResetContent();
  int GetCount() const { return static_cast<int>(items_.size()); }
  // The length of the line's text, or kQxUiListError for no such line.
  int GetText(int index, std::wstring& text) const;
  std::wstring GetText(int index) const;
  int GetTextLen(int index) const;
  int SetItemData(int index, std::uintptr_t data);
  std::uintptr_t GetItemData(int index) const;  // 0 for no such line
  int SetItemDataPtr(int index, void* data);
  void* GetItemDataPtr(int index) const;

  // Single selection: the selected line or -1; multiple selection: the caret line.
  int GetCurSel() const;
  // Single selection only (-1 clears); kQxUiListError in a multiple-selection list.
  int SetCurSel(int index);
  // Positive when the line is selected, 0 when not, kQxUiListError for no such line.
  int GetSel(int index) const;
  // Multiple selection: selects or clears a line, or all lines with index -1.
  int SetSel(int index, bool select = true);
  int GetSelCount() const;  // multiple selection; kQxUiListError otherwise
  int GetSelItems(int maxItems, int* indexes) const;
  std::vector<int> GetSelItems() const;
  int SelItemRange(bool select, int first, int last);
  int GetCaretIndex() const { return caret_; }
  int SetCaretIndex(int index);
  int GetTopIndex() const { return top_; }
  int SetTopIndex(int index);

  // The first line after startAfter (-1: from the top) that begins with text, or
  // equals it, letter case ignored; the search wraps around. kQxUiListError when none.
  int FindString(int startAfter, const std::wstring& text) const;
  int FindStringExact(int startAfter, const std::wstring& text) const;
  // Single selection: selects the line FindString finds.
  int SelectString(int startAfter, const std::wstring& text);

  // Lines are kItemHeight dialog units high, from the top line shown.
  static constexpr int kItemHeight = 8;
  int GetItemRect(int index, QxUiRect& rect) const;
  // The line under a point in client coordinates; outside is set when the point lies
  // below the last line.
  int ItemFromPoint(QxUiPoint point, bool& outside) const;

  // The lines as they stand, for reading.
  const std::vector<QxUiListItem>& Items() const { return items_; }

  void OnLeftButtonDoubleClick(QxUiPoint point) override;

 protected:
  void OnCreated() override { ResetContent(); }
  void TakeContents(CQxUiWnd& from) override;
  bool Valid(int index) const { return index >= 0 && index < GetCount(); }
  std::vector<QxUiListItem> items_;

 private:
  bool Multiple() const { return GetControlStyle().multipleSelection; }
  int current_ = -1;  // single selection
  int caret_ = -1;
  int top_ = 0;
};

// A list box with a check box on each line.
class CQxUiCheckListBox : public CQxUiListBox {
 public:
  // 0 clear, 1 checked, 2 indeterminate; kQxUiListError for no such line.
  int GetCheck(int index) const;
  int SetCheck(int index, int state);
};

// Drop-down lists, and editable combo boxes with an edit above the list.
class CQxUiComboBox : public CQxUiWnd {
 public:
  // The edit's text (of a drop-down list: the selected line's). Setting the text of a
  // drop-down list selects the line with that text, if any.
  void SetWindowText(const std::wstring& text) override;
  std::wstring GetWindowText() const override;

  int AddString(const std::wstring& text);
  int InsertString(int index, const std::wstring& text);
  int DeleteString(int index);
  void ResetContent();
  int GetCount() const { return static_cast<int>(items_.size()); }
  int GetLBText(int index, std::wstring& text) const;
  std::wstring GetLBText(int index) const;
  int GetLBTextLen(int index) const;
  int SetItemData(int index, std::uintptr_t data);
  std::uintptr_t GetItemData(int index) const;
  int SetItemDataPtr(int index, void* data);
  void* GetItemDataPtr(int index) const;
  int GetCurSel() const { return current_; }
  // Selects a line (-1: none) and puts its text in the edit.
  int SetCurSel(int index);
  int FindString(int startAfter, const std::wstring& text) const;
  int FindStringExact(int startAfter, const std::wstring& text) const;
  int SelectString(int startAfter, const std::wstring& text);

  // The edit of an editable combo box.
  void LimitText(int maxCharacters = 0);
  int GetLimitText() const { return limit_; }
  void SetEditSel(int start, int end);
  void GetEditSel(int& start, int& end) const;

  const std::vector<QxUiListItem>& Items() const { return items_; }

  void OnLeftButtonDoubleClick(QxUiPoint point) override;

 protected:
  void OnCreated() override;
  void TakeContents(CQxUiWnd& from) override;
  bool Valid(int index) const { return index >= 0 && index < GetCount(); }
  // The line selected before the last SetCurSel.
  int PreviousSelection() const { return previous_; }

 private:
  std::vector<QxUiListItem> items_;
  int current_ = -1;
  int previous_ = -1;
  int limit_ = CQxUiEdit::kLargestLimit;
  int selectionStart_ = 0;
  int selectionEnd_ = 0;
};

// A drop-down list of colours: ByLayer, ByBlock, the seven named colours, the colours
// used lately, and a last line that asks for any colour. Each line's item data is its
// colour index (256 ByLayer, 0 ByBlock); the last line's is kAskForColor.
class CQxUiColorComboBox : public CQxUiComboBox {
 public:
  static constexpr std::uintptr_t kAskForColor = 0xFFFF;

  // Adds a line for the colour, ahead of the last line, unless one is there; its index.
  int AddColorToMRU(int colorIndex);
  // The line of the colour, or -1.
  int FindItemByColorIndex(int colorIndex) const;
  // The colour of the selected line, or -1 when none is selected.
  int GetCurrentItemColorIndex() const;
  // Selects the colour's line, adding it first when needed.
  int SetCurrentItemColorIndex(int colorIndex);

  // Choosing the last line asks for a colour at the command line; the colour given is
  // added and selected, and without one the previous line is selected again.
  void OnReflectedNotification(QxUiNotification code) override;

 protected:
  void OnCreated() override;
  void TakeContents(CQxUiWnd& from) override;
};
