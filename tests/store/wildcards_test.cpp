#include "store/wildcards.h"

#include <gtest/gtest.h>

#include <string>

namespace orvex::store {
namespace {

bool Matches(std::string_view text, std::string_view pattern) {
  return MatchesWildcards(text, pattern, CaseRule::kRegard);
}

TEST(Wildcards, TextWithoutWildcardsMatchesItselfOnly) {
  EXPECT_TRUE(Matches("Column Well", "Column Well"));
  EXPECT_FALSE(Matches("Column Wel", "Column Well"));
  EXPECT_FALSE(Matches("Column Wells", "Column Well"));
  EXPECT_TRUE(Matches("", ""));
  EXPECT_FALSE(Matches("", "a"));
  EXPECT_FALSE(Matches("a", ""));
}

TEST(Wildcards, AStarStandsForAnyTextAlsoAnEmptyOne) {
  EXPECT_TRUE(Matches("", "*"));
  EXPECT_TRUE(Matches("Column Well", "Column Well*"));
  EXPECT_TRUE(Matches("Column Well (24-in. Diam.)", "Column Well*"));
  EXPECT_FALSE(Matches("A Column Well", "Column Well*"));
  EXPECT_TRUE(Matches("A Column Well", "*Column*"));
  EXPECT_TRUE(Matches("Stub Drain (1-in. Diam.)", "*Stub Drain*"));
  EXPECT_TRUE(Matches("abab", "*ab"));
  EXPECT_TRUE(Matches("aab", "a*ab"));
  EXPECT_FALSE(Matches("aba", "*ab"));
  EXPECT_TRUE(Matches("x", "***"));
  EXPECT_TRUE(Matches("Roof Leg, Center Area", "*Roof Leg*Center*"));
  EXPECT_FALSE(Matches("Center Roof Leg", "*Roof Leg*Center*"));
}

TEST(Wildcards, ManyStarsDoNotTakeForever) {
  const std::string text(5000, 'a');
  std::string pattern;
  for (int i = 0; i < 500; ++i) pattern += "*a";
  EXPECT_TRUE(Matches(text, pattern));
  EXPECT_FALSE(Matches(text, pattern + "b"));
}

TEST(Wildcards, AQuestionMarkStandsForOneCharacter) {
  EXPECT_TRUE(Matches("a", "?"));
  EXPECT_FALSE(Matches("", "?"));
  EXPECT_FALSE(Matches("ab", "?"));
  EXPECT_TRUE(Matches("\xC3\xBC", "?")) << "u umlaut is one character of two bytes";
  EXPECT_TRUE(Matches("\xE2\x82\xAC", "?")) << "the euro sign has three";
  EXPECT_TRUE(Matches("\xF0\x9F\x9B\xA2", "?")) << "the oil drum has four";
  EXPECT_TRUE(Matches("x\xC3", "x?")) << "a broken character is one";
  EXPECT_TRUE(Matches("\xC3x", "?x")) << "which takes nothing of the next one along";
  EXPECT_FALSE(Matches("\xC3x", "?"));
}

TEST(Wildcards, ANumberSignStandsForOneDigit) {
  EXPECT_TRUE(Matches("5 x 12", "# x ##"));
  EXPECT_FALSE(Matches("a", "#"));
  EXPECT_FALSE(Matches("", "#"));
}

TEST(Wildcards, AListStandsForOneOfItsCharacters) {
  EXPECT_TRUE(Matches("b", "[abc]"));
  EXPECT_FALSE(Matches("d", "[abc]"));
  EXPECT_TRUE(Matches("q", "[a-z]"));
  EXPECT_FALSE(Matches("Q", "[a-z]"));
  EXPECT_TRUE(Matches("7", "[a-z0-9_]"));
  EXPECT_TRUE(Matches("_", "[a-z0-9_]"));
  EXPECT_TRUE(Matches("-", "[a-]")) << "a hyphen at the end stands for itself";
  EXPECT_FALSE(Matches("b", "[a-]"));
  EXPECT_TRUE(Matches("*", "[*]"));
  EXPECT_TRUE(Matches("?", "[?]"));
  EXPECT_TRUE(Matches("#", "[#]"));
  EXPECT_TRUE(Matches("[", "[[]"));
  EXPECT_FALSE(Matches("", "[a]"));
  EXPECT_FALSE(Matches("x", "[]"));
  EXPECT_TRUE(Matches("\xC3\xBC", "[a\xC3\xBC]"));
  EXPECT_FALSE(Matches("\xC3\xB6", "[a\xC3\xBC]"));
}

TEST(Wildcards, AnExclamationMarkTurnsAListAround) {
  EXPECT_TRUE(Matches("1", "[!a-z]"));
  EXPECT_FALSE(Matches("m", "[!a-z]"));
  EXPECT_FALSE(Matches("", "[!a-z]"));
  EXPECT_TRUE(Matches("\xC3\xBC", "[!a-z]"));
  EXPECT_TRUE(Matches("!", "[a!]")) << "elsewhere it stands for itself";
}

TEST(Wildcards, AListThatDoesNotEndMatchesNothing) {
  EXPECT_FALSE(Matches("a", "[a"));
  EXPECT_FALSE(Matches("[a", "[a"));
  EXPECT_FALSE(Matches("a", "["));
  EXPECT_FALSE(Matches("!", "[!"));
}

TEST(Wildcards, CaseMattersOnlyWhereItIsToldTo) {
  EXPECT_FALSE(Matches("COLUMN WELL", "Column*"));
  EXPECT_TRUE(MatchesWildcards("COLUMN WELL", "Column*", CaseRule::kIgnore));
  EXPECT_TRUE(MatchesWildcards("Q", "[a-z]", CaseRule::kIgnore));
  EXPECT_TRUE(MatchesWildcards("q", "[A-Z]", CaseRule::kIgnore));
  EXPECT_FALSE(MatchesWildcards("q", "[!A-Z]", CaseRule::kIgnore));
}

}  // namespace
}  // namespace orvex::store
