// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/user_defaults.h"
#include "tests/desktop/scratch.h"

namespace platform {
namespace {

using testing::HasSubstr;
using testing::Optional;

class SettingsFile : public testing::Test {
 protected:
  scratch::Folder scratch;
  std::filesystem::path file = scratch.path() / "config/Quillberry/settings.json";
};

TEST_F(SettingsFile, KeepsWhatItDoesNotKnow) {
  scratch::put(file, R"({"pinned": "yes", "later": {"a": [1, 2.5, null]}, "showOnWake": false})");
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  EXPECT_EQ(defaults.objectForKey("pinned"), DefaultsValue(std::string("yes")));
  EXPECT_EQ(defaults.objectForKey("later"), DefaultsValue(OtherValue{}));
  EXPECT_EQ(defaults.objectForKey("showOnWake"), DefaultsValue(false));
  defaults.setBool(true, "pinned");
  std::string stored = scratch::get(file).value_or("");
  std::erase_if(stored, [](char c) { return c == ' ' || c == '\n'; });
  EXPECT_EQ(stored, R"({"later":{"a":[1,2.5,null]},"pinned":true,"showOnWake":false})");
}

TEST_F(SettingsFile, IsKeptBesideWhenItIsNoObject) {
  scratch::put(file, "[true]");
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  EXPECT_EQ(defaults.objectForKey("pinned"), std::nullopt);
  defaults.setBool(false, "pinned");
  EXPECT_THAT(scratch::get(file.string() + ".unreadable"), Optional(std::string("[true]")));
  EXPECT_THAT(scratch::get(file), Optional(HasSubstr("\"pinned\": false")));
}

TEST_F(SettingsFile, HoldsInMemoryAndIsWrittenAtTheNextChangeOrTheEnd) {
  const auto app = NSApplication::sharedApplication();
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  for (const bool atTheEnd : {false, true}) {
    std::filesystem::remove_all(file.parent_path());
    scratch::put(file.parent_path(), "a file where the folder should be");
    defaults.setBool(atTheEnd, "pinned");
    EXPECT_EQ(defaults.objectForKey("pinned"), DefaultsValue(atTheEnd));
    std::filesystem::remove(file.parent_path());
    atTheEnd ? app->terminate(nullptr) : defaults.setBool(false, "pinned");
    EXPECT_THAT(scratch::get(file), Optional(HasSubstr(atTheEnd ? "true" : "false")));
  }
}

}  // namespace
}  // namespace platform
