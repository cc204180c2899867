#include "dlglib/base/registry_change.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/os/os_scripted.h"

namespace {

using os::RegistryType;
using os::scripted::World;

constexpr char kKey[] = "Software\\Test";

class RegistryChangeTest : public testing::Test {
 protected:
  RegistryChangeTest() {
    World().Reset();
    key_ = os::Services().registry->Create(kKey);
  }

  [[nodiscard]] static std::string Bytes(const std::string& name) {
    const std::optional<os::RegistryValue> value = World().registry.Value(kKey, name);
    return value ? value->bytes : "none";
  }

  std::unique_ptr<os::RegistryKey> key_;
};

TEST_F(RegistryChangeTest, KeepsWhatWasWrittenWhenAllOfItWas) {
  RegistryChange change(*key_);
  change.Delete("missing");
  change.Set("a", RegistryType::String, "1");
  change.Set("b", RegistryType::String, "2");
  EXPECT_TRUE(change.Finish());
  EXPECT_EQ(Bytes("a") + Bytes("b"), "12");
}

TEST_F(RegistryChangeTest, PutsBackValuesOfAnySize) {
  for (const std::size_t size : {0U, 1U, 16384U, 16385U, 1000000U}) {
    const std::string former(size, 'f');
    key_->Set("v", RegistryType::Binary, former);
    {
      RegistryChange change(*key_);
      change.Delete("v");
      change.Set("v", RegistryType::String, "new");
    }
    EXPECT_TRUE(Bytes("v") == former) << size;
    RegistryChange change(*key_);
    change.Set("v", RegistryType::String, "new");
    World().calls.FailNext("registry.Set");
    change.Set("w", RegistryType::String, "another");
    EXPECT_FALSE(change.Finish());
    EXPECT_TRUE(Bytes("v") == former) << size;
    EXPECT_EQ(Bytes("w"), "none");
  }
}

TEST_F(RegistryChangeTest, AValueThatCannotBeReadIsChangedAllTheSame) {
  key_->Set("a", RegistryType::String, "hidden");
  key_->Set("b", RegistryType::String, "former");
  {
    RegistryChange change(*key_);
    World().calls.FailNext("registry.Query");
    change.Set("a", RegistryType::String, "1");
    change.Set("b", RegistryType::String, "2");
    EXPECT_TRUE(change.Finish());
    EXPECT_EQ(Bytes("a") + Bytes("b"), "12");
  }
  {
    RegistryChange change(*key_);
    World().calls.FailNext("registry.Query");
    change.Set("a", RegistryType::String, "3");
    change.Set("b", RegistryType::String, "4");
  }
  EXPECT_EQ(Bytes("b"), "2");
  EXPECT_EQ(Bytes("a"), "3");
}

}  // namespace
