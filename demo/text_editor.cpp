#include "demo/text_editor.h"

#include <dlglib/dlglib.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "demo/system_text.h"
#include "demo/text_editor_resource.h"

namespace demo {
namespace {

constexpr char kTitle[] = "図面文字の編集";
constexpr std::array kFields = {IDC_TITLE_TEXT, IDC_FIRST_NOTE, IDC_SECOND_NOTE};
constexpr int kStoredSize = 513;
constexpr int kAllButtons = 7;
constexpr int kToolBar = 10003;  ///< the control's ID

// Numbers of the suite's messages; below 0 errors.
constexpr int kStored = 8;
constexpr int kRead = 9;
constexpr int kCannotOpen = -2;

/// Bytes of a stored text, two hexadecimal digits each.
std::string HexText(const std::string& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {kDigits[value >> 4U], kDigits[value & 0xFU], ' '};
  }
  return text;
}

std::string DefaultFile() { return TemporaryFolder() + "corvane-text.euc"; }

class TextEditor : public CDialog {
 public:
  explicit TextEditor(const std::string& file) : CDialog(IDD_TEXT_EDITOR), file_(file) {}

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override { Store(); }
  Handled RouteMessage(const Message& message) override;
  BOOL PreTranslateMessage(MSG* message) override;

 private:
  LRESULT OnPaint(const Message& message);
  void Store();
  void Read();
  void ShowStored(const std::array<std::string, kFields.size()>& texts);
  void Show(int message);

  std::string file_;
  CvUtility utility_;
  std::string shown_;  ///< what the message zone shows
};

BOOL TextEditor::OnInitDialog() {
  utility_.SetParentWindow(this);
  utility_.SetCaption(kTitle);
  CDWordArray moved;
  for (DWORD id = IDC_TITLE_TEXT; id <= IDC_READ_TEXTS; ++id) moved.Add(id);
  moved.Add(IDCANCEL);
  utility_.SetToolBar(kAllButtons, &moved);
  utility_.SetMessageZone();
  return CDialog::OnInitDialog();
}

Handled TextEditor::RouteMessage(const Message& message) {
  static constexpr MessageRow<TextEditor> kRows[] = {
      OnMessage(WM_PAINT, &TextEditor::OnPaint),
      OnCommand(IDC_STORE_TEXTS, BN_CLICKED, &TextEditor::Store),
      OnCommand(IDC_READ_TEXTS, BN_CLICKED, &TextEditor::Read),
  };
  return Route<CDialog>(*this, kRows, message);
}

/// F6 goes to the toolbar, whose buttons the Tab key does not reach.
BOOL TextEditor::PreTranslateMessage(MSG* message) {
  if (message->message != WM_KEYDOWN || message->wParam != VK_F6) return CDialog::PreTranslateMessage(message);
  ::SetFocus(::GetDlgItem(m_hWnd, kToolBar));
  return TRUE;
}

/// The message zone is not painted again by itself.
LRESULT TextEditor::OnPaint(const Message& message) {
  const LRESULT result = CallDefault(message);
  utility_.MessageText(shown_.c_str());
  return result;
}

/// One line of the file for each field.
void TextEditor::Store() {
  std::array<std::string, kFields.size()> texts;
  std::ofstream out(std::filesystem::path(Wide(file_)), std::ios::binary);
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    std::array<char, kStoredSize> euc = {};
    utility_.GetTextData(GetDlgItem(kFields[i]), euc.data(), kStoredSize);
    texts[i] = euc.data();
    out << texts[i] << '\n';
  }
  out.flush();
  ShowStored(texts);
  Show(out ? kStored : kCannotOpen);
}

void TextEditor::Read() {
  std::array<std::string, kFields.size()> texts;
  std::ifstream in(std::filesystem::path(Wide(file_)), std::ios::binary);
  if (!in) return Show(kCannotOpen);
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    std::getline(in, texts[i]);
    utility_.SetTextData(GetDlgItem(kFields[i]), texts[i].c_str());
  }
  ShowStored(texts);
  Show(kRead);
}

void TextEditor::ShowStored(const std::array<std::string, kFields.size()>& texts) {
  std::string lines;
  for (const std::string& text : texts) lines += HexText(text) + "\r\n";
  SetDlgItemText(IDC_STORED_BYTES, lines.c_str());
}

void TextEditor::Show(int message) {
  std::array<char, 257> text = {};
  utility_.GetMessageText(message, text.data());
  shown_ = text.data();
  utility_.MessageText(shown_.c_str());
}

}  // namespace

int RunTextEditor(const Arguments& arguments) {
  TextEditor editor(arguments.empty() ? DefaultFile() : arguments.front());
  return editor.DoModal() == -1 ? kCannotRun : kAccepted;
}

}  // namespace demo
