// What a CvUtility holds behind its one pointer. Only its own sources know it.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "dlglib/utility/CvToolBar.h"
#include "dlglib/utility/CvUtility.h"
#include "dlglib/utility/CvWindowTexts.h"
#include "dlglib/utility/bounded_text.h"
#include "dlglib/utility/used_list.h"
#include "platform/os/os.h"

struct CvUtility::State {
  /// Keeps a key open that was written to; the one kept before under that name is closed. Null keeps the former one.
  void Keep(const std::string& keyName, std::unique_ptr<os::RegistryKey> key) {
    if (key != nullptr) writtenKeys[keyName] = std::move(key);
  }

  /// A list that could not be read whole is not written until it has been: that would drop what was not read.
  void NoteReading(const std::string& keyName, used_list::Kind kind, bool whole) {
    if (whole) {
      partlyRead.erase({keyName, kind});
    } else {
      partlyRead.insert({keyName, kind});
    }
    readingBroken = false;
  }
  [[nodiscard]] bool MayWrite(const std::string& keyName, used_list::Kind kind) const {
    return !readingBroken && !partlyRead.contains({keyName, kind});
  }

  CWnd* parent = nullptr;         ///< borrowed
  CWnd* messageWindow = nullptr;  ///< borrowed
  BoundedText<127> caption;
  BoundedText<127> comment;
  BoundedText<512> lastMessage;  ///< what the message zone shows
  BoundedText<512> work;
  BoundedText<255> keyword;
  BoundedText<255> wildcard;
  BoundedText<255> name;  ///< the real path of the last name that was resolved
  COLORREF textColor = 0;
  int keywordClass = 0;
  int fileIO = 0;
  int noDirectoryEntry = 0;
  std::map<std::string, std::unique_ptr<os::RegistryKey>> writtenKeys;  ///< left open after writing, by name
  std::set<std::pair<std::string, used_list::Kind>> partlyRead;
  bool readingBroken = false;  ///< memory ran out in the last reading of a list; there was none to note which one
  CvWindowTexts windowTexts;   ///< of the windows that got a text here
  CvToolBar toolBar{&windowTexts};
  bool madeRoomForToolBar = false;  ///< for the toolbar that is there
};
