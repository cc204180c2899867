#include "demo/input_checks.h"

#include <dlglib/dlglib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "demo/input_checks_resource.h"

namespace demo {
namespace {

constexpr char kTitle[] = "入力の確認";
constexpr char kFileKind[] = "#TEXT#";
constexpr char kNameKind[] = "#MODEL#";

constexpr double kSmallestNumber = -1000;
constexpr double kLargestNumber = 1000;

// Numbers of the suite's messages; below 0 errors.
constexpr int kEnterFile = 1;
constexpr int kEnterName = 2;
constexpr int kEnterScale = 3;
constexpr int kEnterNumber = 4;
constexpr int kOutOfRange = -5;
constexpr int kNoNumber = -6;
constexpr int kNoScale = -7;
constexpr int kFullWidth = -13;

constexpr int kQueryBit = 2;

/// The codes of a text's characters: two bytes for a full-width one.
std::vector<unsigned int> CodesOf(const char* text) {
  constexpr WORD kShiftJis = 932;
  std::vector<unsigned int> codes;
  while (*text != '\0') {
    const bool isDouble = ::IsDBCSLeadByteEx(kShiftJis, static_cast<BYTE>(*text)) != FALSE && text[1] != '\0';
    const char* const next = text + (isDouble ? 2 : 1);
    unsigned int code = 0;
    for (; text != next; ++text) code = code << 8 | static_cast<unsigned char>(*text);
    codes.push_back(code);
  }
  return codes;
}

/// What an input method leaves looks like a number and is none.
bool HasFullWidth(const char* text) {
  constexpr unsigned int kMostOfOneByte = 0xFF;
  return std::ranges::any_of(CodesOf(text), [](unsigned int code) { return code > kMostOfOneByte; });
}

class InputChecks : public CDialog {
 public:
  InputChecks() : CDialog(IDD_INPUT_CHECKS) {}

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  void DoDataExchange(CDataExchange* exchange) override;
  Handled RouteMessage(const Message& message) override;

 private:
  /// A field with the prompt that it shows while it has the focus.
  struct Field {
    int prompt;
    CString InputChecks::*text;
    void (InputChecks::*check)();
  };
  [[nodiscard]] static Field FieldAt(std::size_t index);

  LRESULT OnPaint(const Message& message);
  void OnEnterField(const Message& message);
  void OnLeaveField(const Message& message);
  void OnCheck(const Message& message);
  void OnDeleteFile();
  void OnDeleteName();
  void OnDirection();
  void OnLetters(const Message& message);

  void Check(std::size_t field);
  void CheckFile();
  void CheckName();
  void CheckScale();
  void CheckNumber();
  [[nodiscard]] bool HasChosenLettersOnly();
  void Delete(int id, CStringArray* entries, CString* text, CComboBox* box, int shown);

  void Show(const std::string& text);
  void Refuse(int id, const std::string& text);
  void Refuse(int id, int message);
  void FocusOn(int id);
  [[nodiscard]] std::string NumberedText(int message);

  void ReadFiles() { utility_.GetUsedFile(kFileKind, output_, &files_, &fileCount_, &fileBox_); }
  void WriteFiles() { utility_.SetUsedFile(kFileKind, output_, &files_, &fileCount_); }

  CvUtility utility_;
  CComboBox fileBox_;
  CComboBox nameBox_;
  CString file_;
  CString name_;
  CString scale_;
  CString number_;
  CStringArray files_;  ///< recent files of the direction that is chosen
  CStringArray names_;
  int fileCount_ = 0;
  int nameCount_ = 0;
  int output_ = 0;                  ///< 0 input, 1 output
  int mode_ = 1;                    ///< of CheckNumber
  std::array<short, 1> letters_{};  ///< bit n: whether letters of check box n may be typed
  std::string shown_;               ///< what the message zone shows
};

InputChecks::Field InputChecks::FieldAt(std::size_t index) {
  constexpr std::array<Field, 4> kFields = {{{kEnterFile, &InputChecks::file_, &InputChecks::CheckFile},
                                             {kEnterName, &InputChecks::name_, &InputChecks::CheckName},
                                             {kEnterScale, &InputChecks::scale_, &InputChecks::CheckScale},
                                             {kEnterNumber, &InputChecks::number_, &InputChecks::CheckNumber}}};
  return kFields.at(index);
}

// ---- the window

BOOL InputChecks::OnInitDialog() {
  fileBox_.Attach(::GetDlgItem(m_hWnd, IDC_FILE));
  nameBox_.Attach(::GetDlgItem(m_hWnd, IDC_NAME));
  framework::SetAccessibleName(fileBox_.m_hWnd, "ファイル");
  framework::SetAccessibleName(nameBox_.m_hWnd, "モデル名");
  utility_.SetParentWindow(this);
  utility_.SetCaption(kTitle);
  utility_.SetKeyword(kFileKind);
  utility_.SetMessageZone();
  ReadFiles();
  utility_.GetUsedName(kNameKind, &names_, &nameCount_, &nameBox_);
  for (int id = IDC_CAPITALS; id <= IDC_DOUBLE_BYTE; ++id) {
    CheckDlgButton(id, BST_CHECKED);
    utility_.BitSet(1, id - IDC_CAPITALS + 1, letters_.data());
  }
  return CDialog::OnInitDialog();
}

void InputChecks::DoDataExchange(CDataExchange* exchange) {
  DDX_Text(exchange, IDC_FILE, file_);
  DDX_Text(exchange, IDC_NAME, name_);
  DDX_Text(exchange, IDC_SCALE, scale_);
  DDX_Text(exchange, IDC_NUMBER, number_);
  DDX_Radio(exchange, IDC_INPUT, output_);
  DDX_Radio(exchange, IDC_UNSIGNED, mode_);
}

Handled InputChecks::RouteMessage(const Message& message) {
  static constexpr MessageRow<InputChecks> kRows[] = {
      OnMessage(WM_PAINT, &InputChecks::OnPaint),
      OnCommandRange(IDC_FILE, IDC_NAME, CBN_SETFOCUS, &InputChecks::OnEnterField),
      OnCommandRange(IDC_FILE, IDC_NAME, CBN_KILLFOCUS, &InputChecks::OnLeaveField),
      OnCommandRange(IDC_SCALE, IDC_NUMBER, EN_SETFOCUS, &InputChecks::OnEnterField),
      OnCommandRange(IDC_SCALE, IDC_NUMBER, EN_KILLFOCUS, &InputChecks::OnLeaveField),
      OnCommandRange(IDC_CHECK_FILE, IDC_CHECK_NUMBER, BN_CLICKED, &InputChecks::OnCheck),
      OnCommand(IDC_DELETE_FILE, BN_CLICKED, &InputChecks::OnDeleteFile),
      OnCommand(IDC_DELETE_NAME, BN_CLICKED, &InputChecks::OnDeleteName),
      OnCommandRange(IDC_INPUT, IDC_OUTPUT, BN_CLICKED, &InputChecks::OnDirection),
      OnCommandRange(IDC_CAPITALS, IDC_DOUBLE_BYTE, BN_CLICKED, &InputChecks::OnLetters),
  };
  return Route<CDialog>(*this, kRows, message);
}

/// The message zone is not painted again by itself.
LRESULT InputChecks::OnPaint(const Message& message) {
  const LRESULT result = CallDefault(message);
  utility_.MessageText(shown_.c_str());
  return result;
}

/// Enter checks the field with the focus.
void InputChecks::OnOK() {
  for (int id = IDC_FILE; id <= IDC_NUMBER; ++id) {
    const HWND field = ::GetDlgItem(m_hWnd, id);
    // The focus of a combo box lies in its edit control.
    if (WindowRef(field).Is(::GetFocus()) || ::IsChild(field, ::GetFocus()))
      return Check(static_cast<std::size_t>(id - IDC_FILE));
  }
}

void InputChecks::OnCancel() {
  UpdateData();
  WriteFiles();
  utility_.SetUsedName(kNameKind, &names_, &nameCount_);
  EndDialog(IDCANCEL);
}

// ---- fields

void InputChecks::OnEnterField(const Message& message) {
  Show(NumberedText(FieldAt(message.ControlId() - IDC_FILE).prompt));
}

void InputChecks::OnLeaveField(const Message& message) {
  shown_.clear();
  utility_.KillFocus(&(this->*FieldAt(message.ControlId() - IDC_FILE).text));
}

void InputChecks::OnCheck(const Message& message) { Check(message.ControlId() - IDC_CHECK_FILE); }

/// The text is trimmed as when the field is left, which Enter does not do: an entry of a history ends in a blank.
void InputChecks::Check(std::size_t field) {
  const Field checked = FieldAt(field);
  utility_.KillFocus(&(this->*checked.text));
  (this->*checked.check)();
}

/// Refusals of file names are message boxes of the utility's own.
void InputChecks::CheckFile() {
  if (utility_.CheckFile(file_) == 0) return FocusOn(IDC_FILE);
  const int usable = output_ != 0 ? utility_.CheckOutputFile(file_) : utility_.CheckInputFile(file_);
  if (usable == 0) return FocusOn(IDC_FILE);
  utility_.SetFilePath(&files_, file_, &fileBox_, fileCount_);
  UpdateData(FALSE);  // filling the box has emptied its field
  const char* path = utility_.GetFileName();
  const char* separator = utility_.Strrchr(path, '\\');
  Show(std::string(output_ != 0 ? "出力できます：" : "入力できます：") + (separator != nullptr ? separator + 1 : path));
}

void InputChecks::CheckName() {
  if (name_.IsEmpty()) return Refuse(IDC_NAME, kEnterName);
  if (utility_.CheckModelName(name_) == 0) return Refuse(IDC_NAME, "モデル名に使えない文字があります。");
  if (!HasChosenLettersOnly()) return Refuse(IDC_NAME, "選ばれていない種類の文字があります。");
  utility_.SetNameList(&names_, name_, &nameBox_, nameCount_);
  UpdateData(FALSE);
  Show("このモデル名は使えます。");
}

bool InputChecks::HasChosenLettersOnly() {
  unsigned int mask = 0;
  for (int id = IDC_CAPITALS; id <= IDC_DOUBLE_BYTE; ++id) {
    const int bit = id - IDC_CAPITALS;
    if (utility_.BitSet(kQueryBit, bit + 1, letters_.data()) == 1) mask |= 1U << bit;
  }
  return std::ranges::all_of(CodesOf(name_),
                             [this, mask](unsigned int code) { return utility_.CheckChar(mask, code) != 0; });
}

void InputChecks::CheckScale() {
  double scale = 0;
  if (HasFullWidth(scale_)) return Refuse(IDC_SCALE, kFullWidth);
  if (utility_.CheckScale(scale_, &scale) == 0) return Refuse(IDC_SCALE, kNoScale);
  std::array<char, 32> text = {};
  utility_.DisplayScale(scale, text.data());
  Show(std::string("尺度は ") + text.data() + " です（" + utility_.DtoA(scale) + "）。");
}

void InputChecks::CheckNumber() {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if (HasFullWidth(number_)) return Refuse(IDC_NUMBER, kFullWidth);
  if (utility_.CheckNumber(number_, mode_, -kInfinity, kInfinity) == 0) return Refuse(IDC_NUMBER, kNoNumber);
  if (utility_.CheckNumber(number_, mode_, kSmallestNumber, kLargestNumber) == 0) {
    return Refuse(IDC_NUMBER, kOutOfRange);
  }
  Show(std::string("数値は ") + utility_.DtoA(std::atof(number_)) + " です。");
}

// ---- histories and choices

void InputChecks::OnDeleteFile() { Delete(IDC_FILE, &files_, &file_, &fileBox_, fileCount_); }

void InputChecks::OnDeleteName() { Delete(IDC_NAME, &names_, &name_, &nameBox_, nameCount_); }

void InputChecks::Delete(int id, CStringArray* entries, CString* text, CComboBox* box, int shown) {
  const int before = entries->GetSize();
  utility_.DelFilePath(entries, *text, box, shown);
  const bool deleted = entries->GetSize() != before;
  if (deleted) text->Empty();
  UpdateData(FALSE);
  if (!deleted) return Refuse(id, "この項目は履歴にありません。");
  FocusOn(id);
  Show("履歴から削除しました。");
}

/// Input and output files have lists of their own.
void InputChecks::OnDirection() {
  WriteFiles();
  UpdateData();
  ReadFiles();
  UpdateData(FALSE);
}

void InputChecks::OnLetters(const Message& message) {
  const auto id = static_cast<int>(message.ControlId());
  const int operation = IsDlgButtonChecked(id) == BST_CHECKED ? 1 : 0;
  utility_.BitSet(operation, id - IDC_CAPITALS + 1, letters_.data());
}

// ---- messages

void InputChecks::Show(const std::string& text) {
  shown_ = text;
  utility_.MessageText(shown_.c_str());
}

/// The focus comes first: it makes the field show its prompt.
void InputChecks::Refuse(int id, const std::string& text) {
  FocusOn(id);
  shown_ = text;
  utility_.ErrorText(text.c_str());
}

void InputChecks::Refuse(int id, int message) {
  FocusOn(id);
  shown_ = NumberedText(message);
  utility_.ErrorNo(message);
}

void InputChecks::FocusOn(int id) {
  utility_.SetFocus(id);
  SendDlgItemMessage(id, EM_SETSEL, 0, -1);  // combo boxes select their text by themselves
}

std::string InputChecks::NumberedText(int message) {
  std::array<char, 257> text = {};
  utility_.GetMessageText(message, text.data());
  return text.data();
}

}  // namespace

int RunInputChecks(const Arguments&) {
  InputChecks dialog;
  return dialog.DoModal() == IDCANCEL ? kAccepted : kCannotRun;
}

}  // namespace demo
