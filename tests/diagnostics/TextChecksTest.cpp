#include <gtest/gtest.h>

#include "Lint.h"
#include "TextSuggestion.h"

namespace {

using tarvo_diagnostics::Lint;
using tarvo_diagnostics::TextSuggestion;

std::size_t badByte(std::string const& text) {
  return Lint::invalidUtf8At(text.data(), text.size());
}

TEST(TextChecks, Utf8AcceptsEveryFormAndFindsTheFirstBadByte) {
  EXPECT_EQ(badByte("plain \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF"), std::string::npos);
  EXPECT_EQ(badByte("ab\xFF"), 2u);
  EXPECT_EQ(badByte("a\xC3"), 1u);             // cut short at the end
  EXPECT_EQ(badByte("a\xC3(b"), 1u);           // no continuation byte
  EXPECT_EQ(badByte("\xC0\xAF"), 0u);          // overlong "/"
  EXPECT_EQ(badByte("x\xE0\x80\xAF"), 1u);     // overlong in three bytes
  EXPECT_EQ(badByte("\xED\xA0\x80"), 0u);      // a surrogate
  EXPECT_EQ(badByte("\xF4\x90\x80\x80"), 0u);  // beyond U+10FFFF
  EXPECT_EQ(badByte("\xE2\x82\xAC\x80"), 3u);  // a stray continuation byte
}

TEST(TextChecks, SuggestionsPreferTheNearestAndExactCase) {
  std::vector<std::string> const keys = {"colocated_nodes", "not_colocated_nodes", "colocated_ports"};
  EXPECT_EQ(TextSuggestion::closest("colocated_node", keys, TextSuggestion::nameTolerance("colocated_node")),
            "colocated_nodes");
  EXPECT_EQ(TextSuggestion::closest("margin", keys, TextSuggestion::nameTolerance("margin")), "");
  EXPECT_EQ(TextSuggestion::distance("AXI_MM", "axi_mm"), 1u);  // case alone costs one
  EXPECT_EQ(TextSuggestion::distance("AXI_MM", "AXI_MM"), 0u);
  EXPECT_EQ(TextSuggestion::distance("", "abc"), 3u);
  EXPECT_EQ(TextSuggestion::closest("ll", {"LL", "ll"}, 5), "ll");
  EXPECT_EQ(TextSuggestion::closest("ll", {"BE", "LL"}, 5), "LL");
  EXPECT_EQ(TextSuggestion::distance("Nmae", "Name"), 1u);  // a swap of neighbours is one edit
  EXPECT_EQ(TextSuggestion::distance("dataWidht", "dataWidth"), 1u);
  EXPECT_EQ(TextSuggestion::distance("abc", "ca"), 3u);
  EXPECT_EQ(TextSuggestion::closest("NOPE", {"NRPT", "DDRC"}, TextSuggestion::nameTolerance("NOPE")), "");
  EXPECT_EQ(TextSuggestion::nameTolerance("ab"), 1u);
  EXPECT_EQ(TextSuggestion::nameTolerance("colocated_node"), 3u);
}

}  // namespace
