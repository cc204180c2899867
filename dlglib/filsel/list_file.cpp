#include "dlglib/filsel/list_file.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace filsel {

namespace {

bool WriteLines(os::TextWriter& file, const std::vector<EucText>& names) {
  const bool written =
      std::all_of(names.begin(), names.end(), [&file](const EucText& name) { return file.Write(name.bytes() + "\n"); });
  const bool closed = file.Close();
  return written && closed;
}

/// The list file while it is written. A former one lies aside meanwhile, under a name beside its own, and comes back
/// unless the new one is whole.
class Replacement {
 public:
  Replacement(os::Files& files, const std::string& path) : files_(files), path_(path) {
    if (files.Exists(path) && !SetAside()) files.Remove(path);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    try {
      if (begun_) files_.Remove(path_);
      if (!aside_.empty()) static_cast<void>(files_.Rename(aside_, path_));
    } catch (...) {  // no memory to name the files with: both stay as they are
      return;
    }
  }

  [[nodiscard]] std::unique_ptr<os::TextWriter> Begin() {
    begun_ = true;  // also when memory runs out behind the making of the file
    std::unique_ptr<os::TextWriter> file = files_.CreateText(path_);
    begun_ = file != nullptr;
    return file;
  }

  /// The new file is whole and closed.
  void Finish() {
    begun_ = false;
    const std::string former = std::exchange(aside_, std::string());
    if (!former.empty()) files_.Remove(former);
  }

 private:
  /// Neither a folder nor a file that must not be changed is moved.
  [[nodiscard]] bool SetAside() {
    const auto attributes = files_.Attributes(path_);
    if (!attributes || (*attributes & (os::kAttributeFolder | os::kAttributeReadOnly)) != 0) return false;
    for (int i = 0; i < kAttempts; ++i) {
      std::string name = path_ + '~' + std::to_string(i);
      const int error = files_.Rename(path_, name);
      if (error == 0) aside_ = std::move(name);
      if (error != kErrnoExists) return error == 0;
    }
    return false;
  }

  static constexpr int kAttempts = 100;
  static constexpr int kErrnoExists = 17;

  os::Files& files_;
  const std::string& path_;
  std::string aside_;
  bool begun_ = false;
};

}  // namespace

bool WriteListFile(os::Files& files, const SjisText& path, const std::vector<EucText>& names) {
  Replacement replacement(files, path.bytes());
  auto file = replacement.Begin();
  if (!file) return false;
  const bool written = WriteLines(*file, names);
  file.reset();
  if (written) replacement.Finish();
  return written;
}

SjisText CannotOpenText(const SjisText& path) {
  return SjisText(path.bytes() + "\nファイルを開けません。\n名前が正しいか確認してください。");
}

}  // namespace filsel
