#include "store/field_names.h"

#include <gtest/gtest.h>

#include "store/field_table.h"

namespace orvex::store {
namespace {

TEST(FieldNames, EveryFieldOfATableIsFoundWhateverTheCase) {
  FieldNames names;
  const auto& table = FindTable("emission");
  for (const auto& field : table.fields) names.Add(std::string(field.name));
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const std::string name(table.fields[i].name);
    EXPECT_TRUE(names.Is(i, name)) << name;
    EXPECT_EQ(names.Find(name), i) << name;
    EXPECT_EQ(names.Find(LowerCase(name)), i) << name;
  }
}

TEST(FieldNames, NamesThatDifferInOneCharacterAreToldApart) {
  // Lengths around those that fit in one or two machine words; every place of each is changed in turn.
  for (std::size_t length = 1; length < 40; ++length) {
    const std::string name(length, 'a');
    FieldNames names;
    names.Add(name);
    for (std::size_t i = 0; i < length; ++i) {
      std::string other = name;
      other[i] = 'b';
      EXPECT_FALSE(names.Is(0, other)) << other;
      EXPECT_FALSE(names.Find(other).has_value()) << other;
      other[i] = 'A';
      EXPECT_FALSE(names.Is(0, other)) << other;
      EXPECT_EQ(names.Find(other), 0U) << other;
    }
  }
}

TEST(FieldNames, CharactersThatDifferByTheBitOfACaseAreNoLetters) {
  FieldNames names;
  names.Add("a@b");
  EXPECT_FALSE(names.Find("a`b").has_value());
}

TEST(FieldNames, OfTwoNamesThatDifferByCaseOnlyTheFirstIsFound) {
  FieldNames names;
  names.Add("Error");
  names.Add("ERROR");
  EXPECT_EQ(names.Find("error"), 0U);
  EXPECT_TRUE(names.Is(1, "ERROR"));
}

TEST(FieldNames, NothingIsFoundAmongNoNames) {
  const FieldNames names;
  EXPECT_FALSE(names.Find("ID").has_value());
  EXPECT_FALSE(names.Is(0, "ID"));
}

}  // namespace
}  // namespace orvex::store
