// The one header that a client includes: the library's classes, the windowing framework that they build upon, and the
// calls of the suite's core libraries.
//
//   #include <dlglib/dlglib.h>
//   CvFilSelDlg request(dlglib::kLibraryCaption, CWnd::FromHandle(owner), "#MODEL#", "C:/plant/A-001",
//                       dlglib::kOpenFile);
//   if (request.DoModal() == IDOK) Open(request.GetActName());
//
// It may be included before or after <windows.h>, with or without UNICODE, STRICT and NOMINMAX, and changes none of
// them.
#pragma once

#include "dlglib/filsel/CvFilSelDlg.h"
#include "dlglib/listcontrol/CvListControl.h"
#include "dlglib/modes.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/version.h"
#include "platform/framework/accessible_name.h"
#include "platform/framework/framework.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvncui.h"
#include "platform/suite/crvndlg.h"
#include "platform/suite/crvnmdl.h"
