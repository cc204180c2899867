#include <windows.h>

#include "check.h"
#include "guide.h"
#include "parts.h"
#include "programs.h"

namespace client {
namespace {

constexpr char kPictures[] = "pictures";

driver::Window WaitInFront(const driver::User& user, const std::string& title) {
  const driver::Window dialog = user.WaitDialog(title);
  user.WaitUntil("the dialog is in front", [&] { return dialog.IsForeground(); });
  return dialog;
}

}  // namespace

GuideProgram::GuideProgram(const std::string& name, const std::string& title)
    : name_(name),
      program_("\"" + OwnFolder() + name + ".exe\""),
      user_(program_.Id()),
      dialog_(WaitInFront(user_, title)) {}

driver::Window GuideProgram::WaitBrowser() const {
  driver::Window found;
  user_.WaitUntil("the browser is shown", [&] {
    for (const driver::Window& window : driver::VisibleWindows(program_.Id())) {
      if (window != dialog_ && window.IsForeground() && window.FindChildOfClass("SysListView32")) found = window;
    }
    return found.Handle() != nullptr;
  });
  return found;
}

void GuideProgram::WaitText(int id, const std::string& text) const {
  user_.WaitUntil("the control shows " + text, [&] { return dialog_.Child(id).Text() == text; });
}

void GuideProgram::TakePicture(const RECT& rect) const {
  // A plain dialog that takes the focus before it is seen may go on looking inactive.
  dialog_.Send(WM_NCACTIVATE, TRUE);
  driver::Picture seen = user_.Look(rect);
  user_.WaitUntil("the picture stands still", [&] {
    const driver::Picture again = user_.Look(rect);
    const bool same = again == seen;
    seen = again;
    return same;
  });
  CreateDirectoryA(kPictures, nullptr);
  const std::string path = std::string(kPictures) + "\\" + name_ + ".png";
  Check(seen.SavePng(path), path + " is written");
}

void GuideProgram::Accept() {
  user_.Click(dialog_.Child(IDOK));
  SeeEnd();
}

void GuideProgram::SeeEnd() const { Check(program_.WaitForEnd() == 0, name_ + " ends well"); }

std::string RunGuide(const std::string& name, const std::string& title, const std::function<void(GuideProgram&)>& use) {
  const Output output(OwnFolder() + name + ".txt");
  GuideProgram program(name, title);
  use(program);
  return output.Text();
}

void UseGuide() {
  UseGuideForFiles();
  UseGuideForTexts();
  UseGuideForTables();
}

}  // namespace client
