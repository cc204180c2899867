// Models for a program to ask for.
#pragma once

#include <string>

namespace client {

/// A folder of models with a Japanese name below the folder for temporary files, removed at the end. It holds
/// "A-001.MDL" and, in the folder "ポンプ", "ソケット表.MDL" and "PUMP-01.MDL".
class ModelFolder {
 public:
  ModelFolder();
  ~ModelFolder();
  ModelFolder(const ModelFolder&) = delete;
  ModelFolder& operator=(const ModelFolder&) = delete;

  /// Its real path, without "\\" at its end.
  [[nodiscard]] const std::string& Path() const { return folder_; }
  /// The internal form, with "/" at its end.
  [[nodiscard]] std::string Internal() const;

 private:
  std::string folder_;
};

}  // namespace client
