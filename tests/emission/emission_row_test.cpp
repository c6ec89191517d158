#include "emission/emission_row.h"

#include "emission/emiss_fix.h"
#include "emission/loss_fixture.h"

namespace orvex::emission {
namespace {

struct CasCase {
  const char* name;
  store::Value stored;
  store::Value in_new_row;
  store::Value in_old_row;  ///< which holds 50-00-0
};

class CasNumber : public LossTest, public ::testing::WithParamInterface<CasCase> {};

TEST_P(CasNumber, ComesTrimmedAndAnEmptyOneLeavesTheRowsOwn) {
  const auto ID = AddVerticalTank(test);
  ChangeMixture(client, ID, 1, {{"CAS", GetParam().stored}});
  EmissFix(test.session, ID, 1, "Annual");
  EXPECT_EQ(Row(ID).Get("CAS"), GetParam().in_new_row);

  test::ChangeRow(client, "emission", "COMPID", {ID}, {{"CAS", "50-00-0"}});
  EmissFix(test.session, ID, 1, "Annual");
  EXPECT_EQ(Row(ID).Get("CAS"), GetParam().in_old_row);
}

INSTANTIATE_TEST_SUITE_P(Texts, CasNumber,
                         ::testing::Values(CasCase{"Plain", "71-43-2", "71-43-2", "71-43-2"},
                                           CasCase{"Padded", " 71-43-2 ", "71-43-2", "71-43-2"},
                                           CasCase{"Null", kNull, kNull, "50-00-0"},
                                           CasCase{"Empty", "", kNull, "50-00-0"}, CasCase{"Blanks", "  ", "", ""}),
                         [](const auto& given) { return given.param.name; });

class EmissionRow : public LossTest {};

TEST_F(EmissionRow, OpensAnewWhatDiffersInAnyPartOfTheKey) {
  const auto add = [&](std::int32_t ID, std::int32_t MixID, std::string_view name, std::string_view Month,
                       bool primary) { OpenEmissionRow(test.session, ID, MixID, name, Month, primary).Update(); };
  add(1, 1, "Benzene", "May", true);
  add(1, 1, "Benzene", "May", true);
  EXPECT_EQ(RowCount(), 1);
  add(2, 1, "Benzene", "May", true);
  add(1, 2, "Benzene", "May", true);
  add(1, 1, "Toluene", "May", true);
  add(1, 1, "Benzene", "June", true);
  add(1, 1, "Benzene", "May", false);
  EXPECT_EQ(RowCount(), 6);
}

TEST_F(EmissionRow, CopiesWithoutNulls) {
  AddRow(client, "tank", {{"USER ID", "A"}, {"DIAMETER", 12.5}, {"HEATED", true}});
  auto tank = client.OpenTable("tank");
  auto row = OpenEmissionRow(test.session, 1, 1, "Benzene", "May", true);
  constexpr std::string_view kTexts[] = {"USER ID", "CITY"}, kNumbers[] = {"DIAMETER", "VOLUME"},
                             kFlags[] = {"HEATED", "UNDER"}, kZeros[] = {"MOLES"};
  CopyTexts(tank, row, kTexts);
  CopyNumbers(tank, row, kNumbers);
  CopyFlags(tank, row, kFlags);
  SetZero(row, kZeros);
  row.Update();
  auto written = client.OpenTable("emission");
  for (const auto& field : {ExpectedField{"USER ID", "A"},
                            {"CITY", ""},
                            {"DIAMETER", 12.5},
                            {"VOLUME", 0.0},
                            {"HEATED", true},
                            {"UNDER", false},
                            {"MOLES", 0.0},
                            {"DESC", kNull}})
    ExpectField(written, field);
}

}  // namespace
}  // namespace orvex::emission
