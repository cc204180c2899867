#include "model_folder.h"

#include <dlglib/dlglib.h>

#include <array>
#include <cstdio>

#include "platform/os/sjis_wide.h"

namespace client {
namespace {

constexpr const char* kFiles[] = {"A-001.MDL", "ポンプ\\ソケット表.MDL", "ポンプ\\PUMP-01.MDL"};

void Write(const std::string& path) {
  if (std::FILE* file = _wfopen(os::WideOf(path).c_str(), L"wb")) {
    std::fputs("CORVANE MODEL 1\nEND\n", file);
    std::fclose(file);
  }
}

}  // namespace

ModelFolder::ModelFolder() {
  std::array<wchar_t, MAX_PATH> temporary = {};
  GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
  folder_ =
      os::SjisOf(temporary.data(), os::kUnknown).bytes + "dlglib_client_図面_" + std::to_string(GetCurrentProcessId());
  CreateDirectoryW(os::WideOf(folder_).c_str(), nullptr);
  CreateDirectoryW(os::WideOf(folder_ + "\\ポンプ").c_str(), nullptr);
  for (const char* name : kFiles) Write(folder_ + "\\" + name);
}

ModelFolder::~ModelFolder() {
  for (const char* name : kFiles) DeleteFileW(os::WideOf(folder_ + "\\" + name).c_str());
  RemoveDirectoryW(os::WideOf(folder_ + "\\ポンプ").c_str());
  RemoveDirectoryW(os::WideOf(folder_).c_str());
}

std::string ModelFolder::Internal() const {
  std::string path = CwEucEncoder::Sjis2Euc(folder_, MAX_PATH);
  CwFile::ToAbstractPathSeparator(path);
  return path + "/";
}

}  // namespace client
