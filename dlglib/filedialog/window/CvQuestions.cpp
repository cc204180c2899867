#include "dlglib/filedialog/window/CvQuestions.h"

#include <utility>

#include "dlglib/base/at_scope_end.h"
#include "dlglib/filedialog/dialogs/CvFileUser.h"
#include "dlglib/filedialog/dialogs/CvMdlConfirm.h"
#include "dlglib/filedialog/dialogs/CvMdlTitle.h"
#include "dlglib/filedialog/dialogs/CvNewFolder.h"

using filedialog::Done;
using filedialog::Reply;
using filedialog::SlowSortRule;

/// A question lets messages through, and one of them may have destroyed the window.
template <class Answer>
Reply<Answer> CvQuestions::Answered(Answer answer) const {
  return dialog_.m_hWnd != nullptr ? Reply<Answer>(std::move(answer)) : std::nullopt;
}

Reply<Done> CvQuestions::Warn(const std::string& text) {
  dialog_.MessageBox(text.c_str(), caption_.c_str(), MB_OK | MB_ICONEXCLAMATION);
  return Answered(Done{});
}

Reply<bool> CvQuestions::AskOverwrite(const std::string& text) {
  const int answer = dialog_.MessageBox(text.c_str(), caption_.c_str(), MB_YESNO | MB_ICONEXCLAMATION);
  return Answered(answer == IDYES);
}

Reply<Done> CvQuestions::Refuse(const std::string& text, const std::string& caption) {
  dialog_.MessageBox(text.c_str(), caption.c_str(), MB_OK | MB_ICONHAND);
  return Answered(Done{});
}

Reply<std::optional<filedialog::Credentials>> CvQuestions::AskLogon(const std::string& path,
                                                                    const std::string& userName) {
  CvFileUser logon(&dialog_, path);
  logon.SetUserName(userName);
  const bool given = logon.DoModal() == IDOK;
  return Answered(given ? std::optional(filedialog::Credentials{logon.UserName(), logon.Password()}) : std::nullopt);
}

Reply<std::optional<std::string>> CvQuestions::AskNewFolder(const std::string& folder) {
  CvNewFolder dialog(&dialog_, folder);
  const bool made = dialog.DoModal() == IDOK;
  return Answered(made ? std::optional(dialog.Name()) : std::nullopt);
}

Reply<bool> CvQuestions::AskRename(const std::string& folder, const std::string& name, bool isFile) {
  CvNewFolder dialog(&dialog_, folder);
  dialog.SetRename(name, isFile);
  const bool renamed = dialog.DoModal() == IDOK;
  return Answered(renamed || dialog.HasStranded());
}

Reply<bool> CvQuestions::RunAbove(const std::function<bool(os::WindowHandle)>& run) {
  return Answered(run(dialog_.m_hWnd));
}

Reply<std::optional<filedialog::TitleSlots>> CvQuestions::AskTitles(SlowSortRule& rule,
                                                                    const filedialog::TitleSlots& slots) {
  CvMdlTitle dialog(&dialog_, rule);
  dialog.SetTitles(slots);
  const bool taken = dialog.DoModal() == IDOK;
  return Answered(taken ? std::optional(dialog.Titles()) : std::nullopt);
}

/// The header takes no further click while the question is open.
Reply<bool> CvQuestions::AskSlowSort(SlowSortRule& rule) {
  const HeaderRef header = list_.GetHeaderCtrl();
  CvMdlConfirm question(&dialog_, rule);
  header.EnableWindow(FALSE);
  const AtScopeEnd answered([&] {
    if (dialog_.m_hWnd != nullptr) header.EnableWindow(TRUE);
  });
  const bool agreed = question.DoModal() == IDOK;
  return Answered(agreed);
}
