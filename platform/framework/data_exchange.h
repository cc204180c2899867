// Moving values between the controls of a dialog and its members: called from DoDataExchange, which UpdateData runs.
//
// A control that the dialog does not have leaves the value alone.
#pragma once

#include "platform/framework/wnd.h"

/// One run of DoDataExchange.
struct CDataExchange {
  BOOL m_bSaveAndValidate;  ///< TRUE: from the controls to the members
  CWnd* m_pDlgWnd;          ///< borrowed
  BOOL failed = FALSE;  ///< a text could not be converted: the steps after it do nothing and UpdateData returns FALSE
};

/// A control's text, of any length, as Shift_JIS. Towards the control a text that it shows already is not set again.
DLGLIB_API void DDX_Text(CDataExchange* exchange, int id, CString& value);
/// A whole number in decimal, blanks around it allowed. Any other text fails the exchange, keeps `value`, gives the
/// control the focus and selects its text.
DLGLIB_API void DDX_Text(CDataExchange* exchange, int id, int& value);
/// The index of the checked button among the radio button `id` and those that follow it up to the next group; -1 when
/// none is. A value outside checks none. A group of one button has 0 for checked and -1 for not.
DLGLIB_API void DDX_Radio(CDataExchange* exchange, int id, int& value);
/// 0 not checked, 1 checked, 2 indeterminate; any other value counts as 1.
DLGLIB_API void DDX_Check(CDataExchange* exchange, int id, int& value);
/// The selected entry of a combo box; -1 for none.
DLGLIB_API void DDX_CBIndex(CDataExchange* exchange, int id, int& value);
/// Makes `control` the object of the dialog's control, once, in either direction.
DLGLIB_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
