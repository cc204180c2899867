#include "demo/parts_table.h"

#include <dlglib/dlglib.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "demo/console.h"
#include "demo/parts_table_resource.h"

namespace demo {
namespace {

using namespace parts_table;

constexpr int kParts = 200;
constexpr int kRoom = 240;

/// What a column is made of. Widths are tenths of the list's, limits bytes.
struct ColumnPlan {
  const char* title;
  double share;
  int limit;
  int format;          ///< of the title
  int drawFlags;       ///< of the texts
  int letterCase;      ///< 1 for capitals
  const char* prompt;  ///< null: no edit box
};

constexpr int kRight = DT_RIGHT | DT_SINGLELINE;

constexpr std::array<ColumnPlan, kColumnCount> kPlans = {{
    {"番号", 0.65, 4, LVCFMT_RIGHT, kRight, 0, nullptr},
    {"品番", 1.0, 10, LVCFMT_LEFT, 0, 1, "品番を入力してください。半角カタカナは使えません。"},
    {"品名", 1.7, 40, LVCFMT_LEFT, 0, 0, "品名を入力してください。"},
    {"材質", 1.1, 12, LVCFMT_LEFT, 0, 0, "材質を入力するか、もう一度クリックして選んでください。"},
    {"数量", 0.6, 4, LVCFMT_RIGHT, kRight, 0, "数量を入力してください。"},
    {"単位", 0.6, 4, LVCFMT_LEFT, 0, 0, nullptr},
    {"クラス", 0.8, 4, LVCFMT_RIGHT, kRight, 0, "クラス番号を 1 ～ 256 で入力してください。"},
    {"版", 0.5, 4, LVCFMT_RIGHT, kRight, 0, "リビジョンを 1 ～ 256 で入力してください。"},
    {"色", 0.6, 4, LVCFMT_LEFT, 0, 0, nullptr},
    {"単価", 0.75, 8, LVCFMT_RIGHT, kRight, 0, "単価を入力してください。"},
    {"重量", 0.7, 8, LVCFMT_RIGHT, kRight, 0, "重量を kg で入力してください。"},
    {"備考", 1.45, 60, LVCFMT_LEFT, 0, 0, "備考を入力してください。"},
}};

struct NamedColour {
  const char* entry;  ///< its number, and the name behind a blank
  COLORREF colour;
};

constexpr std::array<NamedColour, 6> kColours = {{{"1 赤", RGB(224, 48, 48)},
                                                  {"2 緑", RGB(32, 144, 64)},
                                                  {"3 青", RGB(48, 80, 208)},
                                                  {"4 黄", RGB(232, 192, 32)},
                                                  {"5 灰", RGB(128, 128, 128)},
                                                  {"6 黒", RGB(0, 0, 0)}}};

/// Null when no colour has that number.
[[nodiscard]] const NamedColour* ColourOf(const std::string& number) {
  const auto* const found = std::find_if(kColours.begin(), kColours.end(), [&number](const NamedColour& colour) {
    return std::string(colour.entry).rfind(number + ' ', 0) == 0;
  });
  return found != kColours.end() ? found : nullptr;
}

struct Part {
  const char* code;
  const char* name;
  const char* material;
  const char* unit;
  int price;
  int grams;
};

constexpr std::array<Part, 10> kCatalogue = {{{"PMP", "渦巻ポンプ", "FC200", "台", 185000, 48500},
                                              {"FLG", "フランジ", "SS400", "枚", 3200, 2400},
                                              {"GSK", "ガスケット", "PTFE", "枚", 450, 60},
                                              {"BLT", "六角ボルト M16", "SUS304", "本", 120, 130},
                                              {"NUT", "六角ナット M16", "SUS304", "個", 60, 40},
                                              {"ELB", "エルボ 90°", "SGP", "個", 1500, 900},
                                              {"VLV", "仕切弁", "FCD450", "台", 28600, 11200},
                                              {"GAG", "圧力計", "C3604", "個", 6800, 350},
                                              {"BRG", "軸受", "SUJ2", "個", 2300, 210},
                                              {"LMP", "表示ランプ", "PC", "個", 980, 25}}};

[[nodiscard]] constexpr std::size_t Index(int value) { return static_cast<std::size_t>(value); }

class PartsTable : public CDialog {
 public:
  PartsTable() : CDialog(IDD_PARTS_TABLE) {}

  /// What the table held when OK was pressed.
  [[nodiscard]] const std::string& Summary() const { return summary_; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  Handled RouteMessage(const Message& message) override;

 private:
  LRESULT OnDrawItem(const Message& message);
  LRESULT OnListClick(const Message& message);
  void OnColourPicked();
  void OnColourListClosed() { list_.CloseComboBox(); }
  void OnAdd();
  void OnInsert();
  void OnDelete();
  void OnCheck();

  void MakeColumns();
  void MakeChoices();
  void SwitchKeysOn();
  [[nodiscard]] static int MayPaste(void* context, int row, int col, const char* text);
  static void OnChanged(void* context, int row, int rows);
  void FillRow(int row);
  void StartRow(int row);
  void BlankFreeSwatches();
  void ShowColour(int row, int number);
  void ShowSwatches(int row, int rows);
  [[nodiscard]] std::string Text(int row, int col);
  [[nodiscard]] bool MarkRow(int row);
  [[nodiscard]] bool Mark(int row, int col, bool good);

  CvListControl list_;
  std::string summary_;
};

// ---- the window

BOOL PartsTable::OnInitDialog() {
  std::array<int, kColumnCount> limits;
  for (int c = 0; c < kColumnCount; ++c) limits.at(Index(c)) = kPlans.at(Index(c)).limit;
  list_.InitList(this, IDC_PARTS, kColumnCount, limits.data(), kParts, kRoom, kNumber);
  list_.SetMessageWindow(GetDlgItem(IDC_PARTS_MESSAGE));
  MakeColumns();
  MakeChoices();
  for (int row = 0; row < kParts; ++row) FillRow(row);
  BlankFreeSwatches();
  SwitchKeysOn();
  list_.MessageText("セルをクリックすると編集できます。");
  return CDialog::OnInitDialog();
}

void PartsTable::MakeColumns() {
  for (int c = 0; c < kColumnCount; ++c) {
    const ColumnPlan& plan = kPlans.at(Index(c));
    list_.SetColumn(c, plan.title, plan.share, plan.format, plan.drawFlags, c == kColour ? 1 : 0);
    if (plan.prompt != nullptr) list_.SetEdit(c, plan.letterCase, static_cast<unsigned int>(plan.limit), plan.prompt);
  }
  list_.SetEditMode(kCode, 0);
  list_.SetSpaceMode(kRemark, 1);
}

void PartsTable::MakeChoices() {
  CStringList materials;
  for (const char* entry : {"SS400 一般構造用", "S45C 機械構造用", "SUS304 ステンレス", "FC200 鋳鉄", "FCD450 球状黒鉛",
                            "PTFE ふっ素樹脂"}) {
    materials.AddTail(entry);
  }
  list_.SetCombo(kMaterial, kUnit, &materials, "材質を選んでください。");
  CStringList units;
  for (const char* entry : {"個", "本", "枚", "台", "式"}) units.AddTail(entry);
  list_.SetCombo(kUnit, kUnit, &units, "単位を選んでください。");
  // A control of this dialog: what a pick does is up to the dialog.
  CStringList colours;
  for (const NamedColour& colour : kColours) colours.AddTail(colour.entry);
  list_.SetCombo(kColour, kColour, &colours, IDC_COLOUR_CHOICE, "色を選んでください。");
}

void PartsTable::SwitchKeysOn() {
  constexpr int kInputMethodOff = 1;
  list_.SetKeys(CvListControl::kKeysAll);
  for (const int col : {kQuantity, kClass, kRevision, kPrice, kWeight}) list_.SetImeMode(col, kInputMethodOff);
  list_.SetPasteRows(1);
  list_.SetPasteCheck(&PartsTable::MayPaste, this);
  list_.SetChanged(&PartsTable::OnChanged, this);
}

/// Quantities and colours are numbers, or not known yet.
int PartsTable::MayPaste(void* context, int, int col, const char* text) {
  constexpr double kMost = 9999.0;
  auto& self = *static_cast<PartsTable*>(context);
  if (*text == '\0') return 1;
  if (col == kColour) return ColourOf(text) != nullptr ? 1 : 0;
  return col == kQuantity ? self.list_.CheckNumber(text, 0, 0.0, kMost) : 1;
}

/// A colour's number may have been pasted, or have come back. Rows that went leave their colours behind.
void PartsTable::OnChanged(void* context, int row, int rows) {
  auto& self = *static_cast<PartsTable*>(context);
  self.ShowSwatches(std::max(row, 0), rows);
  if (row < 0) self.BlankFreeSwatches();
  self.list_.DrawItem();
}

void PartsTable::FillRow(int row) {
  const Part& part = kCatalogue[Index(row) % kCatalogue.size()];
  CString code;
  code.Format("%s-%03d", part.code, row / static_cast<int>(kCatalogue.size()) + 1);
  CString weight;
  weight.Format("%d.%02d", part.grams / 1000, part.grams % 1000 / 10);
  const auto set = [&](int col, const char* text) { list_.SetItemText(row, col, text); };
  set(kNumber, std::to_string(row + 1).c_str());
  set(kCode, code);
  set(kName, part.name);
  set(kMaterial, part.material);
  set(kQuantity, std::to_string(row % 7 + 1).c_str());
  set(kUnit, part.unit);
  set(kClass, std::to_string(row % 12 + 1).c_str());
  set(kRevision, "1");
  set(kPrice, std::to_string(part.price).c_str());
  set(kWeight, weight);
  set(kRemark, "");
  ShowColour(row, row % static_cast<int>(kColours.size()) + 1);
}

/// The cell holds the colour's number; the swatch is its text colour.
void PartsTable::ShowColour(int row, int number) {
  const NamedColour& colour = kColours.at(Index(number - 1));
  list_.SetItemText(row, kColour, std::to_string(number).c_str());
  list_.SetItemColor(row, kColour, colour.colour, RGB(255, 255, 255));
}

Handled PartsTable::RouteMessage(const Message& message) {
  static constexpr MessageRow<PartsTable> kRows[] = {
      OnMessage(WM_DRAWITEM, &PartsTable::OnDrawItem),
      OnNotify(IDC_PARTS, NM_CLICK, &PartsTable::OnListClick),
      OnCommand(IDC_COLOUR_CHOICE, CBN_SELCHANGE, &PartsTable::OnColourPicked),
      OnCommand(IDC_COLOUR_CHOICE, CBN_CLOSEUP, &PartsTable::OnColourListClosed),
      OnCommand(IDC_ADD_PART, BN_CLICKED, &PartsTable::OnAdd),
      OnCommand(IDC_INSERT_PART, BN_CLICKED, &PartsTable::OnInsert),
      OnCommand(IDC_DELETE_PART, BN_CLICKED, &PartsTable::OnDelete),
      OnCommand(IDC_CHECK_PARTS, BN_CLICKED, &PartsTable::OnCheck),
  };
  return Route<CDialog>(*this, kRows, message);
}

LRESULT PartsTable::OnDrawItem(const Message& message) {
  list_.OnDrawItem(message.Data<DRAWITEMSTRUCT>());
  return TRUE;
}

LRESULT PartsTable::OnListClick(const Message&) {
  list_.ClickItem();
  return 0;
}

void PartsTable::OnOK() {
  int pieces = 0;
  for (int row = 0; row < list_.GetItemCount(); ++row) pieces += std::atoi(Text(row, kQuantity).c_str());
  summary_ = std::to_string(list_.GetItemCount()) + " 部品、合計 " + std::to_string(pieces) + " 個";
  CDialog::OnOK();
}

// ---- rows

/// A new row lies where a former one lay, and keeps its colours.
void PartsTable::StartRow(int row) {
  list_.SetItemText(row, kQuantity, "1");
  list_.SetItemText(row, kUnit, "個");
  list_.SetItemText(row, kClass, "1");
  list_.SetItemText(row, kRevision, "1");
  ShowColour(row, static_cast<int>(kColours.size()));
  list_.DrawItem();
}

void PartsTable::OnAdd() {
  const int before = list_.GetItemCount();
  const int row = list_.AddItem();
  if (list_.GetItemCount() == before) return;
  StartRow(row);
  list_.SelectItem(row, kCode);
  list_.SelectItem();
}

void PartsTable::OnInsert() {
  const int before = list_.GetItemCount();
  const int row = list_.InsertItem();
  if (list_.GetItemCount() != before) StartRow(row);
}

void PartsTable::OnDelete() { list_.DeleteItem(); }

/// Rows that are not in use are grey throughout.
void PartsTable::BlankFreeSwatches() {
  for (int row = list_.GetItemCount(); row < list_.GetListCount(); ++row) {
    list_.SetItemColor(row, kColour, RGB(192, 192, 192), RGB(255, 255, 255));
  }
}

/// As the cells' texts say. A part without a colour shows none.
void PartsTable::ShowSwatches(int row, int rows) {
  constexpr COLORREF kPaper = RGB(255, 255, 255);
  for (const int end = row + rows; row < end; ++row) {
    const NamedColour* const colour = ColourOf(Text(row, kColour));
    list_.SetItemColor(row, kColour, colour != nullptr ? colour->colour : kPaper, kPaper);
  }
}

void PartsTable::OnColourPicked() {
  const int row = list_.GetSelectedItem();
  const int picked = ComboBoxRef(::GetDlgItem(m_hWnd, IDC_COLOUR_CHOICE)).GetCurSel();
  if (row >= 0 && picked >= 0) ShowColour(row, picked + 1);
  list_.CloseComboBox();
  list_.DrawItem();
}

// ---- the check

std::string PartsTable::Text(int row, int col) {
  std::array<char, 386> text = {};
  list_.GetItemText(row, col, text.data());
  return text.data();
}

bool PartsTable::Mark(int row, int col, bool good) {
  list_.SetErrorFlag(row, col, good ? 0 : 1);
  return good;
}

/// Whatever is wrong with a row is marked; the last complaint stands in the message zone.
bool PartsTable::MarkRow(int row) {
  const bool coded = Mark(row, kCode, !Text(row, kCode).empty());
  if (!coded) list_.ErrorText(("品番がありません " + std::to_string(row + 1)).c_str());
  const bool classGood = Mark(row, kClass, list_.CheckClassNumber(row, Text(row, kClass).c_str()) != 0);
  const bool revisionGood = Mark(row, kRevision, list_.CheckRevisionNumber(row, Text(row, kRevision).c_str()) != 0);
  return coded && classGood && revisionGood;
}

/// Stops at the first row that is wrong, and shows it.
void PartsTable::OnCheck() {
  int row = 0;
  while (row < list_.GetItemCount() && MarkRow(row)) ++row;
  if (row == list_.GetItemCount()) {
    list_.MessageText("誤りはありません。");
  } else {
    ListCtrlRef(::GetDlgItem(m_hWnd, IDC_PARTS)).EnsureVisible(row, FALSE);
  }
  list_.DrawItem();
}

}  // namespace

int RunPartsTable(const Arguments&) {
  PartsTable dialog;
  if (dialog.DoModal() != IDOK) {
    PrintLine("取り消しました");
    return kCancelled;
  }
  PrintLine(dialog.Summary());
  return kAccepted;
}

}  // namespace demo
