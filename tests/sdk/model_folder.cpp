#include "model_folder.h"

#include <dlglib/dlglib.h>

#include <cstdio>

namespace client {
namespace {

constexpr const char* kFiles[] = {"A-001.MDL", "ポンプ\\ソケット表.MDL", "ポンプ\\PUMP-01.MDL"};

void Write(const std::string& path) {
  if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
    std::fputs("CORVANE MODEL 1\nEND\n", file);
    std::fclose(file);
  }
}

}  // namespace

ModelFolder::ModelFolder() {
  char temporary[MAX_PATH] = "";
  GetTempPathA(MAX_PATH, temporary);
  folder_ = std::string(temporary) + "dlglib_client_" + std::to_string(GetCurrentProcessId());
  CreateDirectoryA(folder_.c_str(), nullptr);
  CreateDirectoryA((folder_ + "\\ポンプ").c_str(), nullptr);
  for (const char* name : kFiles) Write(folder_ + "\\" + name);
}

ModelFolder::~ModelFolder() {
  for (const char* name : kFiles) DeleteFileA((folder_ + "\\" + name).c_str());
  RemoveDirectoryA((folder_ + "\\ポンプ").c_str());
  RemoveDirectoryA(folder_.c_str());
}

std::string ModelFolder::Internal() const {
  std::string path = CwEucEncoder::Sjis2Euc(folder_, MAX_PATH);
  CwFile::ToAbstractPathSeparator(path);
  return path + "/";
}

}  // namespace client
