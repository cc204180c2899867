// A user of the file browser: steps of every kind in any order, answers to its questions, a machine that changes under
// it, a window that goes away while a question is open.
//
// After each step: a folder was listed once, the way back leads where the user came from, what is shown is what the
// core says. At the end: the result fits its buffer, and another browser starts with what was saved.
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/base/path_text.h"
#include "fuzz/fuzz.h"
#include "platform/os/os_scripted.h"
#include "platform/suite/crvncontrol.h"
#include "tests/core/filedialog/browser/played_browser.h"

namespace {

using browser_test::PlayedBrowser;
using browser_test::Texts;
using filedialog::Location;
using os::scripted::World;

constexpr std::size_t kLongestInitialName = 40;
constexpr int kMostSteps = 60;

// "\x95\x5C" is a character whose second byte is a "\".
constexpr const char* kNames[] = {"a.mdl",
                                  "A.MDL",
                                  "b",
                                  "\x95\x5C.mdl",
                                  "sub",
                                  "\x95\x5C",
                                  "other.txt",
                                  "*.txt",
                                  "*.*",
                                  "..",
                                  "..\\sub",
                                  "\\",
                                  "D:\\",
                                  "Q:\\x",
                                  "C:\\data",
                                  "C:\\data\\sub\\deep.mdl",
                                  "\\\\SRV",
                                  "\\\\SRV\\share",
                                  "\"a.mdl\" \"b.mdl\"",
                                  "new.mdl",
                                  "CON",
                                  "a/b",
                                  ""};

os::scripted::NetNode Node(std::uint32_t type, const std::string& name, std::vector<os::scripted::NetNode> children) {
  os::scripted::NetNode node;
  node.record.displayType = type;
  node.record.remoteName = name;
  node.children = std::move(children);
  return node;
}

/// A provider and a computer that wants a logon, with a share.
void BuildNetwork() {
  os::scripted::NetNode server =
      Node(os::kNetDisplayServer, "\\\\SRV", {Node(os::kNetDisplayShare, "\\\\SRV\\share", {})});
  server.openError = os::kErrorAccessDenied;
  World().network.global.children = {Node(os::kNetDisplayNetwork, "Net", {server})};
  World().network.context.children = {server};
  World().network.onConnected = [](const os::NetResource&) { World().files.AddFile("\\\\SRV\\share\\plan.mdl"); };
}

void BuildMachine() {
  World().Reset();
  os::scripted::Drive system;
  system.volumeName = "SYSTEM";
  World().AddDrive('C', system);
  World().AddDrive('D');
  World().shell.desktopFolder = "C:\\desktop";
  World().files.AddFolder("C:\\desktop\\own");
  for (const char* file :
       {"a.mdl", "b.mdl", "\x95\x5C.mdl", "other.txt", "sub\\deep.mdl", "\x95\x5C\\x.mdl", "sub\\sub\\y.mdl"}) {
    World().files.AddFile(std::string("C:\\data\\") + file, file);
  }
  World().files.AddFile("D:\\disk.mdl");
  World().files.AddFile("C:\\desktop\\link.lnk");
  World().shell.links["C:\\desktop\\link.lnk"] = "C:\\data\\sub";
  BuildNetwork();
  CwSession::Reset();
  CwSession::GetInstance()->GetActiveFileTypeSet()->AddFileType(CwFileType("#MODEL#", "C:/data", "*.MDL", 0));
}

/// A name that a user may type: mostly one that means something here.
std::string DrawName(fuzz::Input* input) {
  const std::uint8_t kind = input->Byte();
  const std::string text = kind < std::size(kNames) ? kNames[kind] : input->Text(300);
  return text.substr(0, text.find('\0'));
}

/// Where the browser stands and what it looks for: what a record of the history holds.
struct Stand {
  Location location;
  std::string pattern;
  std::string extension;
};

bool IsSamePlace(const filedialog::Place& a, const filedialog::Place& b) {
  return a.kind == b.kind && filedialog::IsSamePath(a.path, b.path);
}

bool IsSameLocation(const Location& a, const Location& b) {
  return a.fixed == b.fixed && std::equal(a.trail.begin(), a.trail.end(), b.trail.begin(), b.trail.end(), IsSamePlace);
}

bool IsSame(const Stand& a, const Stand& b) {
  return IsSameLocation(a.location, b.location) && a.pattern == b.pattern && a.extension == b.extension;
}

/// Counts the folders that are listed: those of which entries are asked for. A folder that is only opened is looked
/// for.
class ListingCount {
 public:
  ListingCount() {
    World().calls.Watch([this](const std::string& call) {
      if (call == "files.Next" && opened_) ++count_;
      opened_ = call == "files.OpenFolder";
    });
  }
  ListingCount(const ListingCount&) = delete;
  ListingCount& operator=(const ListingCount&) = delete;
  ~ListingCount() { World().calls.Watch({}); }

  [[nodiscard]] std::size_t Taken() { return std::exchange(count_, 0); }

 private:
  bool opened_ = false;
  std::size_t count_ = 0;
};

class User {
 public:
  explicit User(fuzz::Input* input)
      : input_(*input), capacity_(1 + input->Size(600)), buffer_(capacity_), startUp_(DrawStartUp()) {}

  void Run() {
    PlayedBrowser browser(startUp_);
    browser_ = &browser;
    AnswerQuestions();
    browser.Open();
    if (!browser.IsOpen()) return;
    if (!startUp_.folderFixed) history_ = {Present()};
    CheckShown();
    for (int step = 0; step < kMostSteps && browser.IsOpen() && !input_.IsUsedUp(); ++step) CheckedStep();
    if (browser.IsOpen()) {
      World().calls.FailNumber(0);
      browser.Cancel();
    }
    CheckEnd();
  }

 private:
  filedialog::StartUp DrawStartUp() {
    filedialog::StartUp startUp;
    const std::string name = DrawName(&input_).substr(0, std::min(capacity_ - 1, kLongestInitialName));
    std::fill_n(buffer_.Data(), capacity_, '\0');
    std::copy(name.begin(), name.end(), buffer_.Data());
    startUp.fileBuffer = buffer_.Data();
    startUp.capacity = capacity_;
    startUp.initialFolder = input_.Flag() ? "C:\\data" : DrawName(&input_);
    startUp.title = "#MODEL#(*.MDL)";
    const int flags = input_.Number(0, 0xFFFF);
    const auto wanted = [flags](int bit, std::uint32_t flag) { return (flags >> bit & 1) != 0 ? flag : 0U; };
    startUp.flags = wanted(0, filedialog::kFlagFileMustExist) | wanted(1, filedialog::kFlagPathMustExist) |
                    wanted(2, filedialog::kFlagAskOverwrite) | wanted(3, filedialog::kFlagMultiSelect) |
                    wanted(4, filedialog::kFlagHideReadOnly) | wanted(5, filedialog::kFlagPlainOk);
    startUp.listStyle = wanted(6, 1) != 0 ? filedialog::kListMultiple : filedialog::kListSingle;
    startUp.folderFixed = (flags & 0x0380) == 0x0380;
    startUp.kindCode = 1;
    return startUp;
  }

  // ---- answers

  template <class Answer>
  Answer Given(Answer answer) {
    if (input_.Byte() == 1) Vanish();
    return answer;
  }

  void Vanish() {
    browser_->CloseNow();
    mayBeCut_ = true;
  }

  void AnswerQuestions() {
    browser_->answerOverwrite = [this](const std::string&) { return Given(input_.Flag()); };
    browser_->answerSlowSort = [this](const auto&) { return Given(input_.Flag()); };
    browser_->answerLogon = [this](const std::string&) {
      const bool agrees = input_.Flag();
      return Given(agrees ? std::optional(filedialog::Credentials{"user", "word"}) : std::nullopt);
    };
    browser_->answerNewFolder = [this](const std::string& folder) { return Given(NewFolder(folder)); };
    browser_->answerRename = [this](const std::string& folder, const std::string& name, bool) {
      using Outcome = filedialog::OperationResult::Outcome;
      return Given(filedialog::RenameEntry(os::Services(), folder, name, DrawName(&input_)).outcome == Outcome::Done);
    };
    browser_->answerTitles = [this](const auto&, filedialog::TitleSlots slots) {
      const bool agrees = input_.Flag();
      return Given(agrees ? std::optional(slots) : std::nullopt);
    };
    browser_->goesOn = [this] { return !givesUp_; };
  }

  std::optional<std::string> NewFolder(const std::string& folder) {
    const std::string name = DrawName(&input_);
    const auto result = filedialog::CreateFolderIn(os::Services(), folder, name);
    madeFolder_ = result.outcome == filedialog::OperationResult::Outcome::Done;
    return madeFolder_ ? std::optional(name) : std::nullopt;
  }

  // ---- steps

  void CheckedStep() {
    const bool labelWasOpen = browser_->EditsLabel();
    const Stand before = Present();
    const bool wasDesktop = IsDesktop();
    madeFolder_ = goesBack_ = false;
    static_cast<void>(listings_.Taken());
    Step();
    if (mayBeCut_) return;
    CheckListings(labelWasOpen, wasDesktop);
    Follow(before);
    if (browser_->IsOpen()) CheckShown();
  }

  void Step() {
    PlayedBrowser& browser = *browser_;
    switch (input_.Number(0, 24)) {
      case 0:
      case 1:
        return WithRow([&](const std::string& name) { browser.OpenRow(name); });
      case 2:
        return WithRow([&](const std::string& name) { browser.ClickRow(name); });
      case 3:
        return WithRow(
            [&](const std::string& name) { SelectsSeveral() ? browser.AddRow(name) : browser.ClickRow(name); });
      case 4:
        return browser.ClickBesideRows();
      case 5:
        return browser.Up();
      case 6:
      case 7:
        goesBack_ = true;
        return browser.Back();
      case 8:
      case 9:
        return ChoosePlace();
      case 10:
        return browser.ChooseView(kViews[input_.Size(kViews.size() - 1)]);
      case 11:
        return browser.ClickHeader(input_.Number(0, 5));
      case 12:
        return browser.TypeName(DrawName(&input_));
      case 13:
        return browser.Enter(DrawName(&input_));
      case 14:
        return browser.Ok();
      case 15:
        return browser.MakeFolder();
      case 16:
        return browser.Rename();
      case 17:
        return browser.Delete();
      case 18:
        return WithRow([&](const std::string& name) { EditLabel(name); });
      case 19:
        return browser.GiveLabel();
      case 20:
        return ResizeSomething();
      case 21:
        return ChooseRecentCount(input_.Number(-1, filedialog::kRecentCountItems - 1));
      case 22:
        return SelectsSeveral() ? browser.SelectAll() : browser.ClickBesideRows();
      case 23:
        return ChangeTheMachine();
      default:
        givesUp_ = !givesUp_;
    }
  }

  template <class Do>
  void WithRow(const Do& act) {
    const Texts rows = browser_->Rows();
    if (!rows.empty()) act(rows[input_.Size(rows.size() - 1)]);
  }

  [[nodiscard]] bool SelectsSeveral() const { return browser_->Core().Record().listStyle == filedialog::kListMultiple; }

  void ChoosePlace() {
    if (startUp_.folderFixed) return;  // the location bar is disabled
    const Texts places = browser_->Places();
    browser_->ChoosePlace(places[input_.Size(places.size() - 1)]);
  }

  void EditLabel(const std::string& name) {
    if (!browser_->EditLabel(name)) return;
    browser_->TypeLabel(DrawName(&input_));
  }

  void ResizeSomething() {
    if (input_.Flag()) return browser_->Resize(input_.Number(560, 1200), input_.Number(380, 1000));
    const std::size_t columns = browser_->Columns().size();
    if (columns != 0) browser_->SetColumnWidth(input_.Size(columns - 1), input_.Number(0, 500));
  }

  void ChooseRecentCount(int count) {
    browser_->ChooseRecentCount(count);
    if (count >= 0) recentCount_ = count;
  }

  void ChangeTheMachine() {
    switch (input_.Number(0, 3)) {
      case 0:
        World().calls.FailNumber(static_cast<std::size_t>(input_.Number(1, 12)));
        mayBeUnsaved_ = true;
        return;
      case 1:
        return static_cast<void>(
            World().files.AddFile("C:\\data\\" + std::string(1, static_cast<char>(input_.Number('k', 'p')))));
      default:
        World().files.Remove(input_.Flag() ? "C:\\data\\sub" : "C:\\data\\a.mdl");
    }
  }

  // ---- what holds

  [[nodiscard]] Stand Present() const {
    const filedialog::FileBrowser& core = browser_->Core();
    return {core.Places().current(), core.Kind().pattern, core.Kind().extension};
  }

  /// The desktop is listed once for its files and once for its shortcuts. A name that was being edited is carried out
  /// before the step itself, and both list.
  void CheckListings(bool labelWasOpen, bool wasDesktop) {
    const std::size_t label = !labelWasOpen ? 0 : wasDesktop ? 2 : 1;
    const std::size_t step = IsDesktop() ? 2 : 1;
    FUZZ_CHECK(listings_.Taken() <= label + step);
  }

  [[nodiscard]] bool IsDesktop() const { return browser_->Core().Places().Kind() == filedialog::LocationKind::Desktop; }

  /// Keeps a history of its own beside the browser's.
  void Follow(const Stand& before) {
    const Stand now = Present();
    // A pattern may be typed all the same.
    if (startUp_.folderFixed) return FUZZ_CHECK(IsSameLocation(before.location, now.location));
    if (goesBack_) {
      if (history_.size() >= 2) history_.pop_back();
      FUZZ_CHECK(IsSame(history_.back(), now));
    } else if (madeFolder_ || !IsSame(before, now)) {
      history_.push_back(now);
    }
  }

  void CheckShown() const {
    const PlayedBrowser& browser = *browser_;
    FUZZ_CHECK(browser.OpenWays().back == (history_.size() >= 2));
    FUZZ_CHECK(!browser.IsWorking());
    const Texts names = browser.Rows();
    FUZZ_CHECK(browser.SelectedNames().size() <= names.size());
    FUZZ_CHECK(!browser.Places().empty());
  }

  void CheckEnd() {
    FUZZ_CHECK(World().registry.openHandles == 0);
    FUZZ_CHECK(World().network.openPasses == 0);
    const std::string_view result = buffer_.View();
    FUZZ_CHECK(result.find('\0') != std::string_view::npos);
    if (mayBeCut_ || mayBeUnsaved_) return;
    CheckSaved();
  }

  /// Another browser starts as this one was left.
  void CheckSaved() {
    const bool chosen = browser_->Answer() == static_cast<int>(filedialog::Ending::Chosen);
    const std::string result = buffer_.Data();
    PlayedBrowser next(startUp_);
    next.Open();
    FUZZ_CHECK(next.IsOpen());
    FUZZ_CHECK(next.View() == browser_->View());
    FUZZ_CHECK(next.Area() == browser_->Area());
    FUZZ_CHECK(next.OfferedNames().size() <= static_cast<std::size_t>(recentCount_));
    if (!chosen || SelectsSeveral() || recentCount_ == 0) return;
    const auto form = startUp_.folderFixed ? filedialog::RecentForm::NameOnly : filedialog::RecentForm::FullPath;
    FUZZ_CHECK(next.OfferedNames().front() == filedialog::RecentName(result, form));
  }

  static constexpr std::array kViews = {filedialog::ViewMode::LargeIcons, filedialog::ViewMode::SmallIcons,
                                        filedialog::ViewMode::Details, filedialog::ViewMode::List,
                                        filedialog::ViewMode::Titles};

  fuzz::Input& input_;
  std::size_t capacity_;
  fuzz::Block buffer_;
  filedialog::StartUp startUp_;
  PlayedBrowser* browser_ = nullptr;
  ListingCount listings_;
  std::vector<Stand> history_;  ///< newest last; none while the folder is fixed
  bool madeFolder_ = false;
  bool goesBack_ = false;
  bool givesUp_ = false;
  bool mayBeCut_ = false;      ///< the window has gone while the browser was at work
  bool mayBeUnsaved_ = false;  ///< a call of the system has failed, or will
  int recentCount_ = filedialog::kDefaultRecentCount;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  BuildMachine();
  fuzz::Input input(data, size);
  User(&input).Run();
  CwSession::Reset();
  return 0;
}
