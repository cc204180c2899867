#include <dlglib/dlglib.h>

#include <array>
#include <clocale>
#include <cstdlib>

#include "check.h"
#include "parts.h"
#include "tests/windows/driver/user.h"

namespace client {
namespace {

/// A window that knows nothing of the library.
class PlainWindow {
 public:
  PlainWindow()
      : handle_(CreateWindowExA(0, "STATIC", "部品表", WS_OVERLAPPED | WS_CAPTION | WS_VISIBLE, 50, 50, 300, 200,
                                nullptr, nullptr, GetModuleHandleA(nullptr), nullptr)) {}
  ~PlainWindow() { DestroyWindow(handle_); }
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;
  [[nodiscard]] HWND Handle() const { return handle_; }

 private:
  HWND handle_;
};

void CheckTexts(CvUtility& utility) {
  Check(utility.CheckFileName("表.mdl") == 1, "a name that ends in the byte of a separator is acceptable");
  Check(utility.CheckFileName("A|B") == 0, "a name with a bar is not");
  std::array<char, 513> text = {"表"};
  utility.ToEUC(text.data());
  CheckText(text.data(), "\xC9\xBD", "Shift_JIS to EUC-JP");
  utility.ToSJIS(text.data());
  CheckText(text.data(), "表", "and back");
  double scale = 0;
  Check(utility.CheckScale("1/50", &scale) == 1 && scale == 0.02, "a scale is read");
}

void CheckNumbersUnderADecimalComma(CvUtility& utility) {
  Check(std::setlocale(LC_NUMERIC, "German") != nullptr && std::atof("1,5") == 1.5, "the client has a decimal comma");
  CheckText(utility.DtoA(0.25), "0.25", "the library writes a point");
  std::array<char, 32> text = {};
  utility.DisplayScale(1.5, text.data());
  CheckText(text.data(), "1.5", "in scales too");
  Check(utility.CheckNumber(CString("1.5"), 1, 1.5, 1.5) == 1, "and reads it");
  double scale = 0;
  Check(utility.CheckScale("1.5/2.5", &scale) == 1 && scale == 0.6, "in scales too");
  std::setlocale(LC_NUMERIC, "C");
}

void CheckPaths(CvUtility& utility) {
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#MODEL#", "C:/plant/", "*.MDL", 0));
  std::array<char, 513> path = {"表.MDL"};
  utility.RealPathName("#MODEL#", path.data());
  CheckText(path.data(), "C:\\plant\\表.MDL", "a bare name is resolved in the folder of its kind");
  utility.InternalPathName("#MODEL#", path.data());
  CheckText(path.data(), "C:/plant/\xC9\xBD.MDL", "and comes back in the suite's form");
}

void CheckMessageBox(CvUtility& utility) {
  int answer = -1;
  driver::RunDialog([&] { answer = utility.CheckInputFile(CString("C:\\ない.MDL")); },
                    [](driver::User& user) {
                      const driver::MessageBoxView box = user.WaitMessageBox();
                      CheckText(box.caption, "部品表", "the message box bears the caption");
                      Check(!box.text.empty(), "the message box says something");
                      user.Answer(box, IDOK);
                    });
  Check(answer == 0, "a missing file is refused");
}

}  // namespace

void UseUtility() {
  const PlainWindow window;
  CvUtility utility;
  utility.SetParentWindow(CWnd::FromHandle(window.Handle()));
  utility.SetKeyword("#MODEL#");
  CheckText(utility.GetCaption(), "部品表", "the parent's title is the caption");
  CheckTexts(utility);
  CheckNumbersUnderADecimalComma(utility);
  CheckPaths(utility);
  CheckMessageBox(utility);
}

}  // namespace client
