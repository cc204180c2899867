// Faults in what the library does without a window: a file request whose browser is played by the core, the recent
// lists, the suite's files. Natively, under the sanitizers.
#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "dlglib/base/shift_jis.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/entry_order.h"
#include "dlglib/filedialog/listing/entry_place.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/folder_listing.h"
#include "dlglib/filedialog/listing/network_listing.h"
#include "dlglib/filedialog/listing/row_cells.h"
#include "dlglib/filedialog/memory/layout_record.h"
#include "dlglib/filedialog/memory/recent_files.h"
#include "dlglib/filedialog/names/folder_operations.h"
#include "dlglib/filedialog/names/typed_name.h"
#include "dlglib/filedialog/place/network_logon.h"
#include "dlglib/filedialog/place/start_location.h"
#include "dlglib/filsel/file_request.h"
#include "dlglib/listcontrol/grid_model.h"
#include "dlglib/utility/rules/used_list.h"
#include "dlglib/utility/toolbar/clipboard_copy.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvncui.h"
#include "tests/core/filedialog/browser/played_browser.h"
#include "tests/robustness/fault_world.h"
#include "tests/robustness/faults.h"
#include "tests/robustness/heap_watch.h"

namespace robustness {
namespace {

using filedialog::EntryTable;
using filedialog::ListingMode;
using filedialog::ViewMode;
using os::scripted::World;

/// What a user does in the browser, done by the core alone.
class Session : public filsel::RequestWindows, private filedialog::NetworkLogon, private filedialog::NamePrompt {
 public:
  int RunBrowser(const filedialog::StartUp& startUp) override {
    startUp_ = startUp;
    Start();
    WalkAbout();
    WorkOnEntries();
    return Choose();
  }
  void ShowRefusal(const SjisText&) override { refused_ = true; }

  [[nodiscard]] bool Refused() const { return refused_; }

 private:
  void Start() {
    kind_ =
        filedialog::MakeFileKind(startUp_.title, startUp_.description, startUp_.kindCode, *CwSession::GetInstance());
    filedialog::ApplyInitialName("", &kind_);
    filedialog::DriveNames drives(os::Services(), nullptr, [] {});
    drives.Ask(startUp_.initialFolder);
    places_.Build(filedialog::ReadFixedPlaces(os::Services(), drives, *this).value());
    places_.Enter(filedialog::StartLocation(*os::Services().files, places_, startUp_.initialFolder));
    const auto keys = filedialog::KindLayoutKeys("#MODEL#", ".MDL");
    filedialog::LoadModelLayout(*os::Services().registry, keys, keys, &layout_);
    List(ListingMode::Details);
  }

  void List(ListingMode mode) {
    const filedialog::ShownListing shown{mode, 1, layout_.titles};
    static_cast<void>(filedialog::LogOnBeforeListing(*os::Services().files, *os::Services().network, places_.Folder(),
                                                     places_.Resource(), *this));
    filedialog::ListFolder(*os::Services().files, {places_.Folder(), kind_, filedialog::FinderMode::FilesAndFolders},
                           &table_);
    DescribeAll(shown);
    filedialog::Sort(&table_, {filedialog::kSortSize, -1});
    for (const filedialog::FileEntry& row : table_.rows())
      static_cast<void>(filedialog::CellsOf(*os::Services().drives, row, shown));
  }

  void DescribeAll(const filedialog::ShownListing& shown) {
    filedialog::RowDescriptions all(table_, shown);
    all.FindOut(*os::Services().files);
    all.Tell(&table_);
  }

  void WalkAbout() {
    for (const char* folder : {"C:\\data\\Sub", "D:\\", "C:\\data"}) {
      if (auto location = places_.Find(folder)) places_.Enter(std::move(*location));
      List(ListingMode::Titles);
    }
    filedialog::DesktopRows desktop;
    filedialog::ListDesktop(os::Services(), {"C:\\desktop", kind_, filedialog::FinderMode::FilesAndFolders}, &desktop);
    filedialog::FitShortcuts(kind_.pattern, &desktop);
    filedialog::ListDrives(places_, &table_);
    DescribeAll({ListingMode::Drives, 1, layout_.titles});
    for (const std::size_t fixed : {places_.network(), places_.network() + 2}) {
      if (fixed >= places_.fixed().size()) continue;
      places_.Enter({fixed, {}});
      filedialog::ListPlaces(filedialog::NetworkPlaces(*os::Services().network, places_, *this).value(), &table_);
    }
    if (auto location = places_.Find("C:\\data")) places_.Enter(std::move(*location));
  }

  void WorkOnEntries() {
    World().files.AddFile("C:\\data\\renamed.mdl", "x");
    static_cast<void>(filedialog::CreateFolderIn(os::Services(), kFolder, "new"));
    static_cast<void>(filedialog::RenameEntry(os::Services(), kFolder, "new", "newer"));
    static_cast<void>(
        filedialog::DeleteEntries(os::Services(), nullptr, kFolder, std::vector<std::string_view>{"newer"}));
    List(ListingMode::Details);
  }

  int Choose() {
    const filedialog::LayoutTarget target{kLayoutKey, kLayoutKey, filedialog::TitleView::Models};
    os::Registry& registry = *os::Services().registry;
    os::Session& session = *os::Services().session;
    layout_.view = filedialog::ViewMode::Details;
    layout_.left = 100;
    filedialog::SaveLayout(registry, session, target, filedialog::LayoutPart::Window, layout_);
    const auto answer =
        filedialog::ResolveTypedName("b", {startUp_.flags, kFolder, ".MDL", false}, {os::Services(), *this}).value();
    if (answer.outcome != filedialog::NameAnswer::Outcome::Accept) return filsel::kCancelled;
    filedialog::AddRecentFile(kChosen, &layout_.recentFiles);
    filedialog::SaveLayout(registry, session, target, filedialog::LayoutPart::RecentFiles, layout_);
    const bool list = startUp_.listStyle == filedialog::kListMultiple;
    shift_jis::CopyBounded(startUp_.fileBuffer, startUp_.capacity,
                           list ? "C:\\data\\a.MDL C:\\data\\b.MDL" : "C:\\data\\b.mdl");
    return filsel::kAccepted;
  }

  filedialog::Reply<std::optional<filedialog::Credentials>> Ask(const std::string&, const std::string&) override {
    if (++asked_ >= 20) return std::optional<filedialog::Credentials>();
    return std::optional(filedialog::Credentials{"taro", "pass"});
  }
  filedialog::Reply<filedialog::Done> Warn(const std::string&) override { return filedialog::Done{}; }
  filedialog::Reply<bool> AskOverwrite(const std::string&) override { return true; }

  filedialog::StartUp startUp_;
  filedialog::FileKind kind_;
  filedialog::LocationTree places_{*os::Services().shell};
  filedialog::LayoutRecord layout_;
  EntryTable table_;
  int asked_ = 0;
  bool refused_ = false;
};

/// A person in the browser, whose window is played. As the window procedure ends a message, a step ends where memory
/// runs out, and the next one is taken all the same.
class Person : public filsel::RequestWindows {
 public:
  int RunBrowser(const filedialog::StartUp& startUp) override {
    browser_test::PlayedBrowser browser(startUp);
    Prepare(&browser);
    if (!Step([&] { browser.Open(); })) return filsel::kCancelled;
    WalkAbout(browser);
    WorkOnEntries(browser);
    Step([&] { browser.Enter("b"); });
    if (browser.IsOpen()) Step([&] { browser.Cancel(); });
    return browser.IsOpen() ? filsel::kCancelled : browser.Answer();
  }
  void ShowRefusal(const SjisText&) override {}

 private:
  static void Prepare(browser_test::PlayedBrowser* browser) {
    browser->answerLogon = [](const std::string&) { return std::optional(filedialog::Credentials{"taro", "pass"}); };
    browser->answerNewFolder = [](const std::string& folder) -> std::optional<std::string> {
      if (filedialog::IsRefusal(filedialog::CreateFolderIn(os::Services(), folder, "new").outcome)) return std::nullopt;
      return "new";
    };
    browser->answerSlowSort = [](filedialog::SlowSortRule&) { return true; };
  }

  /// What a step needs may not be there after a fault before it.
  template <class Act>
  static bool Step(const Act& act) {
    try {
      act();
      return true;
    } catch (const std::bad_alloc&) {
    } catch (const std::out_of_range&) {
    }
    return false;
  }

  static void WalkAbout(browser_test::PlayedBrowser& browser) {
    Step([&] { browser.OpenRow("Sub"); });
    Step([&] { browser.Up(); });
    Step([&] { browser.Back(); });
    for (const char* place : {"マイコンピュータ", "マイネットワーク", "デスクトップ"}) {
      Step([&] { browser.ChoosePlace(place); });
    }
    Step([&] { browser.Enter(kFolder); });
    for (const ViewMode view : {ViewMode::LargeIcons, ViewMode::List, ViewMode::Titles, ViewMode::Details})
      Step([&] { browser.ChooseView(view); });
    for (const int column : {1, 2, 0}) Step([&] { browser.ClickHeader(column); });
  }

  static void WorkOnEntries(browser_test::PlayedBrowser& browser) {
    Step([&] { browser.MakeFolder(); });
    Step([&] {
      if (!browser.EditLabel("new")) return;
      browser.TypeLabel("newer");
      browser.GiveLabel();
    });
    for (const char* name : {"new", "newer"}) {
      if (Step([&] { browser.ClickRow(name); })) Step([&] { browser.Delete(); });
    }
  }
};

template <class Windows = Session>
bool RunRequest(filsel::RequestMode mode, const std::string& keyword, const std::string& listFile) {
  Windows session;
  filsel::RasterMemory memory;
  filsel::FileRequest request({{}, EucView(keyword), {}, EucView(listFile)}, mode, 0, os::Services(),
                              *CwSession::GetInstance());
  const int answer = request.Run(0, session, memory);
  static_cast<void>(request.Name().bytes() + request.FullInternalName().bytes() + request.FullRealName().bytes());
  return answer == filsel::kAccepted;
}

Scenario OneFile() {
  return {"a request for one file", PrepareWorld,
          [] { return RunRequest(filsel::RequestMode::OneFile, "#MODEL#", ""); },
          [] {
            CheckLayout();
            CheckRecentFiles();
          }};
}

Scenario OneFileByHand() {
  return {"a request for one file, used as a person does", PrepareWorld,
          [] { return RunRequest<Person>(filsel::RequestMode::OneFile, "#MODEL#", ""); },
          [] {
            CheckLayout();
            CheckRecentFiles();
          }};
}

Scenario FileList() {
  return {"a request for a list of files", PrepareWorld,
          [] { return RunRequest(filsel::RequestMode::FileList, "#MODEL#", "C:/out/list.txt"); },
          [] {
            CheckLayout();
            CheckRecentFiles();
            CheckListFile("a\r\nb\r\n");
          }};
}

constexpr char kRasterKey[] = "Software\\Nalbo\\Corvane\\FileDialog\\#RASTER#";

Scenario RasterFile() {
  return {"a request for a raster file",
          [] {
            PrepareWorld();
            CwSession::GetInstance()->GetStartupParam()->Define("SXF_USE_LAST_HOLDER");
            World().registry.SetValue(kRasterKey, "Latest", os::RegistryType::String, "D:\\old\\");
          },
          [] { return RunRequest(filsel::RequestMode::OneFile, "#RASTER#", ""); },
          [] {
            const auto latest = World().registry.Value(kRasterKey, "Latest");
            ASSERT_TRUE(latest);
            EXPECT_TRUE(latest->bytes == "D:\\old\\" || latest->bytes == "C:\\data\\") << latest->bytes;
          }};
}

// ---- recent lists

constexpr used_list::Kind kLists[] = {used_list::Kind::InputFiles, used_list::Kind::OutputFiles,
                                      used_list::Kind::Names};

/// As a dialog does with each list: reads it, puts an entry on top and writes it.
bool UseLists() {
  bool written = true;
  for (const used_list::Kind kind : kLists) {
    const auto key = os::Services().registry->Create(used_list::KeyName(kind, "#MODEL#"));
    if (!key) return false;
    used_list::List list = used_list::Read(*key, kind);
    if (!list.whole) return false;
    if (list.entries.front() != "new") list.entries.insert(list.entries.begin(), "new");
    written = used_list::Write(*key, kind, list.entries, list.count) && written;
  }
  return written;
}

Scenario RecentLists() {
  return {"the recent lists",
          [] {
            for (const used_list::Kind kind : kLists) {
              const auto key = os::Services().registry->Create(used_list::KeyName(kind, "#MODEL#"));
              ASSERT_TRUE(used_list::Write(*key, kind, {"a", "b", "c"}, 7));
            }
          },
          UseLists,
          [] {
            for (const used_list::Kind kind : kLists) {
              const auto key = os::Services().registry->Create(used_list::KeyName(kind, "#MODEL#"));
              const used_list::List list = used_list::Read(*key, kind);
              EXPECT_EQ(list.count, 7);
              EXPECT_TRUE(list.entries == (used_list::Entries{"a", "b", "c"}) ||
                          list.entries == (used_list::Entries{"new", "a", "b", "c"}));
            }
          }};
}

// ---- the suite

constexpr char kSession[] = "C:\\suite\\session.ini";

bool UseSuite() {
  bool good = CwSession::LoadFile(kSession);
  CwFileFinder* const finder = CwFileFinder::CreateInstance();
  const struct Closer {
    CwFileFinder* finder;
    ~Closer() { finder->Destroy(); }
  } closer{finder};
  good = finder->Start("C:/data/*.MDL", 2) && good;
  int entries = 0;
  while (finder->HasNext()) entries += finder->GetEntry().empty() ? 0 : 1;
  const int numbers[] = {201, 1};
  std::string texts[2];
  good = GetFilTtl("C:/data/a.mdl", numbers, 2, texts) == 0 && good;
  std::string text;
  good = GetFilTtl(2, "C:/suite/p.prt", &text) == 0 && good;
  good = cnsver("C:/suite/c.cns", nullptr) == 0 && good;
  good = CwItemAttrTable2::IsDefinitionFile("C:/suite/t.atr") && good;
  return good && entries == 6;
}

Scenario Suite() {
  return {"the suite's files",
          [] {
            PrepareWorld();
            World().files.AddFile(kSession, "[kinds]\n#CONSTANT# = C:/suite | *.CNS\n");
            World().files.AddFile("C:\\suite\\p.prt", "CORVANE PARTS 1\nTITLE=part\nEND\n");
            World().files.AddFile("C:\\suite\\c.cns", "CORVANE CONST 1\nEND\n");
            World().files.AddFile("C:\\suite\\t.atr", "CORVANE ATTR 1\nEND\n");
          },
          UseSuite};
}

// ---- clipboard and grid

Scenario Clipboard() {
  return {"a text on the clipboard", [] {},
          [] {
            const clipboard_copy::Actions actions{[] {
                                                    World().clipboard.text = "text";
                                                    ++World().clipboard.sequence;
                                                  },
                                                  [](unsigned) {}};
            os::Clipboard& clipboard = *os::Services().clipboard;
            return clipboard_copy::TryCopy(clipboard, "text", nullptr, actions) &&
                   clipboard_copy::Holds(clipboard, "text", nullptr, actions.pause);
          }};
}

/// A table that is filled, changed and made anew; its storage is what is large.
Scenario Grid() {
  return {"the data of a grid", [] {},
          [] {
            grid::GridModel model;
            for (const int rows : {100, 2000}) {
              model.Init(5, 20, rows, 0);
              for (int row = 0; row < 20; ++row) model.SetText(row, 1, "SUS304");
              model.InsertRow(3);
              model.DeleteSelectedRows();
            }
            return std::string_view(model.Text(5, 1)) == "SUS304";
          }};
}

class Faults : public testing::TestWithParam<Scenario (*)()> {};

TEST_P(Faults, EveryServiceCallFailsOnce) { TryServiceFaults(GetParam()(), 40); }

TEST_P(Faults, EveryRequestForMemoryFailsOnce) { TryMemoryFaults(GetParam()(), kAnyBlock, 20); }

TEST(EntryTables, RowWithoutRoomForItsTextsIsNoRow) {
  constexpr std::size_t kRequests = 3;  // the texts, the list of their blocks, the rows
  for (std::size_t n = 1; n <= kRequests; ++n) {
    filedialog::EntryTable table;
    FailRequest(n, kAnyBlock);
    EXPECT_THROW(table.Add(filedialog::EntryKind::Folder, "C:\\data\\made", "made", false), std::bad_alloc);
    FailRequest(0, SIZE_MAX);
    EXPECT_EQ(table.size(), 0U);
    EXPECT_EQ(table.Add(filedialog::EntryKind::Folder, "C:\\data\\sub", "sub", false).path, "C:\\data\\sub");
    EXPECT_EQ(table.rows().front().name, "sub");
  }
}

INSTANTIATE_TEST_SUITE_P(Core, Faults,
                         testing::Values(&OneFile, &OneFileByHand, &FileList, &RasterFile, &RecentLists, &Suite,
                                         &Clipboard, &Grid));

}  // namespace
}  // namespace robustness
