#include <array>
#include <optional>

#include "platform/suite/crvnmdl.h"

struct CwModelTitle::State {
  int number = 0;
  std::uint16_t kindCode = 0;
  std::string name;
};

CwModelTitle::CwModelTitle() : CwModelTitle(0, 0, {}) {}

CwModelTitle::CwModelTitle(int number, std::uint16_t kindCode, const std::string& name)
    : state_(std::make_unique<State>(State{number, kindCode, name})) {}

CwModelTitle::CwModelTitle(const CwModelTitle& other) : state_(std::make_unique<State>(*other.state_)) {}

CwModelTitle& CwModelTitle::operator=(const CwModelTitle& other) {
  *state_ = *other.state_;
  return *this;
}

CwModelTitle::~CwModelTitle() = default;

int CwModelTitle::GetNumber() const { return state_->number; }
std::uint16_t CwModelTitle::GetKindCode() const { return state_->kindCode; }
const std::string& CwModelTitle::GetName() const { return state_->name; }

struct CwModelTitleSet::State {
  static constexpr int kLast = 207;
  std::array<std::optional<CwModelTitle>, kLast + 1> titles;

  static bool IsNumber(int number) { return number >= 1 && number <= kLast; }
  std::optional<CwModelTitle>& At(int number) { return titles[static_cast<std::size_t>(number)]; }
};

CwModelTitleSet::CwModelTitleSet() : state_(std::make_unique<State>()) {}
CwModelTitleSet::~CwModelTitleSet() = default;

const CwModelTitle* CwModelTitleSet::GetTitle(int number) const {
  if (!State::IsNumber(number) || !state_->At(number)) return nullptr;
  return &*state_->At(number);
}

bool CwModelTitleSet::SetTitle(int number, std::uint16_t kindCode, const std::string& name) {
  if (!State::IsNumber(number)) return false;
  state_->At(number) = CwModelTitle(number, kindCode, name);
  return true;
}

void CwModelTitleSet::RemoveTitle(int number) {
  if (State::IsNumber(number)) state_->At(number).reset();
}

struct CwModel::State {
  CwModelTitleSet titles;
};

CwModel::CwModel() : state_(std::make_unique<State>()) {}
CwModel::~CwModel() = default;

CwModelTitleSet* CwModel::GetModelTitleSet() { return &state_->titles; }
