// The platform's controls: inline calls over their messages. Texts are Shift_JIS, also those of the structures, which
// are those of the 8-bit form; the controls get them in wide form, whatever the system's own code page is.
//
// Each control comes twice. `CListCtrl` and its like are objects (CWnd): they create, subclass, and have rows.
// `ListCtrlRef` and its like are bare handles with the same calls, for a control that somebody else owns:
//
//   ListCtrlRef list(::GetDlgItem(m_hWnd, 10010));
//   list.DeleteAllItems();
#pragma once

#include "platform/framework/gdi.h"
#include "platform/framework/wnd.h"

/// Labels, frames and pictures.
template <class Base>
class StaticCalls : public Base {
 public:
  using Base::Base;

  /// Shows an icon, or a bitmap, that stays the caller's; returns the former one.
  HICON SetIcon(HICON icon) const { return reinterpret_cast<HICON>(this->SendPointer(STM_SETIMAGE, IMAGE_ICON, icon)); }
  HBITMAP SetBitmap(HBITMAP bitmap) const {
    return reinterpret_cast<HBITMAP>(this->SendPointer(STM_SETIMAGE, IMAGE_BITMAP, bitmap));
  }
};

template <class Base>
class ButtonCalls : public Base {
 public:
  using Base::Base;

  /// BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
  [[nodiscard]] int GetCheck() const { return static_cast<int>(this->Send(BM_GETCHECK)); }
  void SetCheck(int state) const { this->Send(BM_SETCHECK, static_cast<WPARAM>(state)); }
  [[nodiscard]] UINT GetState() const { return static_cast<UINT>(this->Send(BM_GETSTATE)); }
  void SetButtonStyle(UINT style, BOOL redraw = TRUE) const { this->Send(BM_SETSTYLE, style, redraw); }
  void Click() const { this->Send(BM_CLICK); }
  /// The picture stays the caller's; returns the former one.
  HICON SetIcon(HICON icon) const { return reinterpret_cast<HICON>(this->SendPointer(BM_SETIMAGE, IMAGE_ICON, icon)); }
  HBITMAP SetBitmap(HBITMAP bitmap) const {
    return reinterpret_cast<HBITMAP>(this->SendPointer(BM_SETIMAGE, IMAGE_BITMAP, bitmap));
  }
};

/// An edit control counts characters, not bytes, in positions, lengths and its limit.
template <class Base>
class EditCalls : public Base {
 public:
  using Base::Base;

  /// 0, -1 selects all; -1, -1 nothing.
  void SetSel(int start, int end) const {
    this->Send(EM_SETSEL, static_cast<WPARAM>(static_cast<INT_PTR>(start)), end);
  }
  void GetSel(int* start, int* end) const {
    DWORD first = 0;
    DWORD last = 0;
    this->SendPointer(EM_GETSEL, reinterpret_cast<WPARAM>(&first), &last);
    *start = static_cast<int>(first);
    *end = static_cast<int>(last);
  }
  void ReplaceSel(const char* text, BOOL canUndo = FALSE) const {
    this->SendPointer(EM_REPLACESEL, static_cast<WPARAM>(canUndo), text);
  }
  void LimitText(UINT limit) const { this->Send(EM_LIMITTEXT, limit); }
  [[nodiscard]] UINT GetLimitText() const { return static_cast<UINT>(this->Send(EM_GETLIMITTEXT)); }
  void SetReadOnly(BOOL readOnly = TRUE) const { this->Send(EM_SETREADONLY, static_cast<WPARAM>(readOnly)); }
  [[nodiscard]] BOOL GetModify() const { return this->Send(EM_GETMODIFY) != 0; }
  void SetModify(BOOL modified = TRUE) const { this->Send(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
  [[nodiscard]] int GetLineCount() const { return static_cast<int>(this->Send(EM_GETLINECOUNT)); }
  [[nodiscard]] int LineIndex(int line = -1) const { return static_cast<int>(this->Send(EM_LINEINDEX, Wide(line))); }
  [[nodiscard]] int LineLength(int position = -1) const {
    return static_cast<int>(this->Send(EM_LINELENGTH, Wide(position)));
  }
  /// Copies at most `size` bytes of a line, without a terminator; returns the bytes copied. Nothing for a size below 2.
  int GetLine(int line, char* buffer, int size) const {
    if (size < static_cast<int>(sizeof(WORD))) return 0;
    const auto room = static_cast<WORD>(size < 0xFFFF ? size : 0xFFFF);
    std::memcpy(buffer, &room, sizeof room);
    return static_cast<int>(this->SendPointer(EM_GETLINE, Wide(line), buffer));
  }
  void ScrollCaret() const { this->Send(EM_SCROLLCARET); }
  void Copy() const { this->Send(WM_COPY); }
  void Cut() const { this->Send(WM_CUT); }
  void Paste() const { this->Send(WM_PASTE); }
  void Clear() const { this->Send(WM_CLEAR); }

 private:
  [[nodiscard]] static WPARAM Wide(int value) { return static_cast<WPARAM>(static_cast<INT_PTR>(value)); }
};

/// Indices are from 0; -1 is no entry. Calls answer CB_ERR (-1) for an index outside.
template <class Base>
class ComboBoxCalls : public Base {
 public:
  using Base::Base;

  void ResetContent() const { this->Send(CB_RESETCONTENT); }
  int AddString(const char* text) const { return static_cast<int>(this->SendPointer(CB_ADDSTRING, 0, text)); }
  int InsertString(int index, const char* text) const {
    return static_cast<int>(this->SendPointer(CB_INSERTSTRING, Wide(index), text));
  }
  int DeleteString(int index) const { return static_cast<int>(this->Send(CB_DELETESTRING, Wide(index))); }
  [[nodiscard]] int GetCount() const { return static_cast<int>(this->Send(CB_GETCOUNT)); }
  [[nodiscard]] int GetCurSel() const { return static_cast<int>(this->Send(CB_GETCURSEL)); }
  int SetCurSel(int index) const { return static_cast<int>(this->Send(CB_SETCURSEL, Wide(index))); }
  /// Bytes of the entry's text.
  [[nodiscard]] int GetLBTextLen(int index) const { return static_cast<int>(this->Send(CB_GETLBTEXTLEN, Wide(index))); }
  /// The entry's text; empty, and the text stays empty, for an index outside.
  void GetLBText(int index, CString& text) const {
    text.Empty();
    const int length = GetLBTextLen(index);
    if (length < 0) return;
    std::vector<char> buffer(static_cast<std::size_t>(length) + 1, '\0');
    this->SendPointer(CB_GETLBTEXT, Wide(index), buffer.data());
    text = buffer.data();
  }
  [[nodiscard]] int FindString(int startAfter, const char* text) const {
    return static_cast<int>(this->SendPointer(CB_FINDSTRING, Wide(startAfter), text));
  }
  [[nodiscard]] int FindStringExact(int startAfter, const char* text) const {
    return static_cast<int>(this->SendPointer(CB_FINDSTRINGEXACT, Wide(startAfter), text));
  }
  int SelectString(int startAfter, const char* text) const {
    return static_cast<int>(this->SendPointer(CB_SELECTSTRING, Wide(startAfter), text));
  }
  [[nodiscard]] DWORD_PTR GetItemData(int index) const {
    return static_cast<DWORD_PTR>(this->Send(CB_GETITEMDATA, Wide(index)));
  }
  int SetItemData(int index, DWORD_PTR data) const {
    return static_cast<int>(this->Send(CB_SETITEMDATA, Wide(index), static_cast<LPARAM>(data)));
  }
  void ShowDropDown(BOOL show = TRUE) const { this->Send(CB_SHOWDROPDOWN, static_cast<WPARAM>(show)); }
  [[nodiscard]] BOOL GetDroppedState() const { return this->Send(CB_GETDROPPEDSTATE) != 0; }
  int SetDroppedWidth(UINT width) const { return static_cast<int>(this->Send(CB_SETDROPPEDWIDTH, width)); }
  void GetDroppedControlRect(RECT* rect) const { this->SendPointer(CB_GETDROPPEDCONTROLRECT, 0, rect); }
  /// Of the edit field, in characters; 0 for no limit.
  BOOL LimitText(int limit) const { return this->Send(CB_LIMITTEXT, Wide(limit)) != 0; }
  BOOL SetEditSel(int start, int end) const { return this->Send(CB_SETEDITSEL, 0, MAKELPARAM(start, end)) != 0; }
  /// Pixels; `index` -1 is the closed combo's face.
  int SetItemHeight(int index, UINT height) const {
    return static_cast<int>(this->Send(CB_SETITEMHEIGHT, Wide(index), static_cast<LPARAM>(height)));
  }
  [[nodiscard]] int GetItemHeight(int index) const {
    return static_cast<int>(this->Send(CB_GETITEMHEIGHT, Wide(index)));
  }
  int SetTopIndex(int index) const { return static_cast<int>(this->Send(CB_SETTOPINDEX, Wide(index))); }

 private:
  [[nodiscard]] static WPARAM Wide(int value) { return static_cast<WPARAM>(static_cast<INT_PTR>(value)); }
};

template <class Base>
class ListBoxCalls : public Base {
 public:
  using Base::Base;

  void ResetContent() const { this->Send(LB_RESETCONTENT); }
  int AddString(const char* text) const { return static_cast<int>(this->SendPointer(LB_ADDSTRING, 0, text)); }
  int InsertString(int index, const char* text) const {
    return static_cast<int>(this->SendPointer(LB_INSERTSTRING, Wide(index), text));
  }
  int DeleteString(int index) const { return static_cast<int>(this->Send(LB_DELETESTRING, Wide(index))); }
  [[nodiscard]] int GetCount() const { return static_cast<int>(this->Send(LB_GETCOUNT)); }
  [[nodiscard]] int GetCurSel() const { return static_cast<int>(this->Send(LB_GETCURSEL)); }
  int SetCurSel(int index) const { return static_cast<int>(this->Send(LB_SETCURSEL, Wide(index))); }
  void GetText(int index, CString& text) const {
    text.Empty();
    const auto length = this->Send(LB_GETTEXTLEN, Wide(index));
    if (length < 0) return;
    std::vector<char> buffer(static_cast<std::size_t>(length) + 1, '\0');
    this->SendPointer(LB_GETTEXT, Wide(index), buffer.data());
    text = buffer.data();
  }
  int SetItemHeight(int index, UINT height) const {
    return static_cast<int>(this->Send(LB_SETITEMHEIGHT, Wide(index), static_cast<LPARAM>(height)));
  }
  [[nodiscard]] int GetItemHeight(int index) const {
    return static_cast<int>(this->Send(LB_GETITEMHEIGHT, Wide(index)));
  }

 private:
  [[nodiscard]] static WPARAM Wide(int value) { return static_cast<WPARAM>(static_cast<INT_PTR>(value)); }
};

template <class Base>
class HeaderCalls : public Base {
 public:
  using Base::Base;

  [[nodiscard]] int GetItemCount() const { return static_cast<int>(this->Send(HDM_GETITEMCOUNT)); }
  BOOL GetItem(int index, HDITEMA* item) const {
    return framework::SendHeaderItem(this->m_hWnd, HDM_GETITEMW, static_cast<WPARAM>(index), item) != 0;
  }
  BOOL SetItem(int index, const HDITEMA* item) const {
    return framework::SendHeaderItem(this->m_hWnd, HDM_SETITEMW, static_cast<WPARAM>(index),
                                     const_cast<HDITEMA*>(item)) != 0;
  }
  BOOL GetItemRect(int index, RECT* rect) const {
    return this->SendPointer(HDM_GETITEMRECT, static_cast<WPARAM>(index), rect) != 0;
  }
  /// The images stay the caller's; returns the former ones.
  HIMAGELIST SetImageList(HIMAGELIST images) const {
    return reinterpret_cast<HIMAGELIST>(this->SendPointer(HDM_SETIMAGELIST, 0, images));
  }
};

using HeaderRef = HeaderCalls<WindowRef>;
using EditRef = EditCalls<WindowRef>;

/// Rows and columns are from 0; -1 is none. Sizes are pixels.
template <class Base>
class ListCtrlCalls : public Base {
 public:
  using Base::Base;

  // --- columns
  /// Returns the new column's index.
  int InsertColumn(int column, const LVCOLUMNA* data) const {
    return static_cast<int>(
        framework::SendListColumn(this->m_hWnd, LVM_INSERTCOLUMNW, Wide(column), const_cast<LVCOLUMNA*>(data)));
  }
  /// A `subItem` of -1 is the column itself; a `width` of -1 leaves it to the control.
  int InsertColumn(int column, const char* title, int format = LVCFMT_LEFT, int width = -1, int subItem = -1) const {
    LVCOLUMNA data{};
    data.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM | (width >= 0 ? static_cast<UINT>(LVCF_WIDTH) : 0U);
    data.fmt = format;
    data.cx = width;
    data.pszText = const_cast<char*>(title);
    data.iSubItem = subItem >= 0 ? subItem : column;
    return InsertColumn(column, &data);
  }
  BOOL DeleteColumn(int column) const { return this->Send(LVM_DELETECOLUMN, Wide(column)) != 0; }
  BOOL GetColumn(int column, LVCOLUMNA* data) const {
    return framework::SendListColumn(this->m_hWnd, LVM_GETCOLUMNW, Wide(column), data) != 0;
  }
  BOOL SetColumn(int column, const LVCOLUMNA* data) const {
    return framework::SendListColumn(this->m_hWnd, LVM_SETCOLUMNW, Wide(column), const_cast<LVCOLUMNA*>(data)) != 0;
  }
  [[nodiscard]] int GetColumnWidth(int column) const {
    return static_cast<int>(this->Send(LVM_GETCOLUMNWIDTH, Wide(column)));
  }
  BOOL SetColumnWidth(int column, int width) const {
    return this->Send(LVM_SETCOLUMNWIDTH, Wide(column), MAKELPARAM(width, 0)) != 0;
  }
  [[nodiscard]] HeaderRef GetHeaderCtrl() const { return HeaderRef(reinterpret_cast<HWND>(this->Send(LVM_GETHEADER))); }

  // --- items
  [[nodiscard]] int GetItemCount() const { return static_cast<int>(this->Send(LVM_GETITEMCOUNT)); }
  /// Room for `count` items; for a list with owner data the count itself, with LVSICF_ `flags`.
  void SetItemCount(int count, DWORD flags = 0) const {
    this->Send(LVM_SETITEMCOUNT, Wide(count), static_cast<LPARAM>(flags));
  }
  /// Returns the new item's index, -1 when it cannot be inserted.
  int InsertItem(const LVITEMA* item) const {
    return static_cast<int>(framework::SendListItem(this->m_hWnd, LVM_INSERTITEMW, 0, const_cast<LVITEMA*>(item)));
  }
  int InsertItem(int index, const char* text) const {
    LVITEMA item{};
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.pszText = const_cast<char*>(text);
    return InsertItem(&item);
  }
  int InsertItem(int index, const char* text, int image) const {
    LVITEMA item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = index;
    item.pszText = const_cast<char*>(text);
    item.iImage = image;
    return InsertItem(&item);
  }
  BOOL DeleteItem(int index) const { return this->Send(LVM_DELETEITEM, Wide(index)) != 0; }
  BOOL DeleteAllItems() const { return this->Send(LVM_DELETEALLITEMS) != 0; }
  BOOL GetItem(LVITEMA* item) const { return framework::SendListItem(this->m_hWnd, LVM_GETITEMW, 0, item) != 0; }
  BOOL SetItem(const LVITEMA* item) const {
    return framework::SendListItem(this->m_hWnd, LVM_SETITEMW, 0, const_cast<LVITEMA*>(item)) != 0;
  }
  BOOL SetItemText(int index, int subItem, const char* text) const {
    LVITEMA item{};
    item.iSubItem = subItem;
    item.pszText = const_cast<char*>(text);
    return framework::SendListItem(this->m_hWnd, LVM_SETITEMTEXTW, Wide(index), &item) != 0;
  }
  /// Copies at most `size` - 1 bytes, whole characters, and a terminator; returns the bytes copied.
  int GetItemText(int index, int subItem, char* buffer, int size) const {
    if (size < 1) return 0;
    buffer[0] = '\0';
    LVITEMA item{};
    item.iSubItem = subItem;
    item.pszText = buffer;
    item.cchTextMax = size;
    framework::SendListItem(this->m_hWnd, LVM_GETITEMTEXTW, Wide(index), &item);
    return static_cast<int>(std::strlen(buffer));
  }
  /// The whole text, of any length.
  [[nodiscard]] CString GetItemText(int index, int subItem) const {
    for (std::size_t size = 512;; size *= 2) {
      std::vector<char> buffer(size, '\0');
      const int copied = GetItemText(index, subItem, buffer.data(), static_cast<int>(size));
      // Half a two-byte character may be missing at the end of a text that was cut.
      if (static_cast<std::size_t>(copied) + 2 < size || size > kLongestText) return CString(buffer.data());
    }
  }
  [[nodiscard]] DWORD_PTR GetItemData(int index) const {
    LVITEMA item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
  }
  BOOL SetItemData(int index, DWORD_PTR data) const {
    LVITEMA item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    item.lParam = static_cast<LPARAM>(data);
    return SetItem(&item);
  }

  // --- states and selection
  BOOL SetItemState(int index, UINT state, UINT mask) const {
    LVITEMA item{};
    item.state = state;
    item.stateMask = mask;
    return this->SendPointer(LVM_SETITEMSTATE, Wide(index), &item) != 0;
  }
  [[nodiscard]] UINT GetItemState(int index, UINT mask) const {
    return static_cast<UINT>(this->Send(LVM_GETITEMSTATE, Wide(index), static_cast<LPARAM>(mask)));
  }
  /// The next item behind `index` (-1: from the start) with the LVNI_ `flags`; -1 for none, and for a list without a
  /// window: what is sent to no window is answered with 0, and a walk from item to item would never end.
  [[nodiscard]] int GetNextItem(int index, UINT flags) const {
    if (!this->IsWindow()) return -1;
    return static_cast<int>(this->Send(LVM_GETNEXTITEM, Wide(index), static_cast<LPARAM>(flags)));
  }
  [[nodiscard]] int GetSelectedCount() const { return static_cast<int>(this->Send(LVM_GETSELECTEDCOUNT)); }
  int HitTest(LVHITTESTINFO* hit) const { return static_cast<int>(this->SendPointer(LVM_HITTEST, 0, hit)); }
  int SubItemHitTest(LVHITTESTINFO* hit) const {
    return static_cast<int>(this->SendPointer(LVM_SUBITEMHITTEST, 0, hit));
  }

  // --- places
  /// `part` is an LVIR_ value.
  BOOL GetItemRect(int index, RECT* rect, UINT part) const {
    rect->left = static_cast<LONG>(part);
    return this->SendPointer(LVM_GETITEMRECT, Wide(index), rect) != 0;
  }
  BOOL GetSubItemRect(int index, int subItem, UINT part, RECT* rect) const {
    rect->left = static_cast<LONG>(part);
    rect->top = subItem;
    return this->SendPointer(LVM_GETSUBITEMRECT, Wide(index), rect) != 0;
  }
  [[nodiscard]] int GetTopIndex() const { return static_cast<int>(this->Send(LVM_GETTOPINDEX)); }
  [[nodiscard]] int GetCountPerPage() const { return static_cast<int>(this->Send(LVM_GETCOUNTPERPAGE)); }
  BOOL EnsureVisible(int index, BOOL partialIsEnough) const {
    return this->Send(LVM_ENSUREVISIBLE, Wide(index), MAKELPARAM(partialIsEnough, 0)) != 0;
  }
  /// By pixels; report views round the vertical distance to rows.
  BOOL Scroll(int dx, int dy) const { return this->Send(LVM_SCROLL, Wide(dx), dy) != 0; }
  BOOL Arrange(UINT how) const { return this->Send(LVM_ARRANGE, how) != 0; }
  [[nodiscard]] int GetStringWidth(const char* text) const {
    return static_cast<int>(framework::SendPlainText(this->m_hWnd, LVM_GETSTRINGWIDTHW, 0, text));
  }
  BOOL RedrawItems(int first, int last) const { return this->Send(LVM_REDRAWITEMS, Wide(first), last) != 0; }
  BOOL Update(int index) const { return this->Send(LVM_UPDATE, Wide(index)) != 0; }

  // --- looks and labels
  /// Sets the LVS_EX_ bits under `mask`, all of them for a mask of 0; returns the former style.
  DWORD SetExtendedStyle(DWORD style, DWORD mask = 0) const {
    return static_cast<DWORD>(this->Send(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, static_cast<LPARAM>(style)));
  }
  [[nodiscard]] DWORD GetExtendedStyle() const { return static_cast<DWORD>(this->Send(LVM_GETEXTENDEDLISTVIEWSTYLE)); }
  /// `which` is an LVSIL_ value. The control destroys its images unless it has LVS_SHAREIMAGELISTS; returns the former
  /// ones.
  HIMAGELIST SetImageList(HIMAGELIST images, int which) const {
    return reinterpret_cast<HIMAGELIST>(this->SendPointer(LVM_SETIMAGELIST, Wide(which), images));
  }
  [[nodiscard]] HIMAGELIST GetImageList(int which) const {
    return reinterpret_cast<HIMAGELIST>(this->Send(LVM_GETIMAGELIST, Wide(which)));
  }
  BOOL SetBkColor(COLORREF colour) const { return this->Send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(colour)) != 0; }
  BOOL SetTextColor(COLORREF colour) const { return this->Send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(colour)) != 0; }
  BOOL SetTextBkColor(COLORREF colour) const {
    return this->Send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(colour)) != 0;
  }
  /// Starts editing an item's label in place; the control must have the focus. The editor belongs to the list.
  EditRef EditLabel(int index) const {
    return EditRef(reinterpret_cast<HWND>(this->Send(LVM_EDITLABELW, Wide(index))));
  }
  /// The editor of the label; null when none is edited.
  [[nodiscard]] EditRef GetEditControl() const {
    return EditRef(reinterpret_cast<HWND>(this->Send(LVM_GETEDITCONTROL)));
  }

 private:
  static constexpr std::size_t kLongestText = 1U << 20;

  [[nodiscard]] static WPARAM Wide(int value) { return static_cast<WPARAM>(static_cast<INT_PTR>(value)); }
};

template <class Base>
class ToolBarCalls : public Base {
 public:
  using Base::Base;

  /// Tells the control which version of its structures is used; before any button is added.
  void SetButtonStructSize() const { this->Send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON)); }
  BOOL AddButtons(int count, const TBBUTTON* buttons) const {
    return framework::SendButtons(this->m_hWnd, TB_ADDBUTTONSW, static_cast<WPARAM>(count), buttons) != 0;
  }
  /// Adds `count` images of a bitmap resource of `module`; returns the index of the first, -1 on failure.
  int AddBitmap(int count, UINT bitmapId, HINSTANCE module) const {
    const TBADDBITMAP images{module, bitmapId};
    return static_cast<int>(this->SendPointer(TB_ADDBITMAP, static_cast<WPARAM>(count), &images));
  }
  /// The same from a bitmap, which must live as long as the control.
  int AddBitmap(int count, HBITMAP bitmap) const {
    const TBADDBITMAP images{nullptr, reinterpret_cast<UINT_PTR>(bitmap)};
    return static_cast<int>(this->SendPointer(TB_ADDBITMAP, static_cast<WPARAM>(count), &images));
  }
  [[nodiscard]] int GetButtonCount() const { return static_cast<int>(this->Send(TB_BUTTONCOUNT)); }
  BOOL GetButton(int index, TBBUTTON* button) const {
    return this->SendPointer(TB_GETBUTTON, static_cast<WPARAM>(index), button) != 0;
  }
  BOOL GetItemRect(int index, RECT* rect) const {
    return this->SendPointer(TB_GETITEMRECT, static_cast<WPARAM>(index), rect) != 0;
  }
  [[nodiscard]] int GetState(int id) const {
    return static_cast<int>(this->Send(TB_GETSTATE, static_cast<WPARAM>(id)));
  }
  BOOL SetState(int id, UINT state) const {
    return this->Send(TB_SETSTATE, static_cast<WPARAM>(id), MAKELPARAM(state, 0)) != 0;
  }
  BOOL EnableButton(int id, BOOL enable = TRUE) const {
    return this->Send(TB_ENABLEBUTTON, static_cast<WPARAM>(id), MAKELPARAM(enable, 0)) != 0;
  }
  void AutoSize() const { this->Send(TB_AUTOSIZE); }
  [[nodiscard]] HWND GetToolTips() const { return reinterpret_cast<HWND>(this->Send(TB_GETTOOLTIPS)); }
  void SetToolTips(HWND tips) const { this->Send(TB_SETTOOLTIPS, reinterpret_cast<WPARAM>(tips)); }
};

template <class Base>
class ToolTipCalls : public Base {
 public:
  using Base::Base;

  void Activate(BOOL active) const { this->Send(TTM_ACTIVATE, static_cast<WPARAM>(active)); }
  BOOL AddTool(const TOOLINFOA* tool) const { return framework::SendTool(this->m_hWnd, TTM_ADDTOOLW, tool) != 0; }
  void DelTool(const TOOLINFOA* tool) const { framework::SendTool(this->m_hWnd, TTM_DELTOOLW, tool); }
  [[nodiscard]] int GetToolCount() const { return static_cast<int>(this->Send(TTM_GETTOOLCOUNT)); }
  void SetDelayTime(UINT which, int milliseconds) const {
    this->Send(TTM_SETDELAYTIME, which, MAKELPARAM(milliseconds, 0));
  }
  void RelayEvent(const MSG* message) const { this->SendPointer(TTM_RELAYEVENT, 0, message); }
};

using StaticRef = StaticCalls<WindowRef>;
using ButtonRef = ButtonCalls<WindowRef>;
using ComboBoxRef = ComboBoxCalls<WindowRef>;
using ListBoxRef = ListBoxCalls<WindowRef>;
using ListCtrlRef = ListCtrlCalls<WindowRef>;
using ToolBarRef = ToolBarCalls<WindowRef>;
using ToolTipRef = ToolTipCalls<WindowRef>;

class CStatic : public StaticCalls<CWnd> {
 public:
  BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF) {
    return CWnd::Create(WC_STATICA, text, style, rect, parent, id);
  }
};

class CButton : public ButtonCalls<CWnd> {
 public:
  BOOL Create(const char* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_BUTTONA, text, style, rect, parent, id);
  }
};

class CEdit : public EditCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_EDITA, nullptr, style, rect, parent, id);
  }
};

class CComboBox : public ComboBoxCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_COMBOBOXA, nullptr, style, rect, parent, id);
  }
};

class CListBox : public ListBoxCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_LISTBOXA, nullptr, style, rect, parent, id);
  }
};

class CHeaderCtrl : public HeaderCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_HEADERA, nullptr, style, rect, parent, id);
  }
};

class CListCtrl : public ListCtrlCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_LISTVIEWA, nullptr, style, rect, parent, id);
  }
};

class CToolBarCtrl : public ToolBarCalls<CWnd> {
 public:
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    if (!CWnd::Create(TOOLBARCLASSNAMEA, nullptr, style, rect, parent, id)) return FALSE;
    SetButtonStructSize();
    return TRUE;
  }
};

/// A tooltip window; `parent` owns it.
class CToolTipCtrl : public ToolTipCalls<CWnd> {
 public:
  BOOL Create(CWnd* parent, DWORD style = 0) {
    constexpr RECT kByItself{CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};
    return CWnd::Create(TOOLTIPS_CLASSA, nullptr, WS_POPUP | style, kByItself, parent, 0);
  }
};

/// A list of equally sized images; owns it.
class CImageList {
 public:
  /// Sizes in pixels, `flags` are ILC_ values. FALSE when it cannot be made. A former list is destroyed.
  BOOL Create(int width, int height, UINT flags, int initial, int grow) {
    return Take(::ImageList_Create(width, height, flags, initial, grow));
  }
  /// From a bitmap resource of `module`, cut every `width` pixels; pixels of the colour `mask` are transparent.
  BOOL Create(HINSTANCE module, UINT bitmapId, int width, int grow, COLORREF mask) {
    return Take(::ImageList_LoadImageW(module, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(bitmapId)), width, grow,
                                       mask, IMAGE_BITMAP, 0));
  }
  void DeleteImageList() noexcept { images_.Reset(); }
  /// Gives the list up: the caller destroys it.
  [[nodiscard]] HIMAGELIST Detach() noexcept { return images_.Release(); }

  [[nodiscard]] HIMAGELIST GetSafeHandle() const noexcept { return images_.Get(); }
  [[nodiscard]] int GetImageCount() const { return ::ImageList_GetImageCount(images_.Get()); }
  /// Copies the icon, which stays the caller's. Returns the image's index, -1 on failure.
  int Add(HICON icon) { return ::ImageList_ReplaceIcon(images_.Get(), -1, icon); }
  int Add(HBITMAP bitmap, COLORREF mask) { return ::ImageList_AddMasked(images_.Get(), bitmap, mask); }
  BOOL Draw(HDC dc, int image, POINT at, UINT style) const {
    return ::ImageList_Draw(images_.Get(), image, dc, at.x, at.y, style);
  }

 private:
  BOOL Take(HIMAGELIST images) {
    images_.Reset(images);
    return images != nullptr;
  }

  UniqueImageList images_;
};
