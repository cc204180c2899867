#include "programs.h"

#include <array>
#include <cstdio>
#include <utility>

#include "platform/os/sjis_wide.h"

namespace client {

std::string OwnFolder() {
  std::array<wchar_t, MAX_PATH> self = {};
  GetModuleFileNameW(nullptr, self.data(), MAX_PATH);
  const std::string path = os::SjisOf(self.data(), os::kUnknown).bytes;
  return path.substr(0, path.rfind('\\') + 1);
}

Output::Output(std::string path) : path_(std::move(path)), former_(GetStdHandle(STD_OUTPUT_HANDLE)) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  file_ = CreateFileW(os::WideOf(path_).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
  SetStdHandle(STD_OUTPUT_HANDLE, file_);
}

Output::~Output() {
  SetStdHandle(STD_OUTPUT_HANDLE, former_);
  CloseHandle(file_);
  DeleteFileW(os::WideOf(path_).c_str());
}

std::string Output::Text() const {
  std::string text;
  std::FILE* file = _wfopen(os::WideOf(path_).c_str(), L"r");
  if (file == nullptr) return "(nothing)";
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) text.push_back(static_cast<char>(byte));
  std::fclose(file);
  return text;
}

}  // namespace client
