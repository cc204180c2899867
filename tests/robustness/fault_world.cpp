#include "tests/robustness/fault_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "dlglib/filedialog/memory/layout_record.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "tests/robustness/faults.h"

namespace robustness {
namespace {

using os::scripted::NetNode;
using os::scripted::World;

constexpr char kProvider[] = "図面ネットワーク";
const std::string kModelBytes = "CORVANE MODEL 1\n1=PUMP\n201=TITLE\nEND\n";

NetNode Node(std::uint32_t displayType, const std::string& remoteName, std::vector<NetNode> children = {}) {
  NetNode node;
  node.record.scope = os::kNetScopeGlobal;
  node.record.displayType = displayType;
  node.record.remoteName = remoteName;
  node.record.comment = "資料";
  node.record.provider = kProvider;
  node.children = std::move(children);
  return node;
}

void PrepareFiles() {
  World().AddDrive('C', {.volumeName = "SYSTEM"});
  World().AddDrive('D', {.type = os::DriveType::Removable});
  for (const char* folder : {"C:\\data\\Sub", "C:\\data\\old", "C:\\desktop", "C:\\out"}) {
    World().files.AddFolder(folder);
  }
  for (const char* file : {"C:\\data\\a.mdl", "C:\\data\\b.mdl", "C:\\data\\表.mdl", "C:\\data\\Sub\\in.mdl"}) {
    World().files.AddFile(file, kModelBytes);
  }
  World().files.AddFile("C:\\data\\renamed.mdl", "x");
  World().files.AddFile("C:\\desktop\\to a.lnk");
  World().files.AddFile("C:\\desktop\\to Sub.lnk");
  World().shell.desktopFolder = "C:\\desktop";
  World().shell.links = {{"C:\\desktop\\to a.lnk", "C:\\data\\a.mdl"}, {"C:\\desktop\\to Sub.lnk", "C:\\data\\Sub"}};
  World().files.AddFile(kListFile, kOldList);
}

void PrepareSuite() {
  CwFileTypeSet& kinds = *CwSession::GetInstance()->GetActiveFileTypeSet();
  kinds.AddFileType(CwFileType("#MODEL#", "C:/data", "*.MDL", 0));
  kinds.AddFileType(CwFileType("#RASTER#", "C:/data/", "", 0));
  CwModelTitleSet& titles = *CwSession::GetInstance()->OpenModel()->GetModelTitleSet();
  titles.SetTitle(1, 0, "NAME");
  titles.SetTitle(201, 0, "TITLE");
}

void PrepareLayout() {
  filedialog::LayoutRecord old;
  old.view = filedialog::ViewMode::Titles;
  old.left = 11;
  old.top = 12;
  old.width = 500;
  old.height = 400;
  old.slowSort = {kOldSlowSort, kOldLimit};
  old.titles.count = 2;
  old.titles.items = {201, 1};
  old.titles.texts = {"注記", "名称"};
  old.titles.widths = {120, 80, 70};
  old.detailWidths = {150, 60, 70};
  old.recentFiles = OldRecentFiles();
  const filedialog::LayoutTarget target{kLayoutKey, kLayoutKey, filedialog::TitleView::Models};
  const os::ServiceTable& services = os::Services();
  for (const auto part : {filedialog::LayoutPart::Window, filedialog::LayoutPart::RecentFiles}) {
    ASSERT_FALSE(filedialog::SaveLayout(*services.registry, *services.session, target, part, old));
  }
}

void ExpectDword(const std::string& name, std::uint32_t expected) {
  const auto value = World().registry.Value(kLayoutKey, name);
  ASSERT_TRUE(value) << name;
  std::string bytes;
  for (; bytes.size() < 4; expected >>= 8) bytes.push_back(static_cast<char>(expected & 0xFF));
  EXPECT_EQ(value->bytes, bytes) << name;
}

void ExpectBytes(const std::string& name, const std::string& bytes) {
  const auto value = World().registry.Value(kLayoutKey, name);
  ASSERT_TRUE(value) << name;
  EXPECT_EQ(value->bytes, bytes) << name;
}

std::vector<std::string> StoredRecentFiles() {
  std::vector<std::string> files;
  for (int number = 1; number <= 20; ++number) {
    std::array<char, 16> name = {};
    std::snprintf(name.data(), name.size(), "File%2.2d", number);
    const auto value = World().registry.Value(kLayoutKey, name.data());
    if (!value) break;
    files.push_back(value->bytes);
  }
  return files;
}

}  // namespace

const std::vector<std::string>& OldRecentFiles() {
  static const std::vector<std::string> files = {"C:\\data\\a.mdl", "C:\\data\\表.mdl", "C:\\old\\gone.mdl"};
  return files;
}

void PrepareNetwork() {
  NetNode server = Node(os::kNetDisplayServer, "\\\\SRV", {Node(os::kNetDisplayShare, "\\\\SRV\\docs")});
  server.openError = os::kErrorAccessDenied;
  World().network.global.children = {
      Node(os::kNetDisplayNetwork, kProvider, {Node(os::kNetDisplayDomain, "設計部", {server})})};
  World().network.context.children = {Node(os::kNetDisplayRoot, "Root"), server};
  World().network.onConnected = [](const os::NetResource&) { World().files.AddFile("\\\\SRV\\docs\\plan.mdl"); };
}

void PrepareWorld() {
  CwSession::Reset();
  World().Reset();
  PrepareFiles();
  PrepareNetwork();
  PrepareSuite();
  PrepareLayout();
}

void CheckLayout() {
  ExpectDword("Confirm", static_cast<int>(kOldSlowSort));
  ExpectDword("Count", kOldLimit);
  ExpectBytes("Title1", std::string("\xC9\x00", 2));
  ExpectBytes("Title2", std::string("\x01\x00", 2));
  ExpectBytes("Text1", "注記");
  ExpectBytes("Text2", "名称");
  ExpectDword("FileCount", 10);
  for (const auto& [folded, key] : World().registry.Keys()) {
    EXPECT_TRUE(key.name.starts_with("Software\\Nalbo\\Corvane\\")) << key.name;
  }
}

void CheckRecentFiles() {
  std::vector<std::string> added = {kChosen};
  added.insert(added.end(), OldRecentFiles().begin(), OldRecentFiles().end());
  std::vector<std::string> stored = StoredRecentFiles();
  // The extension that completes a typed name is in the letters of the kind or in those of the initial name.
  if (!stored.empty() && os::scripted::Fold(stored.front()) == os::scripted::Fold(kChosen)) stored.front() = kChosen;
  EXPECT_TRUE(stored == OldRecentFiles() || stored == added) << testing::PrintToString(stored);
}

void CheckListFile(const std::string& written) {
  const os::scripted::Node* const file = World().files.Find(kListFile);
  ASSERT_NE(file, nullptr) << "the list file is lost";
  EXPECT_TRUE(file->bytes == kOldList || file->bytes == written) << file->bytes;
  // A former file that cannot be removed, or for whose name there is no memory, stays beside the new one.
  const std::size_t expected = FailedCall().empty() || FailedCall().starts_with("files.Remove") ? 2 : 1;
  EXPECT_LE(World().files.Find("C:\\out")->children.size(), expected);
}

}  // namespace robustness
