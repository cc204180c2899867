// Every checked-in input once more, by the compiler and under the sanitizers of all native tests. One test for each
// target, named after it; an input that breaks a property fails it and is named.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"

// The build compiles each target's LLVMFuzzerTestOneInput under the name of the target.
#define DLGLIB_FUZZ_TARGET(name) extern "C" int FuzzTarget_##name(const std::uint8_t* data, std::size_t size);
#include "fuzz_targets.inc"
#undef DLGLIB_FUZZ_TARGET

void fuzz::Fail(const char* file, int line, const char* property) {
  throw std::logic_error(std::string(file) + ":" + std::to_string(line) + ": broken: " + property);
}

namespace {

struct Target {
  const char* name;
  int (*run)(const std::uint8_t* data, std::size_t size);
};

#define DLGLIB_FUZZ_TARGET(name) {#name, FuzzTarget_##name},
constexpr Target kTargets[] = {
#include "fuzz_targets.inc"
};
#undef DLGLIB_FUZZ_TARGET

const std::filesystem::path kCorpus = DLGLIB_FUZZ_CORPUS;

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code missing;
  for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class Replay : public testing::TestWithParam<Target> {};

TEST_P(Replay, EveryInputKeepsTheProperties) {
  const std::vector<std::filesystem::path> files = FilesOf(kCorpus / GetParam().name);
  ASSERT_FALSE(files.empty()) << "no inputs in " << kCorpus / GetParam().name;
  for (const std::filesystem::path& file : files) {
    SCOPED_TRACE(file.string());
    const std::string bytes = BytesOf(file);
    EXPECT_EQ(GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay, testing::ValuesIn(kTargets),
                         [](const testing::TestParamInfo<Target>& target) { return std::string(target.param.name); });

TEST(ReplayCorpus, EveryFolderBelongsToATarget) {
  for (const std::filesystem::path& folder : FilesOf(kCorpus)) {
    const auto isOf = [&folder](const Target& target) { return folder.filename() == target.name; };
    EXPECT_TRUE(std::any_of(std::begin(kTargets), std::end(kTargets), isOf)) << folder;
  }
}

TEST(ReplayCorpus, ABrokenPropertyIsNoticed) {
  EXPECT_NO_THROW(FUZZ_CHECK(kCorpus.has_filename()));
  EXPECT_THROW(FUZZ_CHECK(kCorpus.empty()), std::logic_error);
}

}  // namespace
