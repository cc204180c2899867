// CvQuestions: what the browser asks its user, in boxes and dialogs above its own.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "dlglib/filedialog/browser/browser_questions.h"
#include "dlglib/filedialog/window/CvFileList.h"

class CvQuestions : public filedialog::BrowserQuestions {
 public:
  /// `dialog` owns the boxes, `list` has the header that a question about sorting closes; both must outlive this.
  CvQuestions(CWnd& dialog, const CvFileList& list) : dialog_(dialog), list_(list) {}

  /// The caption of the messages that have none of their own.
  void SetCaption(const std::string& caption) { caption_ = caption; }

  [[nodiscard]] filedialog::Reply<filedialog::Done> Warn(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<bool> AskOverwrite(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<filedialog::Done> Refuse(const std::string& text,
                                                           const std::string& caption) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::Credentials>> AskLogon(
      const std::string& path, const std::string& userName) override;
  [[nodiscard]] filedialog::Reply<std::optional<std::string>> AskNewFolder(const std::string& folder) override;
  [[nodiscard]] filedialog::Reply<bool> AskRename(const std::string& folder, const std::string& name,
                                                  bool isFile) override;
  [[nodiscard]] filedialog::Reply<bool> RunAbove(const std::function<bool(os::WindowHandle)>& run) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::TitleSlots>> AskTitles(
      filedialog::SlowSortRule& rule, const filedialog::TitleSlots& slots) override;
  [[nodiscard]] filedialog::Reply<bool> AskSlowSort(filedialog::SlowSortRule& rule) override;

 private:
  template <class Answer>
  [[nodiscard]] filedialog::Reply<Answer> Answered(Answer answer) const;

  CWnd& dialog_;
  const CvFileList& list_;
  std::string caption_;
};
