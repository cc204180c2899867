// The programs that the page on the C interface shows, used by a person.
#include <windows.h>

#include <string>

#include "check.h"
#include "parts.h"
#include "programs.h"
#include "tests/windows/driver/program.h"
#include "tests/windows/driver/user.h"
#include "visible_child.h"

namespace client {
namespace {

constexpr int kTable = 1001;
constexpr int kEditBox = 10000;
constexpr int kList = 10002;
constexpr char kPumpUtf8[] = "\xE3\x83\x9D\xE3\x83\xB3\xE3\x83\x97\n";  // ポンプ

std::string TextFile() {
  std::string folder(MAX_PATH, '\0');
  folder.resize(GetTempPathA(MAX_PATH, folder.data()));
  return folder + "dlglib_client_" + std::to_string(GetCurrentProcessId()) + ".txt";
}

/// What a program prints that nobody has to use.
std::string PrintedBy(const std::string& name) {
  const Output output(TextFile());
  const driver::Program running("\"" + OwnFolder() + name + "\"");
  Check(running.WaitForEnd() == 0, name + " ends well");
  return output.Text();
}

bool BoxShows(const driver::Window& window, const std::string& text) {
  const driver::Window box = VisibleChild(window, kEditBox);
  return box && box.HasFocus() && box.Text() == text;
}

/// Types into a cell, picks from the list of another one, and takes the last step back.
void EditTable(driver::User& user, const driver::Window& window) {
  const driver::ListView table(window.Child(kTable));
  user.WaitUntil("the table is filled", [&] { return table.Count() > 0; });
  user.Click(driver::Center(table.CellRect(1, 1)));
  user.WaitUntil("the name is edited", [&] { return BoxShows(window, ""); });
  user.Type("ホース");
  const RECT cell = table.CellRect(3, 1);
  const POINT button = {cell.right - 9, (cell.top + cell.bottom) / 2};
  user.Click(button);
  user.WaitUntil("another name is edited", [&] { return BoxShows(window, ""); });
  user.Click(button);
  user.WaitUntil("the list drops down",
                 [&] { return VisibleChild(window, kList) && VisibleChild(window, kList).IsDropped(); });
  const RECT entries = VisibleChild(window, kList).ComboList().ClientScreenRect();
  user.Click({entries.left + 10, entries.top + 5});
  user.WaitUntil("the first entry is in the box", [&] { return BoxShows(window, "ポンプ"); });
  user.Key(VK_RETURN);
  user.WaitUntil("the row below is edited", [&] { return BoxShows(window, ""); });
  const auto isEmpty = [&] {
    const driver::Picture seen = user.Look(cell);
    return seen.Count({0, 0, seen.Width(), seen.Height()}, RGB(0, 0, 0)) == 0;
  };
  user.WaitUntil("the pick is shown in its cell", [&] { return !isEmpty(); });
  user.Key('Z', {VK_CONTROL});
  user.WaitUntil("the pick is taken back", isEmpty);
  ::PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
}

void UseTable() {
  const Output output(TextFile());
  const driver::Program running("\"" + OwnFolder() + "c_grid.exe\"");
  driver::User user(running.Id());
  EditTable(user, user.WaitWindow("parts", "parts"));
  Check(running.WaitForEnd() == 0, "the table in a plain window ends well");
  const std::string step = "1 rows from row ";
  CheckText(output.Text(), step + "1 on have changed\n" + step + "3 on have changed\n" + step + "3 on have changed\n",
            "the steps that the table tells of");
}

}  // namespace

void UseCPages() {
  UseTable();
  CheckText(PrintedBy("c_recent.exe"), kPumpUtf8, "the recent names");
  CheckText(PrintedBy("c_recent.exe"), kPumpUtf8, "the recent names, with what was written before");
}

}  // namespace client
