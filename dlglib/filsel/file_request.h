// The file selection request without its windows: from keyword and initial name to the chosen names.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filsel/raster_memory.h"
#include "dlglib/filsel/result_buffer.h"

namespace filsel {

/// Answers of a request and of the browser.
inline constexpr int kAccepted = 1;
inline constexpr int kCancelled = 2;

/// What a request leaves to the window layer.
class RequestWindows {
 public:
  virtual ~RequestWindows() = default;
  /// Runs the browser modally: kAccepted after OK, else any other answer. In and out, the names stand in
  /// startUp.fileBuffer. An exception leaves the request as after a cancelled run.
  virtual int RunBrowser(const filedialog::StartUp& startUp) = 0;
  /// Shows a refusal (Shift_JIS, several lines) that the user has to acknowledge.
  virtual void ShowRefusal(const std::string& text) = 0;
};

/// Whether the user may choose one file or several.
enum class RequestMode { OneFile, FileList };

/// What the caller asks for. Texts are cut to kTextLimit bytes at a character, and at a zero byte.
struct RequestTexts {
  const std::string* caption = nullptr;  ///< EUC-JP; null: "ファイルの選択"
  std::string_view keyword;              ///< of the file kind
  std::string_view initialName;          ///< internal form, or a bare name
  std::string_view listFilePath;         ///< internal form; RequestMode::FileList only; empty: no list file is written
};

/// A chosen file in its three forms.
struct ChosenFile {
  std::string real;       ///< full, Shift_JIS
  std::string internal;   ///< full, EUC-JP
  std::string shortName;  ///< internal, without the folder and the extension of the kind
};

/// A request. A copy shares the result of the original's last run until either is run again, and walks through it on
/// its own; each lives as long as its owner wants.
class FileRequest {
 public:
  /// `openMode`: 0 open an existing file, 2 name a file in an existing folder, any other save; a list of files is
  /// always opened.
  FileRequest(const RequestTexts& texts, RequestMode mode, int openMode);

  /// Runs the request with the raster folder `memory`. `option` other than 0 fixes the folder. Answers kAccepted, or
  /// what the browser answered, or kCancelled when the list file cannot be written. Each run starts from the file-name
  /// part of the last run's initial name.
  int Run(int option, RequestWindows& windows, RasterMemory& memory);

  /// Real names as chosen, each cut to kTextLimit bytes at a character; empty before the first run. After a cancelled
  /// run the first name is the initial name. Valid until the request is run again.
  [[nodiscard]] std::string_view FirstName() noexcept;
  [[nodiscard]] std::string_view NextName() noexcept;

  /// The first chosen name in internal form: without the kind's folder and extension; in full; in full and in real
  /// form.
  [[nodiscard]] std::string Name();
  [[nodiscard]] std::string FullInternalName();
  [[nodiscard]] std::string FullRealName();

  /// All files of the last run, whole: what is longer than kTextLimit is not cut, and a blank divides no path. None
  /// before the first run.
  [[nodiscard]] std::vector<ChosenFile> Chosen() const;

  [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
  [[nodiscard]] const std::string& keyword() const noexcept { return keyword_; }

 private:
  [[nodiscard]] filedialog::StartUp MakeStartUp(int option);
  [[nodiscard]] int WriteList(RequestWindows& windows);
  [[nodiscard]] std::string_view Result() const noexcept;

  std::string caption_;  // Shift_JIS
  std::string keyword_;
  std::string initialName_;   // EUC-JP
  std::string listFilePath_;  // EUC-JP
  RequestMode mode_;
  int openMode_;
  std::shared_ptr<ResultBuffer> result_;
  NameWalk walk_;
};

}  // namespace filsel
