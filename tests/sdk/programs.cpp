#include "programs.h"

#include <array>
#include <cstdio>
#include <utility>

namespace client {

std::string OwnFolder() {
  std::array<char, MAX_PATH> self = {};
  GetModuleFileNameA(nullptr, self.data(), MAX_PATH);
  const std::string path(self.data());
  return path.substr(0, path.rfind('\\') + 1);
}

Output::Output(std::string path) : path_(std::move(path)), former_(GetStdHandle(STD_OUTPUT_HANDLE)) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  file_ = CreateFileA(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr);
  SetStdHandle(STD_OUTPUT_HANDLE, file_);
}

Output::~Output() {
  SetStdHandle(STD_OUTPUT_HANDLE, former_);
  CloseHandle(file_);
  DeleteFileA(path_.c_str());
}

std::string Output::Text() const {
  std::string text;
  std::FILE* file = std::fopen(path_.c_str(), "r");
  if (file == nullptr) return "(nothing)";
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) text.push_back(static_cast<char>(byte));
  std::fclose(file);
  return text;
}

}  // namespace client
