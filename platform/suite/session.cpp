#include <algorithm>
#include <set>

#include "platform/os/os.h"
#include "platform/suite/crvnbc.h"
#include "platform/suite/crvncontrol.h"
#include "platform/suite/crvnmdl.h"
#include "platform/suite/session_file.h"
#include "platform/suite/wildcard.h"

namespace {

constexpr std::size_t kFileLimit = 1024 * 1024;

}  // namespace

struct CwStartupParam::State {
  std::set<std::string> names;
};

CwStartupParam::CwStartupParam() : state_(std::make_unique<State>()) {}
CwStartupParam::~CwStartupParam() = default;

bool CwStartupParam::IsDefined(const std::string& name) const { return state_->names.contains(name); }
void CwStartupParam::Define(const std::string& name) { state_->names.insert(name); }
void CwStartupParam::Undefine(const std::string& name) { state_->names.erase(name); }
void CwStartupParam::UndefineAll() { state_->names.clear(); }

struct CwSessionParam::State {
  int fileTitleDisplay = 0;
};

CwSessionParam::CwSessionParam() : state_(std::make_unique<State>()) {}
CwSessionParam::~CwSessionParam() = default;

int CwSessionParam::GetFileTitleDisplay() const { return state_->fileTitleDisplay; }
void CwSessionParam::SetFileTitleDisplay(int display) { state_->fileTitleDisplay = display; }

struct CwTextLibrary::State {
  struct Text {
    std::string library;
    std::string text;
  };
  std::vector<Text> texts;
};

CwTextLibrary::CwTextLibrary() : state_(std::make_unique<State>()) {}
CwTextLibrary::~CwTextLibrary() = default;

void CwTextLibrary::AddText(const std::string& library, const std::string& text) {
  state_->texts.push_back({library, text});
}

std::vector<std::string> CwTextLibrary::GetTexts(const std::string& libraryPattern) const {
  std::vector<std::string> found;
  for (const State::Text& text : state_->texts) {
    if (suite::MatchesEuc(libraryPattern, text.library)) found.push_back(text.text);
  }
  return found;
}

std::vector<std::string> CwTextLibrary::GetLibraries() const {
  std::vector<std::string> names;
  for (const State::Text& text : state_->texts) {
    if (std::find(names.begin(), names.end(), text.library) == names.end()) names.push_back(text.library);
  }
  return names;
}

void CwTextLibrary::RemoveAll() { state_->texts.clear(); }

struct CwSession::State {
  CwStartupParam startupParam;
  CwSessionParam sessionParam;
  CwFileTypeSet fileTypes;
  CwRegisterSet registers;
  CwTextLibrary texts;
  std::unique_ptr<CwModel> ownModel;
  CwModel* activeModel = nullptr;
  std::vector<CwUnreadableLine> unreadableLines;
};

CwSession::CwSession() : state_(std::make_unique<State>()) {}
CwSession::~CwSession() = default;

CwSession* CwSession::GetInstance() {
  static CwSession session;
  return &session;
}

CwStartupParam* CwSession::GetStartupParam() { return &state_->startupParam; }
CwSessionParam* CwSession::GetSessionParam() { return &state_->sessionParam; }
CwFileTypeSet* CwSession::GetActiveFileTypeSet() { return &state_->fileTypes; }
CwRegisterSet* CwSession::GetRegisterSet() { return &state_->registers; }
CwTextLibrary* CwSession::GetTextLibrary() { return &state_->texts; }

bool CwSession::LoadFile(const std::string& path) {
  const std::optional<std::string> text = os::Services().files->Read(path, kFileLimit);
  if (!text) return false;
  CwSession* session = GetInstance();
  for (CwUnreadableLine& line : suite::ReadSessionText(*text, session)) {
    line.file = path;
    session->state_->unreadableLines.push_back(line);
  }
  return true;
}

const std::vector<CwUnreadableLine>& CwSession::GetUnreadableLines() const { return state_->unreadableLines; }

void CwSession::Reset() {
  State& state = *GetInstance()->state_;
  state.startupParam.UndefineAll();
  state.sessionParam.SetFileTitleDisplay(0);
  state.fileTypes.RemoveAll();
  state.registers.RemoveAll();
  state.texts.RemoveAll();
  state.activeModel = nullptr;
  state.ownModel.reset();
  state.unreadableLines.clear();
  CwMessage::GetMessageTable()->Clear();
  CwMessage::GetErrorTable()->Clear();
}

CwModel* CwSession::OpenModel() {
  if (!state_->ownModel) state_->ownModel = std::make_unique<CwModel>();
  state_->activeModel = state_->ownModel.get();
  return state_->activeModel;
}

void CwSession::CloseModel() {
  if (state_->activeModel == state_->ownModel.get()) state_->activeModel = nullptr;
  state_->ownModel.reset();
}

CwModel* GetActiveModel() { return CwSession::GetInstance()->state_->activeModel; }

void SetActiveModel(CwModel* model) { CwSession::GetInstance()->state_->activeModel = model; }
