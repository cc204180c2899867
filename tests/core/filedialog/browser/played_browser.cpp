#include "tests/core/filedialog/browser/played_browser.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "platform/suite/crvncontrol.h"

namespace browser_test {

using filedialog::Done;
using filedialog::FileEntry;

PlayedBrowser::PlayedBrowser(filedialog::StartUp startUp) : PlayedBrowser(std::move(startUp), nullptr, nullptr) {}

PlayedBrowser::PlayedBrowser(filedialog::StartUp startUp, filedialog::WaitingWindow* window, os::Workers* workers)
    : patience_(window, workers),
      machine_(os::Services(), patience_),
      browser_(std::move(startUp), *this, *this, machine_, *CwSession::GetInstance(), GetActiveModel) {}

void PlayedBrowser::Open() {
  open_ = true;
  browser_.WindowMade();
  if (!browser_.Start()) return;
  place_ = browser_.SavedPlace({place_.width(), place_.height()}, {{1280, 1024}, {}});
  browser_.Started();
}

// ---------------------------------------------------------------------------------------------------------------------
// what the person sees

Texts PlayedBrowser::Rows() const {
  Texts names;
  if (table_ == nullptr) return names;
  for (const FileEntry& entry : table_->rows()) names.emplace_back(entry.name);
  return names;
}

std::vector<int> PlayedBrowser::Images() const {
  std::vector<int> images;
  for (const FileEntry& entry : table_->rows()) images.push_back(static_cast<int>(entry.kind));
  return images;
}

Texts PlayedBrowser::SelectedNames() const {
  Texts names;
  for (const int row : selected_) names.emplace_back(table_->rows()[static_cast<std::size_t>(row)].name);
  return names;
}

Texts PlayedBrowser::Places() const { return places_; }

Texts PlayedBrowser::Trail() const {
  Texts trail;
  for (const filedialog::Place& place : browser_.Places().rows()) {
    if (place.sub > 0) trail.push_back(place.text);
  }
  return trail;
}

int PlayedBrowser::SortMark(int column) const {
  const auto at = static_cast<std::size_t>(column);
  return at < sortMarks_.size() ? sortMarks_[at] : 0;
}

int PlayedBrowser::RowNamed(const std::string& name) const {
  const Texts rows = Rows();
  const auto found = std::find(rows.begin(), rows.end(), name);
  if (found == rows.end()) throw std::out_of_range("no row \"" + name + "\"");
  return static_cast<int>(found - rows.begin());
}

// ---------------------------------------------------------------------------------------------------------------------
// what the person does

void PlayedBrowser::ClickRow(const std::string& name) {
  selected_ = {RowNamed(name)};
  focused_ = selected_.front();
  browser_.SelectionChanged();
}

void PlayedBrowser::AddRow(const std::string& name) {
  const int row = RowNamed(name);
  if (std::erase(selected_, row) == 0) selected_.insert(std::lower_bound(selected_.begin(), selected_.end(), row), row);
  browser_.SelectionChanged();
}

void PlayedBrowser::ClickBesideRows() {
  selected_.clear();
  browser_.SelectionChanged();
}

void PlayedBrowser::OpenRow(const std::string& name) {
  ClickRow(name);
  browser_.OpenSelected();
}

void PlayedBrowser::SelectAll() {
  selected_.resize(table_->size());
  std::iota(selected_.begin(), selected_.end(), 0);
  browser_.SelectionChanged();
}

void PlayedBrowser::ClickHeader(int column) { browser_.ClickHeader(column); }

void PlayedBrowser::ChoosePlace(const std::string& text) {
  const auto found = std::find(places_.begin(), places_.end(), text);
  if (found == places_.end()) throw std::out_of_range("no place \"" + text + "\"");
  browser_.ChoosePlace(static_cast<std::size_t>(found - places_.begin()));
}

void PlayedBrowser::Up() { browser_.Up(); }

void PlayedBrowser::Back() { browser_.Back(); }

void PlayedBrowser::TypeName(const std::string& text) {
  name_ = text;
  listHasFocus_ = false;
  browser_.NameTyped();
}

void PlayedBrowser::TakeOfferedName(const std::string& name) {
  if (std::find(offered_.begin(), offered_.end(), name) == offered_.end()) {
    throw std::out_of_range("\"" + name + "\" is not offered");
  }
  TypeName(name);
}

void PlayedBrowser::Ok() { browser_.Confirm(); }

void PlayedBrowser::Enter(const std::string& text) {
  TypeName(text);
  Ok();
}

void PlayedBrowser::Cancel() {
  browser_.Leave();
  if (open_) End(filedialog::Ending::Cancelled);
}

bool PlayedBrowser::EditLabel(const std::string& name) {
  const int row = RowNamed(name);
  const auto text = browser_.BeginLabel(row);
  if (!text) return false;
  labelRow_ = row;
  labelText_ = text->name;
  return true;
}

void PlayedBrowser::GiveLabel() {
  EndLabelEdit();
  browser_.CommitLabel();
}

void PlayedBrowser::Resize(int width, int height) {
  place_.right = place_.left + width;
  place_.bottom = place_.top + height;
}

void PlayedBrowser::CloseNow() { open_ = false; }

// ---------------------------------------------------------------------------------------------------------------------
// shows

void PlayedBrowser::ExpectWindow(const char* what) const {
  if (!open_) throw std::logic_error(std::string(what) + " on a window that has gone");
}

void PlayedBrowser::ShowCaption(const std::string& caption) {
  ExpectWindow("caption");
  caption_ = caption;
}

void PlayedBrowser::ShowButtonTexts(const filedialog::ButtonTexts& texts) {
  ExpectWindow("buttons");
  okText_ = texts.ok.value_or(okText_);
  cancelText_ = texts.cancel.value_or(cancelText_);
}

void PlayedBrowser::ShowPlaces() {
  ExpectWindow("places");
  places_.clear();
  for (const filedialog::Place& place : browser_.Places().rows()) places_.push_back(place.text);
}

void PlayedBrowser::ShowPlaceNames() {
  ExpectWindow("names of places");
  const auto& rows = browser_.Places().rows();
  for (std::size_t i = 0; i < std::min(rows.size(), places_.size()); ++i) places_[i] = rows[i].text;
}

void PlayedBrowser::PutInPlace() {
  ExpectWindow("place");
  if (onPlaced) onPlaced();
}

void PlayedBrowser::ShowWays(const filedialog::Ways& ways) {
  ExpectWindow("ways");
  ways_ = ways;
}

void PlayedBrowser::ShowView(filedialog::ViewMode view, std::uint32_t listStyle) {
  ExpectWindow("view");
  view_ = view;
  listStyle_ = listStyle;
  table_ = nullptr;
  ForgetStates();
  columns_.clear();
  sortMarks_.clear();
  labelRow_ = -1;
}

void PlayedBrowser::ShowColumns(const std::vector<filedialog::ListColumn>& columns) {
  ExpectWindow("columns");
  columns_ = columns;
}

void PlayedBrowser::ShowRows(filedialog::EntryTable* table, const filedialog::ShownListing& /*listing*/) {
  ExpectWindow("rows");
  table_ = table;
  ForgetStates();
}

void PlayedBrowser::ForgetStates() {
  selected_.clear();
  focused_.reset();
  scroll_ = {};
}

void PlayedBrowser::ShowSortMark(int column, int direction) {
  ExpectWindow("sort mark");
  sortMarks_.assign(columns_.size(), 0);
  if (static_cast<std::size_t>(column) < sortMarks_.size()) sortMarks_[static_cast<std::size_t>(column)] = direction;
}

void PlayedBrowser::ShowRemark(const std::string& text) {
  ExpectWindow("remark");
  remark_ = text;
}

void PlayedBrowser::SelectRow(std::size_t row) {
  ExpectWindow("selection");
  selected_ = {static_cast<int>(row)};
  focused_ = selected_.front();
}

void PlayedBrowser::FocusRow(std::size_t row) {
  ExpectWindow("focused row");
  focused_ = static_cast<int>(row);
}

void PlayedBrowser::RestoreRows(const filedialog::RowStates& states) {
  ExpectWindow("rows");
  selected_ = states.selected;
  focused_ = states.focused;
  scroll_ = states.scroll;
}

std::string PlayedBrowser::FocusedName() const {
  return focused_ ? Rows().at(static_cast<std::size_t>(*focused_)) : std::string();
}

void PlayedBrowser::FocusList() {
  ExpectWindow("focus");
  listHasFocus_ = true;
}

void PlayedBrowser::LimitName(std::size_t /*limit*/) { ExpectWindow("limit"); }

void PlayedBrowser::ShowName(const std::string& text) {
  ExpectWindow("name");
  name_ = text;
}

void PlayedBrowser::OfferName(const std::string& name) {
  ExpectWindow("name");
  if (std::find(offered_.begin(), offered_.end(), name) == offered_.end()) offered_.insert(offered_.begin(), name);
  name_ = name;
}

void PlayedBrowser::ShowRecentFiles(const Texts& files) {
  ExpectWindow("recent files");
  offered_ = files;
}

void PlayedBrowser::ShowRecentCounts(const Texts& /*items*/, int selected) {
  ExpectWindow("counts");
  shownRecentCount_ = selected;
}

void PlayedBrowser::ShowKindLine(const std::string& line) {
  ExpectWindow("kind");
  kindLine_ = line;
}

void PlayedBrowser::EndLabelEdit() {
  ExpectWindow("label");
  if (std::exchange(labelRow_, -1) >= 0) browser_.GiveLabel(labelText_);
}

// ---------------------------------------------------------------------------------------------------------------------
// tells

std::string PlayedBrowser::Caption() const { return caption_; }

std::string PlayedBrowser::NameText() const { return name_; }

std::vector<int> PlayedBrowser::SelectedRows() const { return selected_; }

std::vector<std::int32_t> PlayedBrowser::ColumnWidths() const {
  std::vector<std::int32_t> widths;
  for (const filedialog::ListColumn& column : columns_) widths.push_back(column.widthPx);
  return widths;
}

int PlayedBrowser::ColumnSpace() const { return 600; }

filedialog::Rect PlayedBrowser::Place() const { return place_; }

void PlayedBrowser::StartWork() {
  ExpectWindow("work");
  working_ = true;
}

bool PlayedBrowser::GoesOn() { return !goesOn || goesOn(); }

// ---------------------------------------------------------------------------------------------------------------------
// asks

template <class Given, class Ask, class... Values>
filedialog::Reply<Given> PlayedBrowser::Asked(Shown shown, const Ask& ask, Given otherwise, Values&... values) {
  ExpectWindow("question");
  shown_.push_back(std::move(shown));
  if (whileReading) whileReading();
  if (ask) otherwise = ask(values...);
  return open_ ? filedialog::Reply<Given>(std::move(otherwise)) : std::nullopt;
}

filedialog::Reply<Done> PlayedBrowser::Warn(const std::string& text) {
  return Asked({"warn", text, caption_}, std::function<Done()>(), Done{});
}

filedialog::Reply<Done> PlayedBrowser::Refuse(const std::string& text, const std::string& caption) {
  return Asked({"refuse", text, caption}, std::function<Done()>(), Done{});
}

PlayedBrowser::Reply PlayedBrowser::AskOverwrite(const std::string& text) {
  return Asked({"overwrite", text, caption_}, answerOverwrite, false, text);
}

filedialog::Reply<std::optional<filedialog::Credentials>> PlayedBrowser::AskLogon(const std::string& path,
                                                                                  const std::string& /*userName*/) {
  return Asked({"logon", path, {}}, answerLogon, std::optional<filedialog::Credentials>(), path);
}

filedialog::Reply<std::optional<std::string>> PlayedBrowser::AskNewFolder(const std::string& folder) {
  return Asked({"folder", folder, {}}, answerNewFolder, std::optional<std::string>(), folder);
}

PlayedBrowser::Reply PlayedBrowser::AskRename(const std::string& folder, const std::string& name, bool isFile) {
  return Asked({"rename", name, {}}, answerRename, false, folder, name, isFile);
}

PlayedBrowser::Reply PlayedBrowser::RunAbove(const std::function<bool(os::WindowHandle)>& run) {
  const bool done = run(this);
  return open_ ? Reply(done) : std::nullopt;
}

filedialog::Reply<std::optional<filedialog::TitleSlots>> PlayedBrowser::AskTitles(filedialog::SlowSortRule& rule,
                                                                                  const filedialog::TitleSlots& slots) {
  return Asked({"titles", {}, {}}, answerTitles, std::optional<filedialog::TitleSlots>(), rule, slots);
}

PlayedBrowser::Reply PlayedBrowser::AskSlowSort(filedialog::SlowSortRule& rule) {
  return Asked({"sort", {}, {}}, answerSlowSort, false, rule);
}

void PlayedBrowser::End(filedialog::Ending ending) {
  ExpectWindow("end");
  open_ = false;
  answer_ = static_cast<int>(ending);
}

}  // namespace browser_test
