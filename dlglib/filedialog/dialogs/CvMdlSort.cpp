#include "dlglib/filedialog/dialogs/CvMdlSort.h"

#include "dlglib/resources/resource.h"
#include "dlglib/utility/CvUtility.h"
#include "platform/framework/data_exchange.h"
#include "platform/os/edit_composition.h"
#include "platform/os/sjis_edit.h"

namespace {

constexpr char kLimitPrompt[] = "個数の制限を入力してください。";
constexpr char kLimitTooSmall[] = "個数の制限が小さすぎます。（≧１０）";

}  // namespace

CvMdlSort::CvMdlSort(CWnd* parent, filedialog::SlowSortRule rule)
    : CvScaledDialog(IDD_MODEL_SORT, parent), rule_(rule), states_(filedialog::StatesOf(rule.mode)) {}

CvMdlSort::~CvMdlSort() = default;

void CvMdlSort::Edit(CWnd* parent, filedialog::SlowSortRule* rule) {
  CvMdlSort dialog(parent, *rule);
  if (dialog.DoModal() == IDOK) *rule = dialog.Rule();
}

Handled CvMdlSort::RouteMessage(const Message& message) {
  static constexpr MessageRow<CvMdlSort> kRows[] = {
      OnCommandRange(IDC_SORT_ALWAYS, IDC_SORT_ASK, BN_CLICKED, &CvMdlSort::OnOption),
      OnCommand(IDC_SORT_LIMIT, EN_SETFOCUS, &CvMdlSort::OnLimitFocus),
      OnCommand(IDC_SORT_LIMIT, EN_KILLFOCUS, &CvMdlSort::OnLimitLeft),
      OnMessage(WM_PAINT, &CvMdlSort::OnPaint),
  };
  return Route<CvScaledDialog>(*this, kRows, message);
}

/// Made only in part it is not shown; no control of it gets the focus, which would ask for the message zone.
BOOL CvMdlSort::OnInitDialog() {
  try {
    Start();
    return TRUE;
  } catch (...) {
    EndDialog(IDCANCEL);
    return FALSE;
  }
}

void CvMdlSort::Start() {
  utility_ = std::make_unique<CvUtility>();
  CenterWindow();
  utility_->SetParentWindow(this);
  utility_->SetMessageZone();
  shown_.clear();
  states_ = filedialog::StatesOf(rule_.mode);
  os::KeepToShiftJis(::GetDlgItem(m_hWnd, IDC_SORT_LIMIT));
  os::KeepCompositionsWhole(::GetDlgItem(m_hWnd, IDC_SORT_LIMIT));
  limit_ = filedialog::LimitText(rule_.limit).c_str();
  UpdateData(FALSE);
}

void CvMdlSort::DoDataExchange(CDataExchange* exchange) {
  DDX_Radio(exchange, IDC_SORT_ALWAYS, states_[0]);
  DDX_Radio(exchange, IDC_SORT_WITHIN_LIMIT, states_[1]);
  DDX_Radio(exchange, IDC_SORT_ASK, states_[2]);
  DDX_Text(exchange, IDC_SORT_LIMIT, limit_);
  KeepTabStops();
}

// A button that is unchecked gives its tab stop up, so that only one of a group has it; these are groups of their own.
void CvMdlSort::KeepTabStops() {
  for (int id = IDC_SORT_ALWAYS; id <= IDC_SORT_ASK; ++id)
    WindowRef(::GetDlgItem(m_hWnd, id)).ModifyStyle(0, WS_TABSTOP);
}

void CvMdlSort::OnOption(const Message& message) {
  UpdateData(TRUE);
  states_ = filedialog::StatesAfterClick(states_, message.ControlId() - IDC_SORT_ALWAYS);
  UpdateData(FALSE);
}

void CvMdlSort::OnLimitFocus() {
  shown_ = kLimitPrompt;
  utility_->MessageText(shown_.c_str());
}

void CvMdlSort::OnLimitLeft() {
  shown_.clear();
  utility_->MessageText(shown_.c_str());
}

// Painting takes the text of the zone away.
LRESULT CvMdlSort::OnPaint(const Message& message) {
  const LRESULT result = CallDefault(message);
  if (!shown_.empty()) utility_->MessageText(shown_.c_str());
  return result;
}

void CvMdlSort::OnOK() {
  UpdateData(TRUE);
  const int limit = filedialog::LimitOf(limit_.View());
  if (!filedialog::IsLargeEnough(limit)) {
    shown_ = kLimitTooSmall;
    utility_->ErrorText(shown_.c_str());
    return;
  }
  rule_ = {filedialog::ModeOf(states_), limit};
  UpdateData(FALSE);
  EndDialog(IDOK);
}
