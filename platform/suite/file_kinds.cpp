#include <map>
#include <utility>

#include "platform/suite/crvncontrol.h"

struct CwFileType::State {
  std::string keyword;
  std::string folder;
  std::string patterns;
  int flag = 0;
  CwLetterCase letterCase = CwLetterCase::AsIs;
  std::string description;
};

CwFileType::CwFileType(const std::string& keyword, const std::string& folder, const std::string& patterns, int flag,
                       CwLetterCase letterCase)
    : state_(std::make_unique<State>(State{keyword, folder, patterns, flag, letterCase, {}})) {}

CwFileType::CwFileType(const CwFileType& other) : state_(std::make_unique<State>(*other.state_)) {}

CwFileType& CwFileType::operator=(const CwFileType& other) {
  State copy = *other.state_;
  *state_ = std::move(copy);  // whole, or not at all
  return *this;
}

CwFileType::~CwFileType() = default;

const std::string& CwFileType::GetKeyword() const { return state_->keyword; }
const std::string& CwFileType::GetFolder() const { return state_->folder; }
const std::string& CwFileType::GetPatterns() const { return state_->patterns; }
int CwFileType::GetFlag() const { return state_->flag; }
bool CwFileType::IsUpperCase() const { return state_->letterCase == CwLetterCase::Upper; }
bool CwFileType::IsLowerCase() const { return state_->letterCase == CwLetterCase::Lower; }
const std::string& CwFileType::GetDescription() const { return state_->description; }

void CwFileType::SetDescription(const std::string& description) { state_->description = description; }

std::string CwFileType::GetExtension() const {
  constexpr const char* kBetween = ",; ";
  const std::string& patterns = state_->patterns;
  const std::size_t start = patterns.find_first_not_of(kBetween);
  if (start == std::string::npos) return {};
  const std::string first = patterns.substr(start, patterns.find_first_of(kBetween, start) - start);
  const std::size_t dot = first.rfind('.');
  return dot == std::string::npos ? std::string() : first.substr(dot);
}

struct CwFileTypeSet::State {
  std::map<std::string, CwFileType> types;
};

CwFileTypeSet::CwFileTypeSet() : state_(std::make_unique<State>()) {}
CwFileTypeSet::~CwFileTypeSet() = default;

CwFileType* CwFileTypeSet::GetFileType(const std::string& keyword) {
  const auto found = state_->types.find(keyword);
  return found == state_->types.end() ? nullptr : &found->second;
}

const CwFileType* CwFileTypeSet::GetFileType(const std::string& keyword) const {
  const auto found = state_->types.find(keyword);
  return found == state_->types.end() ? nullptr : &found->second;
}

bool CwFileTypeSet::AddFileType(const CwFileType& type) {
  if (type.GetKeyword().empty()) return false;
  state_->types.insert_or_assign(type.GetKeyword(), type);
  return true;
}

bool CwFileTypeSet::AddFileType(const CwFileType* type) { return type != nullptr && AddFileType(*type); }

std::vector<std::string> CwFileTypeSet::GetKeywords() const {
  std::vector<std::string> keywords;
  keywords.reserve(state_->types.size());
  for (const auto& [keyword, type] : state_->types) keywords.push_back(keyword);
  return keywords;
}

bool CwFileTypeSet::RemoveFileType(const std::string& keyword) { return state_->types.erase(keyword) > 0; }

void CwFileTypeSet::RemoveAll() { state_->types.clear(); }
