#include "tests/core/filedialog/browser/browser_machine.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace browser_test {

const Texts kAllRows = {"old", "Sub", "表示", "a.mdl", "A-001.MDL", "b.mdl", "ソ.mdl", "表.mdl"};

BrowserMachine::BrowserMachine() {
  World().Reset();
  os::scripted::Drive system;
  system.volumeName = "SYSTEM";
  World().AddDrive('C', system);
  os::scripted::Drive removable;
  removable.type = os::DriveType::Removable;
  World().AddDrive('D', removable);
  World().network.present = false;
  World().shell.desktopFolder = "C:\\desktop";
  World().files.AddFolder("C:\\desktop");
  constexpr std::int64_t kDay = 24 * 60 * 60;
  const std::int64_t base = os::scripted::kDefaultTime;
  for (const char* folder : {"C:\\data\\Sub", "C:\\data\\old", "C:\\data\\表示"}) World().files.AddFolder(folder);
  World().files.AddFile("C:\\data\\a.mdl", "", base + 3 * kDay);
  World().files.AddFile("C:\\data\\A-001.MDL", "x", base + kDay);
  World().files.AddFile("C:\\data\\b.mdl", std::string(1025, 'x'), base + 2 * kDay);
  World().files.AddFile("C:\\data\\ソ.mdl", std::string(5000, 'x'), base);
  World().files.AddFile("C:\\data\\表.mdl", std::string(1024, 'x'), base + 4 * kDay);
  World().files.AddFile("C:\\data\\other.txt");
  World().files.AddFile("C:\\data\\Sub\\inner.mdl");
  World().files.AddFile("C:\\data\\表示\\図.mdl");
  World().files.AddFile("D:\\disk.mdl");
  CwSession::Reset();
  Kinds().AddFileType(CwFileType("#MODEL#", "C:/data", "*.MDL", 0));
  startUp_.initialFolder = "C:\\data";
  startUp_.title = "#MODEL#(*.MDL)";
  startUp_.flags = filedialog::kFlagHideReadOnly | filedialog::kFlagFileMustExist;
  startUp_.caption = kCaption;
  startUp_.kindCode = 1;
}

BrowserMachine::~BrowserMachine() { CwSession::Reset(); }

Outcome BrowserMachine::RunWith(const std::function<int(const filedialog::StartUp&)>& browse) {
  constexpr std::string_view kGuard = "guard";
  std::vector<char> buffer(capacity_ + kGuard.size(), '\0');
  std::copy_n(initialName_.begin(), std::min(initialName_.size(), capacity_ - 1), buffer.begin());
  std::copy(kGuard.begin(), kGuard.end(), buffer.begin() + static_cast<std::ptrdiff_t>(capacity_));
  filedialog::StartUp startUp = startUp_;
  startUp.fileBuffer = buffer.data();
  startUp.capacity = capacity_;
  World().calls.ClearLog();
  const int answer = browse(startUp);
  EXPECT_EQ(std::string(buffer.data() + capacity_, kGuard.size()), kGuard) << "written behind the buffer";
  EXPECT_EQ(World().registry.openHandles, 0);
  return {answer, buffer.data()};
}

std::size_t BrowserMachine::TakeListings() {
  const std::size_t count = World().calls.Count("files.OpenFolder");
  World().calls.ClearLog();
  return count;
}

void BrowserMachine::SaveNumber(const std::string& name, std::uint32_t number, const std::string& key) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(static_cast<unsigned char>(number >> (8 * i) & 0xFFU));
  World().registry.SetValue(key, name, os::RegistryType::Dword, bytes);
}

std::int64_t BrowserMachine::SavedNumber(const std::string& name, const std::string& key) {
  const auto value = World().registry.Value(key, name);
  if (!value) return -1;
  std::uint32_t number = 0;
  for (std::size_t i = value->bytes.size(); i > 0; --i) {
    number = number << 8 | static_cast<unsigned char>(value->bytes[i - 1]);
  }
  return static_cast<std::int32_t>(number);
}

Texts BrowserMachine::SavedRecentFiles() {
  Texts files;
  for (int number = 1; number <= 20; ++number) {
    std::array<char, 16> name = {};
    std::snprintf(name.data(), name.size(), "File%2.2d", number);
    if (const auto value = World().registry.Value(kLayoutKey, name.data())) files.push_back(value->bytes);
  }
  return files;
}

}  // namespace browser_test
