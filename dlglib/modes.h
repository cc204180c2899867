// Names for numbers that CvFilSelDlg and CvUtility take.
//
//   CvFilSelDlg request(dlglib::kLibraryCaption, this, "#MODEL#", "", dlglib::kOpenFile);
//   utility.SetNoDirectoryEntry(dlglib::kFixedFolder);
//   if (utility.FileDialog(dlglib::kSaveFile) == IDOK) ...
#pragma once

#include <string>

namespace dlglib {

// What is asked for: `openMode` of CvFilSelDlg and `mode` of CvUtility::FileDialog. The two take other numbers in
// different ways; these three mean the same to both. A request for several files always opens.

inline constexpr int kOpenFile = 0;  ///< an existing file; button 開く
inline constexpr int kSaveFile = 1;  ///< a file to be written, in a folder that exists; button 保存
inline constexpr int kNameFile = 2;  ///< the same with the button ＯＫ, for a name that is not written at once

// What CvUtility::SetNoDirectoryEntry and CvFilSelDlg::DoModal take.

inline constexpr int kAnyFolder = 0;    ///< the user may go to other folders, as at first
inline constexpr int kFixedFolder = 1;  ///< no folders are listed, and the user cannot leave the one at the start

/// The caption of a CvFilSelDlg that gives none: "ファイルの選択". CvUtility::FileDialog takes that of the dialog it
/// serves, or what SetCaption has set.
inline constexpr const std::string* kLibraryCaption = nullptr;

}  // namespace dlglib
