#include "dlglib/filsel/list_file.h"

#include <algorithm>

#include "platform/os/os.h"

namespace filsel {

namespace {

bool WriteLines(os::TextWriter& file, const std::vector<std::string>& names) {
  const bool written =
      std::all_of(names.begin(), names.end(), [&file](const std::string& name) { return file.Write(name + "\n"); });
  const bool closed = file.Close();
  return written && closed;
}

}  // namespace

bool WriteListFile(const std::string& path, const std::vector<std::string>& names) {
  os::Files& files = *os::Services().files;
  if (files.Exists(path)) files.Remove(path);
  auto file = files.CreateText(path);
  if (!file) return false;
  const bool written = WriteLines(*file, names);
  file.reset();
  if (!written) files.Remove(path);
  return written;
}

std::string CannotOpenText(const std::string& path) {
  return path + "\nファイルを開けません。\n名前が正しいか確認してください。";
}

}  // namespace filsel
