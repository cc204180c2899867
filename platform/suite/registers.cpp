#include <map>
#include <utility>

#include "platform/suite/crvncontrol.h"

namespace {

constexpr int kGroups = 26;
constexpr int kIndices = 1000;

/// Names in order of group letter and index, so that "A2" comes before "A10".
struct NameOrder {
  static bool IsRegular(const std::string& name) {
    if (name.size() < 2 || name.size() > 4 || name[0] < 'A' || name[0] > 'Z') return false;
    if (name.find_first_not_of("0123456789", 1) != std::string::npos) return false;
    return name[1] != '0' || name.size() == 2;
  }
  static auto Key(const std::string& name) { return std::pair(name.substr(0, 1), name.size()); }
  bool operator()(const std::string& left, const std::string& right) const {
    if (IsRegular(left) != IsRegular(right)) return IsRegular(left);
    if (IsRegular(left) && Key(left) != Key(right)) return Key(left) < Key(right);
    return left < right;
  }
};

}  // namespace

struct CwRegister::State {
  enum class Holds { Nothing, Scalar, Text };
  Holds holds = Holds::Nothing;
  double scalar = 0;
  std::string text;
};

CwRegister::CwRegister() : state_(std::make_unique<State>()) {}
CwRegister::~CwRegister() = default;

bool CwRegister::IsEmpty() const { return state_->holds == State::Holds::Nothing; }
bool CwRegister::IsScalar() const { return state_->holds == State::Holds::Scalar; }
double CwRegister::GetScalar() const { return state_->scalar; }
const std::string& CwRegister::GetText() const { return state_->text; }
void CwRegister::SetScalar(double value) { *state_ = {State::Holds::Scalar, value, {}}; }
void CwRegister::SetText(const std::string& text) { *state_ = {State::Holds::Text, 0, text}; }
void CwRegister::SetEmpty() { *state_ = {}; }

struct CwRegisterSet::State {
  std::map<std::string, CwRegister, NameOrder> registers;
};

CwRegisterSet::CwRegisterSet() : state_(std::make_unique<State>()) {}
CwRegisterSet::~CwRegisterSet() = default;

std::string CwRegisterSet::GetRegisterName(int group, int index) {
  if (group < 1 || group > kGroups || index < 0 || index >= kIndices) return {};
  return static_cast<char>('A' + group - 1) + std::to_string(index);
}

CwRegister* CwRegisterSet::GetRegister(const std::string& name) {
  const auto found = state_->registers.find(name);
  return found == state_->registers.end() ? nullptr : &found->second;
}

const CwRegister* CwRegisterSet::GetRegister(const std::string& name) const {
  const auto found = state_->registers.find(name);
  return found == state_->registers.end() ? nullptr : &found->second;
}

CwRegister* CwRegisterSet::AddRegister(const std::string& name) { return &state_->registers[name]; }

std::vector<std::string> CwRegisterSet::GetNames() const {
  std::vector<std::string> names;
  for (const auto& [name, content] : state_->registers) names.push_back(name);
  return names;
}

void CwRegisterSet::RemoveAll() { state_->registers.clear(); }
