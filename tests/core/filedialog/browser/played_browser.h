// The file browser with a window that only exists in memory, and a person who uses it.
//
// What the person does goes through the same functions that the real window calls, in the same order. Questions are
// answered by functions that a test sets beforehand; every message and question is noted. A window that a question has
// closed (CloseNow) must not be touched any more: whatever is shown on it is an error (std::logic_error).
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dlglib/filedialog/browser/file_browser.h"

namespace browser_test {

using Texts = std::vector<std::string>;

class PlayedBrowser final : public filedialog::BrowserView, public filedialog::BrowserQuestions {
 public:
  using Reply = filedialog::Reply<bool>;

  /// Whose calls are made in place.
  explicit PlayedBrowser(filedialog::StartUp startUp);
  /// Which waits as `window` plays it, while `workers` (none: in place) make the calls.
  PlayedBrowser(filedialog::StartUp startUp, filedialog::WaitingWindow* window, os::Workers* workers);

  /// As DoModal does before the window is shown.
  void Open();
  [[nodiscard]] bool IsOpen() const { return open_; }
  [[nodiscard]] int Answer() const { return answer_; }
  [[nodiscard]] filedialog::FileBrowser& Core() { return browser_; }
  [[nodiscard]] filedialog::Patience& Waits() { return patience_; }

  // ---- what the person sees
  [[nodiscard]] Texts Rows() const;
  [[nodiscard]] std::vector<int> Images() const;
  [[nodiscard]] Texts SelectedNames() const;
  /// The row with the keyboard's frame; empty for none.
  [[nodiscard]] std::string FocusedName() const;
  [[nodiscard]] const filedialog::Point& ScrollPlace() const { return scroll_; }
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const Texts& OfferedNames() const { return offered_; }
  /// The item that the count box shows.
  [[nodiscard]] int ShownRecentCount() const { return shownRecentCount_; }
  [[nodiscard]] Texts Places() const;
  /// The rows of the location bar below the drive or network that holds the current folder.
  [[nodiscard]] Texts Trail() const;
  [[nodiscard]] const filedialog::Ways& OpenWays() const { return ways_; }
  [[nodiscard]] const std::vector<filedialog::ListColumn>& Columns() const { return columns_; }
  /// 1 ascending, -1 descending, 0 for none.
  [[nodiscard]] int SortMark(int column) const;
  [[nodiscard]] filedialog::ViewMode View() const { return view_; }
  [[nodiscard]] std::uint32_t ListStyle() const { return listStyle_; }
  [[nodiscard]] const std::string& CaptionText() const { return caption_; }
  [[nodiscard]] const std::string& OkText() const { return okText_; }
  [[nodiscard]] const std::string& CancelText() const { return cancelText_; }
  [[nodiscard]] const std::string& KindLine() const { return kindLine_; }
  /// The line at the list's lower edge.
  [[nodiscard]] const std::string& Remark() const { return remark_; }
  [[nodiscard]] bool IsWorking() const { return working_; }
  /// And not the name box.
  [[nodiscard]] bool ListHasFocus() const { return listHasFocus_; }
  [[nodiscard]] const filedialog::Rect& Area() const { return place_; }

  // ---- what the person does
  void ClickRow(const std::string& name);
  /// With Ctrl held: a selected row is selected no more.
  void AddRow(const std::string& name);
  void ClickBesideRows();
  /// As the arrow keys do it with Ctrl held: the selection stays.
  void FocusRow(const std::string& name) { focused_ = RowNamed(name); }
  void ScrollTo(filedialog::Point place) { scroll_ = place; }
  void Refresh() { browser_.Refresh(); }
  void OpenRow(const std::string& name);
  void SelectAll();
  void ClickHeader(int column);
  void ChoosePlace(const std::string& text);
  void Up();
  void Back();
  void ChooseView(filedialog::ViewMode view) { browser_.ChangeView(view); }
  void TypeName(const std::string& text);
  void TakeOfferedName(const std::string& name);
  void Ok();
  void Enter(const std::string& text);
  void Cancel();
  void MakeFolder() { browser_.MakeFolder(); }
  void Rename() { browser_.Rename(); }
  void Delete() { browser_.Delete(); }
  void PressF5() { browser_.Refresh(); }
  void ChooseRecentCount(int count) { browser_.ChooseRecentCount(count); }
  /// Begins the edit of a row's name; false when it cannot be edited.
  bool EditLabel(const std::string& name);
  void TypeLabel(const std::string& text) { labelText_ = text; }
  /// Enter in the edit: the name is carried out when its message comes.
  void GiveLabel();
  void GiveUpLabel() { labelRow_ = -1; }
  [[nodiscard]] bool EditsLabel() const { return labelRow_ >= 0; }
  [[nodiscard]] const std::string& LabelText() const { return labelText_; }
  void Resize(int width, int height);
  /// The screen that the window stands on; of 96 dpi at first.
  scale::Scale screenScale;
  void SetColumnWidth(std::size_t column, int width) { columns_.at(column).widthPx = width; }
  /// The window goes while a question is open.
  void CloseNow();

  // ---- what the person answers
  std::function<bool(const std::string& text)> answerOverwrite;
  std::function<std::optional<filedialog::Credentials>(const std::string& path)> answerLogon;
  std::function<std::optional<std::string>(const std::string& folder)> answerNewFolder;
  std::function<bool(const std::string& folder, const std::string& name, bool isFile)> answerRename;
  std::function<std::optional<filedialog::TitleSlots>(filedialog::SlowSortRule&, const filedialog::TitleSlots&)>
      answerTitles;
  std::function<bool(filedialog::SlowSortRule&)> answerSlowSort;
  std::function<void()> onPlaced;      ///< the window may be seen from now on
  std::function<void()> whileReading;  ///< a message is on the screen
  std::function<bool()> goesOn;        ///< long work is asked whether it goes on

  struct Shown {
    std::string kind;  ///< "warn", "refuse", "overwrite", "logon", "folder", "rename", "titles", "sort"
    std::string text;
    std::string caption;

    friend bool operator==(const Shown&, const Shown&) = default;
  };
  /// Messages and questions since the last call of this.
  [[nodiscard]] std::vector<Shown> TakeShown() { return std::exchange(shown_, {}); }

 private:
  // ---- BrowserView
  void ShowCaption(const std::string& caption) override;
  void ShowButtonTexts(const filedialog::ButtonTexts& texts) override;
  void ShowPlaces() override;
  void ShowPlaceNames() override;
  void PutInPlace() override;
  void ShowWays(const filedialog::Ways& ways) override;
  void ShowView(filedialog::ViewMode view, std::uint32_t listStyle) override;
  void ShowColumns(const std::vector<filedialog::ListColumn>& columns) override;
  void ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& listing) override;
  void ShowSortMark(int column, int direction) override;
  void ShowRemark(const std::string& text) override;
  void SelectRow(std::size_t row) override;
  void FocusRow(std::size_t row) override;
  void RestoreRows(const filedialog::RowStates& states) override;
  void FocusList() override;
  void LimitName(std::size_t limit) override;
  void ShowName(const std::string& text) override;
  void OfferName(const std::string& name) override;
  void ShowRecentFiles(const Texts& files) override;
  void ShowRecentCounts(const Texts& items, int selected) override;
  void ShowKindLine(const std::string& line) override;
  void EndLabelEdit() override;
  [[nodiscard]] std::string Caption() const override;
  [[nodiscard]] std::string NameText() const override;
  [[nodiscard]] std::vector<int> SelectedRows() const override;
  [[nodiscard]] filedialog::RowStates States() const override { return {selected_, focused_, scroll_}; }
  [[nodiscard]] std::vector<std::int32_t> ColumnWidths() const override;
  [[nodiscard]] scale::Scale ScreenScale() const override { return screenScale; }
  [[nodiscard]] int ColumnSpace() const override;
  [[nodiscard]] filedialog::Rect Place() const override;
  void StartWork() override;
  [[nodiscard]] bool GoesOn() override;
  void EndWork() noexcept override { working_ = false; }
  void End(filedialog::Ending ending) override;

  // ---- BrowserQuestions
  [[nodiscard]] filedialog::Reply<filedialog::Done> Warn(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<filedialog::Done> Refuse(const std::string& text,
                                                           const std::string& caption) override;
  [[nodiscard]] Reply AskOverwrite(const std::string& text) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::Credentials>> AskLogon(
      const std::string& path, const std::string& userName) override;
  [[nodiscard]] filedialog::Reply<std::optional<std::string>> AskNewFolder(const std::string& folder) override;
  [[nodiscard]] Reply AskRename(const std::string& folder, const std::string& name, bool isFile) override;
  [[nodiscard]] Reply RunAbove(const std::function<bool(os::WindowHandle)>& run) override;
  [[nodiscard]] filedialog::Reply<std::optional<filedialog::TitleSlots>> AskTitles(
      filedialog::SlowSortRule& rule, const filedialog::TitleSlots& slots) override;
  [[nodiscard]] Reply AskSlowSort(filedialog::SlowSortRule& rule) override;

  void ExpectWindow(const char* what) const;
  void ForgetStates();
  [[nodiscard]] int RowNamed(const std::string& name) const;
  template <class Given, class Ask, class... Values>
  [[nodiscard]] filedialog::Reply<Given> Asked(Shown shown, const Ask& ask, Given otherwise, Values&... values);

  filedialog::Patience patience_;
  filedialog::PatientServices machine_;
  filedialog::FileBrowser browser_;
  bool open_ = false;
  int answer_ = 0;
  bool working_ = false;
  bool listHasFocus_ = false;
  std::string caption_ = "ファイルの選択";
  std::string okText_ = "開く";
  std::string cancelText_ = "取消";
  std::string kindLine_;
  std::string name_;
  Texts offered_;
  int shownRecentCount_ = -1;
  filedialog::Ways ways_;
  filedialog::ViewMode view_ = filedialog::ViewMode::LargeIcons;
  std::uint32_t listStyle_ = 0;
  std::vector<filedialog::ListColumn> columns_;
  std::vector<int> sortMarks_;
  std::string remark_;
  filedialog::EntryTable* table_ = nullptr;
  std::vector<int> selected_;
  std::optional<int> focused_;
  filedialog::Point scroll_;
  Texts places_;
  int labelRow_ = -1;
  std::string labelText_;
  filedialog::Rect place_{100, 100, 660, 480};
  std::vector<Shown> shown_;
};

}  // namespace browser_test
