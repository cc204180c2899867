// The file selection request without its windows: from keyword and initial name to the chosen names.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "dlglib/base/encoded_text.h"
#include "dlglib/filedialog/basics/start_up.h"
#include "dlglib/filsel/raster_memory.h"
#include "dlglib/filsel/result_buffer.h"
#include "platform/os/os.h"

class CwSession;

namespace filsel {

/// Answers of a request and of the browser. Those below 0 are ways to fail, which the class of the request answers as a
/// cancelled run.
inline constexpr int kAccepted = 1;
inline constexpr int kCancelled = 2;
inline constexpr int kNoBrowser = -1;       ///< its window could not be made
inline constexpr int kListNotWritten = -2;  ///< the user has been told

/// What a request leaves to the window layer.
class RequestWindows {
 public:
  virtual ~RequestWindows() = default;
  /// Runs the browser modally: kAccepted after OK, else any other answer. In and out, the names stand in
  /// startUp.fileBuffer. An exception leaves the request as after a cancelled run.
  virtual int RunBrowser(const filedialog::StartUp& startUp) = 0;
  /// Shows a refusal (several lines) that the user has to acknowledge.
  virtual void ShowRefusal(const SjisText& text) = 0;
};

/// Whether the user may choose one file or several.
enum class RequestMode { OneFile, FileList };

/// What the caller asks for. Texts are cut to kTextLimit bytes at a character, and at a zero byte.
struct RequestTexts {
  std::optional<EucView> caption;  ///< none: "ファイルの選択"
  EucView keyword;                 ///< of the file kind
  EucView initialName;             ///< internal form, or a bare name
  EucView listFilePath;            ///< internal form; RequestMode::FileList only; empty: no list file is written
};

/// A chosen file in its three forms.
struct ChosenFile {
  SjisText real;      ///< full
  EucText internal;   ///< full
  EucText shortName;  ///< internal, without the folder and the extension of the kind
};

/// A request. A copy shares the result of the original's last run until either is run again, and walks through it on
/// its own; each lives as long as its owner wants.
class FileRequest {
 public:
  /// `openMode`: 0 open an existing file, 2 name a file in an existing folder, any other save; a list of files is
  /// always opened. The services and the session must outlive the request and its copies.
  FileRequest(const RequestTexts& texts, RequestMode mode, int openMode, const os::ServiceTable& services,
              CwSession& session);

  /// Runs the request with the raster folder `memory`. `option` other than 0 fixes the folder. Answers kAccepted, or
  /// what the browser answered, or kListNotWritten. Each run starts from the file-name part of the last run's initial
  /// name.
  int Run(int option, RequestWindows& windows, RasterMemory& memory);

  /// Real names as chosen, each cut to kTextLimit bytes at a character; empty before the first run. After a cancelled
  /// run the first name is the initial name. Valid until the request is run again.
  [[nodiscard]] SjisView FirstName() noexcept;
  [[nodiscard]] SjisView NextName() noexcept;

  /// The first chosen name in internal form: without the kind's folder and extension; in full; in full and in real
  /// form.
  [[nodiscard]] EucText Name();
  [[nodiscard]] EucText FullInternalName();
  [[nodiscard]] SjisText FullRealName();

  /// All files of the last run, whole: what is longer than kTextLimit is not cut, and a blank divides no path. None
  /// before the first run.
  [[nodiscard]] std::vector<ChosenFile> Chosen() const;

  [[nodiscard]] const SjisText& caption() const noexcept { return caption_; }
  [[nodiscard]] const EucText& keyword() const noexcept { return keyword_; }

 private:
  [[nodiscard]] filedialog::StartUp MakeStartUp(int option);
  [[nodiscard]] int WriteList(RequestWindows& windows);
  [[nodiscard]] ChosenFile FormsOf(SjisView path) const;
  [[nodiscard]] SjisView Result() const noexcept;

  const os::ServiceTable* services_;
  CwSession* session_;
  SjisText caption_;
  EucText keyword_;
  EucText initialName_;
  EucText listFilePath_;
  RequestMode mode_;
  int openMode_;
  std::shared_ptr<ResultBuffer> result_;
  NameWalk walk_;
};

}  // namespace filsel
