// What a CvUtility holds behind its one pointer. Only its own sources know it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "dlglib/base/CvWindowTexts.h"
#include "dlglib/base/bounded_text.h"
#include "dlglib/utility/CvSpokenMessage.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/rules/used_list.h"
#include "dlglib/utility/toolbar/CvToolBar.h"
#include "platform/os/os.h"

struct CvUtility::State {
  /// The window that owns message boxes: the dialog, else the utility's own.
  [[nodiscard]] const CWnd& BoxOwner(const CWnd& own) const { return parent != nullptr ? *parent : own; }

  /// Reads a list whose key can be opened; any other leaves array and count alone.
  void ReadList(const std::string& keyName, used_list::Kind kind, CStringArray* array, int* count);
  /// Writes a list, unless that would drop what its last reading could not give to the caller, and keeps its key open;
  /// the one kept before under that name is closed.
  void WriteList(const std::string& keyName, used_list::Kind kind, const CStringArray* array, const int* count);

  CWnd* parent = nullptr;         ///< borrowed
  CWnd* messageWindow = nullptr;  ///< borrowed
  BoundedText<127> caption;
  BoundedText<127> comment;
  BoundedText<512> lastMessage;            ///< what the message zone shows
  CvSpokenMessage spokenMessage;           ///< the same for those who do not see it
  Repeated repeated = Repeated::IsNoNews;  ///< what the message that is being shown is when it stands there already
  BoundedText<512> work;
  BoundedText<255> keyword;
  BoundedText<255> wildcard;
  BoundedText<255> name;  ///< the real path of the last name that was resolved
  int keywordClass = 0;
  int noDirectoryEntry = 0;
  std::map<std::string, std::unique_ptr<os::RegistryKey>> writtenKeys;             ///< left open after writing, by name
  std::map<std::pair<std::string, used_list::Kind>, used_list::Reading> readings;  ///< the last one of each list
  bool readingUnknown = false;  ///< memory ran out in a reading, maybe before it was noted which one
  CvWindowTexts windowTexts;    ///< of the windows that got a text here
  CvToolBar toolBar{&windowTexts};
  bool madeRoomForToolBar = false;  ///< for the toolbar that is there
};
