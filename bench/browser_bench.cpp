// How fast the browser sorts, reads titles and switches views: sorts of a large listing against std::sort of an index
// over the same keys and one permutation, titles against opening and reading each file by bare calls, and views against
// the bare loop over the folder that each of them lists anew.
//
//   browser_bench FOLDER    FOLDER\10000 is a folder of 10,000 models, MODEL-000000.MDL and so on
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench/find_loop.h"
#include "bench/measure.h"
#include "dlglib/filedialog/listing/entry_description.h"
#include "dlglib/filedialog/listing/entry_order.h"
#include "dlglib/filedialog/waiting/CvEscWatch.h"
#include "dlglib/filedialog/window/CvFileDialog.h"
#include "dlglib/resources/resource.h"
#include "platform/suite/crvncontrol.h"
#include "tests/core/filedialog/listing/plain_order.h"

namespace {

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
            [&](std::uint32_t a, std::uint32_t b) { return filedialog::PlainBefore((*rows)[a], (*rows)[b], order); });
  std::vector<FileEntry> sorted;
  sorted.reserve(rows->size());
  for (const std::uint32_t row : index) sorted.push_back(std::move((*rows)[row]));
  *rows = std::move(sorted);
}

void MeasureSort(const char* what, const SortOrder& order) {
  EntryTable table;
  FillTable(&table);
  const std::vector<FileEntry> unsorted = table.rows();
  bench::Row row{what, "std::sort of an index", {}, {}, 1.0};
  for (int round = 0; round < kSortRounds; ++round) {
    table.rows() = unsorted;
    row.theirs.push_back(bench::TimeOf([&] { SortByIndex(&table.rows(), order); }));
    table.rows() = unsorted;
    row.ours.push_back(bench::TimeOf([&] { filedialog::Sort(&table, order); }));
  }
  bench::Print(row);
}

// ---------------------------------------------------------------------------------------------------------------------
// titles

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

void MeasureTitles(const std::string& folder) {
  EntryTable table;
  table.Clear(kModels);
  for (int number = 0; number < kModels; ++number) {
    const std::string name = NameOf(number);
    table.Add(EntryKind::File, std::string(folder).append("\\").append(name), name, false);
  }
  filedialog::ShownListing listing;
  listing.mode = filedialog::ListingMode::Titles;
  listing.titleClass = 1;
  listing.titles.count = 3;
  listing.titles.items = {201, 1, 2, 0};
  const auto describe = [&] {
    for (FileEntry& row : table.rows()) row.described = false;
    CvEscWatch esc;
    esc.Start(nullptr);
    filedialog::RowDescriptions all(table, listing);
    (void)all.FindOut(*os::Services().files, [&] { return !esc.Pressed(); });
    all.Tell(&table);
  };
  bench::Compare({"titles of 10000 models", "open, read, close each", {}, {}, 1.2}, kFileRounds,
                 {describe, [&] { ReadBare(table); }});
}

// ---------------------------------------------------------------------------------------------------------------------
// views

HWND WaitBrowser() {
  HWND window = nullptr;
  while (window == nullptr || ::IsWindowVisible(window) == FALSE) window = ::FindWindowA("#32770", kCaption);
  return window;
}

/// The view is set, listed and painted when the message has been answered.
void MeasureView(HWND browser, const std::string& folder, const std::string& what, WPARAM command) {
  const HWND list = ::GetDlgItem(browser, IDC_FILE_LIST);
  const auto change = [&] {
    ::SendMessageA(browser, WM_COMMAND, command, 0);
    ::RedrawWindow(list, nullptr, nullptr, RDW_UPDATENOW);
  };
  bench::Compare({"view of 10000 files to " + what, "find loop", {}, {}}, kViewRounds,
                 {change, [&] { bench::FindAll(folder); }});
}

void MeasureViews(const std::string& folder) {
  std::vector<char> result(256000, '\0');
  filedialog::StartUp startUp;
  startUp.fileBuffer = result.data();
  startUp.capacity = result.size();
  startUp.initialFolder = folder;
  startUp.title = "#BENCH#(*.MDL)";
  startUp.caption = kCaption;
  startUp.kindCode = 6;
  CvFileDialog browser(nullptr, startUp);
  std::thread user([&] {
    const HWND window = WaitBrowser();
    MeasureView(window, folder, "large icons", ID_VIEW_LARGE_ICONS);
    MeasureView(window, folder, "small icons", ID_VIEW_SMALL_ICONS);
    MeasureView(window, folder, "list", ID_VIEW_LIST);
    MeasureView(window, folder, "titles", ID_VIEW_TITLES);
    MeasureView(window, folder, "details", ID_VIEW_DETAILS);
    ::PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
  });
  browser.DoModal();
  user.join();
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return EXIT_FAILURE;
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#BENCH#", "C:/", "*.MDL", 0));
  const std::string folder = std::string(arguments[1]) + "\\10000";
  MeasureSort("sort 100000 by name", {filedialog::kSortName, 1});
  MeasureSort("sort 100000 by size", {filedialog::kSortSize, 1});
  MeasureSort("sort 100000 by date", {filedialog::kSortDate, -1});
  MeasureTitles(folder);
  MeasureViews(folder);
  return EXIT_SUCCESS;
}
