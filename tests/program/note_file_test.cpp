// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

namespace quillberry {
namespace {

using namespace platform;
using headless::advance;
using headless::fileAt;
using headless::type;
using headless::writesOf;
using testing::Optional;

constexpr double beforeTheSave = 0.79;
constexpr double untilTheSave = 0.8;

URL kept(const std::string& number = "") { return noteFile.string() + ".unreadable" + number; }

TEST(NoteFile, IsWrittenOncePerPauseInTyping) {
  const Program program;
  for (const char* key : {"a", "b", "c"}) {
    type(key);
    advance(beforeTheSave);
    EXPECT_FALSE(fileAt(noteFile)) << "while typing after " << key;
  }
  advance(untilTheSave - beforeTheSave + 1e-9);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("abc")));
  advance(60);
  EXPECT_EQ(writesOf(noteFile), 1);
}

TEST(NoteFile, EveryKindOfEditIsSaved) {
  const Program program;
  type("one");
  type(" two");
  advance(1);
  headless::undo();
  advance(1);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("one")));
  headless::redo();
  advance(1);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("one two")));
}

TEST(NoteFile, LoadingIsNoEditAndPutsTheCaretAtTheEnd) {
  for (const std::string text : {"", "plain", "line\r\nend\n", "e\u0301 \U0001F4CC", "\uFEFFmark\u2028\u2029\u00A0"}) {
    headless::putFile(noteFile, text);
    const int writesBefore = writesOf(noteFile);
    const Program program;
    advance(10);
    EXPECT_EQ(writesOf(noteFile), writesBefore);
    EXPECT_EQ(headless::textView().string(), text);
    type("!");
    advance(1);
    EXPECT_THAT(fileAt(noteFile), Optional(text + "!"));
  }
}

TEST(NoteFile, HidingAndEndingSaveAtOnceAndOnlyOnce) {
  const Program program;
  type("a");
  headless::pressKey(kVK_Escape);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("a")));
  type("b");
  headless::terminate();
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("ab")));
  advance(10);
  EXPECT_EQ(writesOf(noteFile), 2);
}

TEST(NoteFile, AnEmptyNoteIsAnEmptyFile) {
  const Program program;
  headless::pressKey(kVK_Escape);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string()));
}

TEST(NoteFile, AFailedSaveLosesNothing) {
  headless::putFile(noteFile, "old");
  const Program program;
  type(" and new");
  headless::faults().roomInBytes = 5;
  advance(1);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("old")));
  advance(60);  // there is no retry by itself
  headless::faults().roomInBytes.reset();
  advance(60);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("old")));
  headless::pressKey(kVK_Escape);
  EXPECT_FALSE(headless::windowState().visible);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("old and new")));
}

TEST(NoteFile, HidesAlsoWhenNothingCanBeWritten) {
  const Program program;
  type("text");
  headless::faults().noWrite = true;
  headless::pressKey(kVK_Escape);
  EXPECT_FALSE(headless::windowState().visible);
  EXPECT_EQ(headless::textView().string(), "text");
}

TEST(NoteFile, AnUndecodableNoteIsKeptBeforeItIsReplaced) {
  const std::string bytes = "caf\xE9";
  headless::putFile(noteFile, bytes);
  headless::putFile(kept(), "from an earlier time");
  const Program program;
  EXPECT_EQ(headless::textView().string(), "");
  advance(10);
  EXPECT_FALSE(fileAt(kept(".2"))) << "nothing is kept before it has to be";
  type("new");
  advance(1);
  EXPECT_THAT(fileAt(kept()), Optional(std::string("from an earlier time")));
  EXPECT_THAT(fileAt(kept(".2")), Optional(bytes));
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("new")));
  type("er");
  advance(1);
  EXPECT_FALSE(fileAt(kept(".3"))) << "it is kept once";
}

TEST(NoteFile, ANoteThatTurnsUpAfterTheStartIsKept) {
  const Program program;
  headless::putFile(noteFile, "on a disk that is mounted late");
  type("new");
  advance(1);
  EXPECT_THAT(fileAt(kept()), Optional(std::string("on a disk that is mounted late")));
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("new")));
  headless::putFile(noteFile, "by another program");
  type("er");
  advance(1);
  EXPECT_FALSE(fileAt(kept(".2"))) << "the window's text was there before";
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("newer")));
}

TEST(NoteFile, SavesAreHeldBackWhileAnUnreadableNoteCannotBeKept) {
  headless::putFile(noteFile, "secret");
  headless::faults().noRead = true;
  headless::faults().noLink = true;
  const Program program;
  type("new");
  headless::terminate();
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("secret")));
  headless::faults().noLink = false;
  headless::terminate();
  EXPECT_THAT(fileAt(kept()), Optional(std::string("secret")));
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("new")));
}

TEST(NoteFile, APendingSaveDoesNotKeepTheControllerAlive) {
  std::weak_ptr<AppDelegate> controller;
  {
    const Program program;
    controller = program.delegate;
    type("text");
  }
  EXPECT_TRUE(controller.expired());
  advance(10);
  EXPECT_FALSE(fileAt(noteFile));
}

TEST(NoteFile, AnOpenCompositionIsSavedButArmsNoSave) {
  const Program program;
  type("a");
  advance(1);
  headless::compose("\u3042");
  advance(10);
  EXPECT_EQ(writesOf(noteFile), 1);
  headless::pressKey(kVK_Escape);
  EXPECT_THAT(fileAt(noteFile), Optional(std::string("a\u3042")));
  advance(10);
  EXPECT_EQ(writesOf(noteFile), 2);
  EXPECT_EQ(headless::textView().string(), "a\u3042");
}

}  // namespace
}  // namespace quillberry
