// How fast the browser sorts, reads titles and switches views: sorts of a large listing against std::sort of an index
// over the same keys and one permutation, titles against opening and reading each file by bare calls, and views against
// the bare loop over the folder that each of them lists anew.
//
// Every round measures all contestants one after the other, and each ratio is the median over the rounds of the ratio
// within a round, so that a busy machine slows them alike.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/timing.h"
#include "dlglib/filedialog/CvEscWatch.h"
#include "dlglib/filedialog/CvFileDialog.h"
#include "dlglib/filedialog/entry_description.h"
#include "dlglib/filedialog/entry_order.h"
#include "dlglib/resources/resource.h"
#include "platform/suite/crvncontrol.h"

namespace {

using bench::Median;
using bench::TimeOf;

using filedialog::EntryKind;
using filedialog::EntryTable;
using filedialog::FileEntry;
using filedialog::SortOrder;

constexpr int kSortedEntries = 100000;
constexpr int kModels = 10000;
constexpr int kSortRounds = 15;
constexpr int kFileRounds = 11;
constexpr int kViewRounds = 7;
constexpr std::size_t kHeaderBytes = 16 * 1024;
constexpr char kCaption[] = "browser_bench";

/// Times of the peer and of ours in milliseconds, and ours as a multiple.
void Print(const char* what, const std::vector<double>& peer, const std::vector<double>& ours) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < peer.size(); ++i) ratios.push_back(ours[i] / peer[i]);
  std::printf("| %-32s | %9.1f | %9.1f | %5.2f |\n", what, Median(peer) * 1e3, Median(ours) * 1e3, Median(ratios));
  std::fflush(stdout);
}

// ---------------------------------------------------------------------------------------------------------------------
// sorting

std::string NameOf(int number) {
  std::array<char, 32> name = {};
  std::snprintf(name.data(), name.size(), "MODEL-%06d.MDL", number);
  return name.data();
}

/// Described rows in no order: a few folders, all else files; some sizes and dates are equal.
void FillTable(EntryTable* table) {
  std::vector<int> numbers(kSortedEntries);
  std::iota(numbers.begin(), numbers.end(), 0);
  std::mt19937 random(20240305);
  std::shuffle(numbers.begin(), numbers.end(), random);
  table->Clear(kSortedEntries);
  for (const int number : numbers) {
    const std::string name = NameOf(number);
    const EntryKind kind = number % 100 == 0 ? EntryKind::Folder : EntryKind::File;
    FileEntry& row = table->Add(kind, "C:\\models\\" + name, name, false);
    std::array<char, 32> date = {};
    std::snprintf(date.data(), date.size(), " 20%02u/%02u/%02u 10:%02u:%02u", random() % 25, 1 + random() % 12,
                  1 + random() % 28, random() % 60, random() % 60);
    row.description = date.data();
    row.sizeKb = static_cast<std::int32_t>(random() % 5000);
    row.described = true;
  }
}

void SortByIndex(std::vector<FileEntry>* rows, const SortOrder& order) {
  std::vector<std::uint32_t> index(rows->size());
  std::iota(index.begin(), index.end(), 0U);
  std::sort(index.begin(), index.end(),
            [&](std::uint32_t a, std::uint32_t b) { return filedialog::Compare((*rows)[a], (*rows)[b], order) < 0; });
  std::vector<FileEntry> sorted;
  sorted.reserve(rows->size());
  for (const std::uint32_t row : index) sorted.push_back(std::move((*rows)[row]));
  *rows = std::move(sorted);
}

void MeasureSort(const char* what, const SortOrder& order) {
  EntryTable table;
  FillTable(&table);
  const std::vector<FileEntry> unsorted = table.rows();
  std::vector<double> peer;
  std::vector<double> ours;
  for (int round = 0; round < kSortRounds; ++round) {
    table.rows() = unsorted;
    peer.push_back(TimeOf([&] { SortByIndex(&table.rows(), order); }));
    table.rows() = unsorted;
    ours.push_back(TimeOf([&] { filedialog::Sort(&table, order); }));
  }
  Print(what, peer, ours);
}

// ---------------------------------------------------------------------------------------------------------------------
// titles

/// A folder of models for the time of the run.
class ModelFolder {
 public:
  ModelFolder() {
    std::array<char, MAX_PATH> temp = {};
    ::GetTempPathA(static_cast<DWORD>(temp.size()), temp.data());
    folder_ = std::string(temp.data()) + "browser_bench";
    ::CreateDirectoryA(folder_.c_str(), nullptr);
    for (int number = 0; number < kModels; ++number) Write(number);
  }
  ModelFolder(const ModelFolder&) = delete;
  ModelFolder& operator=(const ModelFolder&) = delete;
  ~ModelFolder() {
    for (int number = 0; number < kModels; ++number) ::DeleteFileA(PathOf(number).c_str());
    ::RemoveDirectoryA(folder_.c_str());
  }

  [[nodiscard]] const std::string& Path() const { return folder_; }
  [[nodiscard]] std::string PathOf(int number) const { return folder_ + "\\" + NameOf(number); }

 private:
  void Write(int number) const {
    const std::string name = NameOf(number);
    const std::string bytes = "CORVANE MODEL 1\n1=" + name + "\n2=No." + name + "\n201=comment\nEND\n" +
                              std::string(static_cast<std::size_t>(number % 40) * 512, 'x');
    const HANDLE file =
        ::CreateFileA(PathOf(number).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    ::CloseHandle(file);
  }

  std::string folder_;
};

void ReadBare(const EntryTable& table) {
  std::vector<char> head(kHeaderBytes);
  for (const FileEntry& row : table.rows()) {
    const HANDLE file = ::CreateFileA(std::string(row.path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD read = 0;
    ::ReadFile(file, head.data(), static_cast<DWORD>(head.size()), &read, nullptr);
    ::CloseHandle(file);
  }
}

void MeasureTitles(const ModelFolder& folder) {
  EntryTable table;
  table.Clear(kModels);
  for (int number = 0; number < kModels; ++number) {
    table.Add(EntryKind::File, folder.PathOf(number), NameOf(number), false);
  }
  filedialog::ShownListing listing;
  listing.mode = filedialog::ListingMode::Titles;
  listing.titleClass = 1;
  listing.titles.count = 3;
  listing.titles.items = {201, 1, 2, 0};
  std::vector<double> peer;
  std::vector<double> ours;
  for (int round = 0; round < kFileRounds; ++round) {
    peer.push_back(TimeOf([&] { ReadBare(table); }));
    for (FileEntry& row : table.rows()) row.described = false;
    CvEscWatch esc;
    esc.Start(nullptr);
    ours.push_back(TimeOf([&] { (void)filedialog::DescribeAll(&table, listing, [&] { return !esc.Pressed(); }); }));
  }
  Print("titles of 10,000 models", peer, ours);
}

// ---------------------------------------------------------------------------------------------------------------------
// views

void ListBare(const std::string& folder) {
  WIN32_FIND_DATAW found = {};
  const std::wstring pattern = std::wstring(folder.begin(), folder.end()) + L"\\*";
  const HANDLE pass = ::FindFirstFileW(pattern.c_str(), &found);
  while (::FindNextFileW(pass, &found) != FALSE) {
  }
  ::FindClose(pass);
}

HWND WaitBrowser() {
  HWND window = nullptr;
  while (window == nullptr || ::IsWindowVisible(window) == FALSE) window = ::FindWindowA("#32770", kCaption);
  return window;
}

/// The view is set, listed and painted when the message has been answered.
void MeasureView(HWND browser, const std::string& folder, const char* what, WPARAM command) {
  const HWND list = ::GetDlgItem(browser, IDC_FILE_LIST);
  std::vector<double> peer;
  std::vector<double> ours;
  for (int round = 0; round < kViewRounds; ++round) {
    peer.push_back(TimeOf([&] { ListBare(folder); }));
    ours.push_back(TimeOf([&] {
      ::SendMessageA(browser, WM_COMMAND, command, 0);
      ::RedrawWindow(list, nullptr, nullptr, RDW_UPDATENOW);
    }));
  }
  Print(what, peer, ours);
}

void MeasureViews(const ModelFolder& folder) {
  std::vector<char> result(256000, '\0');
  filedialog::StartUp startUp;
  startUp.fileBuffer = result.data();
  startUp.capacity = result.size();
  startUp.initialFolder = folder.Path();
  startUp.title = "#TEXT#(*.MDL)";
  startUp.caption = kCaption;
  startUp.kindCode = 6;
  CvFileDialog browser(nullptr, startUp);
  std::thread user([&] {
    const HWND window = WaitBrowser();
    MeasureView(window, folder.Path(), "to details, 10,000 entries", ID_VIEW_DETAILS);
    MeasureView(window, folder.Path(), "to large icons", ID_VIEW_LARGE_ICONS);
    MeasureView(window, folder.Path(), "to small icons", ID_VIEW_SMALL_ICONS);
    MeasureView(window, folder.Path(), "to list", ID_VIEW_LIST);
    MeasureView(window, folder.Path(), "to titles", ID_VIEW_TITLES);
    ::PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
  });
  browser.DoModal();
  user.join();
}

}  // namespace

int main() {
  std::printf("| %-32s | peer, ms  | ours, ms  | times |\n", "");
  MeasureSort("sort 100,000 by name", {filedialog::kSortName, 1});
  MeasureSort("sort 100,000 by size", {filedialog::kSortSize, 1});
  MeasureSort("sort 100,000 by date", {filedialog::kSortDate, -1});
  const ModelFolder folder;
  MeasureTitles(folder);
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#TEXT#", "C:/", "*.MDL", 0));
  MeasureViews(folder);
  return 0;
}
