#include <gtest/gtest.h>

#include <sstream>

#include "JsonNestingWatch.h"

namespace {

using tarvo_docs::JsonNestingWatch;

struct Watched {
  bool whole;
  std::size_t bytes;
  std::string passedOn;
};

// Writes `text` through a watch, in pieces of `piece` characters, as a writer's buffer drains.
Watched watch(std::string const& text, std::size_t piece) {
  std::ostringstream target;
  JsonNestingWatch watch(target);
  std::ostream out(&watch);
  for (std::size_t at = 0; at < text.size(); at += piece)
    out.write(text.data() + at, static_cast<std::streamsize>(std::min(piece, text.size() - at)));
  out.flush();
  return {watch.whole(), watch.bytes(), target.str()};
}

TEST(JsonNestingWatch, TellsAWholeDocumentFromOneCutOff) {
  struct Case {
    char const* text;
    bool whole;
  };
  Case const cases[] = {
      {"{\n  \"a\": [1, {\"b\": null}]\n}", true},
      {"{\n  \"a\": [1, {\"b\": null}]\n", false},
      {"{\n  \"a\": [1, {\"b\": null}", false},
      {"", false},
      {"  \n", false},
      {"[]", true},
      // Brackets, braces and escaped quotes inside strings are text, not nesting.
      {"{\"x}]\": \"[{\\\"\"}", true},
      {"{\"x\": \"}\"", false},
      {"{\"x\": \"a\\\\\"}", true},
      {"{\"x\": \"a\\\\\\\"}\"", false},
      {"{\"x\": \"unfinished", false},
  };
  for (Case const& c : cases) {
    std::string const text = c.text;
    for (std::size_t piece : {std::size_t(1), std::size_t(3), text.size() + 1}) {
      Watched const seen = watch(text, piece);
      EXPECT_EQ(seen.whole, c.whole) << text << " in pieces of " << piece;
      EXPECT_EQ(seen.bytes, text.size()) << text;
      EXPECT_EQ(seen.passedOn, text) << text;
    }
  }
}

}  // namespace
