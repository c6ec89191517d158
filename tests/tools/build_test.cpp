#include "databases/build.h"

#include <gmock/gmock.h>

#include <fstream>

#include "emission/typical_fittings.h"
#include "emission/validate.h"
#include "shell/tank_types.h"
#include "support/test_databases.h"
#include "tools/made_rows.h"

namespace orvex::databases {
namespace {

using ::testing::HasSubstr;

const std::filesystem::path kReference = ORVEX_REFERENCE_FOLDER;
const std::filesystem::path kSamples = ORVEX_SAMPLES_FOLDER;

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A session over the delivered reference data and the sample tanks.
struct SampleSession {
  SampleSession() {
    BuildReferenceDatabase(kReference, folder.Path() / "tankdata.mdb");
    BuildSampleDatabase(kSamples, kReference, folder.Path() / "client1.mdb");
    session.ReferenceDb = store::Database::Open(folder.Path() / "tankdata.mdb");
    session.ClientDb = store::Database::Open(folder.Path() / "client1.mdb");
  }
  test::TemporaryFolder folder;
  test::ScriptedHost host;
  shell::Session session{host};
};

TEST(ReferenceDatabase, HoldsTheDeliveredRows) {
  SampleSession samples;
  const std::pair<std::string_view, std::int64_t> counts[] = {
      {"chemical", 332},     {"deckseam", 5}, {"fitting", 47},      {"met", 430},
      {"profile names", 14}, {"rimseal", 12}, {"import errors", 0}, {"profile components", 147}};
  for (const auto& [table, count] : counts) {
    EXPECT_EQ(samples.session.ReferenceDb->OpenTable(table).RecordCount(), count) << table;
  }
}

TEST(ReferenceDatabase, NoRowIsUserDefined) {
  SampleSession samples;
  const std::pair<std::string_view, std::string_view> flags[] = {{"chemical", "USER_DEF"}, {"deckseam", "USER_DEF"},
                                                                 {"fitting", "USER_DEF"},  {"met", "USER DEF"},
                                                                 {"rimseal", "USER_DEF"},  {"profile names", "User"}};
  for (const auto& [table, flag] : flags) {
    for (auto rows = samples.session.ReferenceDb->OpenTable(table); !rows.AtEnd(); rows.MoveNext()) {
      EXPECT_FALSE(rows.IsNull(flag)) << table;
      EXPECT_FALSE(rows.Bool(flag)) << table;
    }
  }
}

TEST(ReferenceDatabase, AnEmptyStatusIsNullAndAZeroIsAZero) {
  SampleSession samples;
  auto fittings = samples.session.ReferenceDb->OpenTable("fitting");
  fittings.SetIndex("FIT_TYPE");
  fittings.Seek({"Stub Drain (1-in. Diameter)"});
  ASSERT_FALSE(fittings.NoMatch());
  EXPECT_TRUE(fittings.IsNull("COVR_TYPE"));
  EXPECT_EQ(fittings.Double("K_FB"), 0.0);
}

TEST(ReferenceDatabase, ProfilesKeepTheNumbersOfTheirFile) {
  SampleSession samples;
  auto profiles = samples.session.ReferenceDb->OpenTable("profile names");
  profiles.SetIndex("Profile Name");
  profiles.Seek({"Lacquer Thinner"});
  ASSERT_FALSE(profiles.NoMatch());
  EXPECT_EQ(profiles.Long("SPEC ID"), 12);
}

TEST(ReferenceDatabase, AFaultyRowIsNamedAndTheFormerFileStays) {
  test::TemporaryFolder folder;
  std::filesystem::copy(kReference, folder.Path() / "csv");
  const auto target = folder.Path() / "tankdata.mdb";
  BuildReferenceDatabase(folder.Path() / "csv", target);
  const std::string before = Content(target);
  std::ofstream(folder.Path() / "csv" / "deckseam.csv", std::ios::app) << "Foam,Foam,5,0,0,0.2,0.14,\n";
  EXPECT_THAT(test::RefusalOf([&] { BuildReferenceDatabase(folder.Path() / "csv", target); }),
              HasSubstr("deckseam.csv, line 7, CONSTRUC"));
  EXPECT_EQ(Content(target), before);
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "tankdata.mdb.new"));
}

TEST(ReferenceDatabase, ALeftoverOfABrokenBuildIsReplaced) {
  test::TemporaryFolder folder;
  const auto target = folder.Path() / "data" / "tankdata.mdb";
  std::filesystem::create_directories(target.parent_path());
  std::ofstream(target.string() + ".new") << "half a file";
  BuildReferenceDatabase(kReference, target);
  EXPECT_TRUE(store::Database::Open(target)->IntegrityCheck());
  EXPECT_FALSE(std::filesystem::exists(target.string() + ".new"));
}

TEST(EmptyClientDatabase, HoldsTheSixTablesWithoutRows) {
  test::TemporaryFolder folder;
  BuildEmptyClientDatabase(folder.Path() / "client1.mdb");
  const auto client = store::Database::Open(folder.Path() / "client1.mdb");
  EXPECT_EQ(client->TableNames().size(), 6u);
  for (const store::TableInfo& table : store::ClientTables()) {
    EXPECT_EQ(client->OpenTable(table.name).RecordCount(), 0) << table.name;
  }
}

TEST(SampleDatabase, HoldsTanksOfEveryTypeUnderTheNumbersOfTheirFile) {
  SampleSession samples;
  auto tanks = samples.session.ClientDb->OpenTable("tank");
  EXPECT_GE(tanks.RecordCount(), 20);
  std::map<std::string, int> types;
  for (std::int32_t ID = 1; !tanks.AtEnd(); tanks.MoveNext(), ++ID) {
    EXPECT_EQ(tanks.Long("ID"), ID);
    ++types[tanks.Text("TANK_TYPE")];
  }
  EXPECT_EQ(types.size(), 5u);
}

/// Validates every tank and expects no fault.
void ExpectSound(SampleSession& samples) {
  for (auto tanks = samples.session.ClientDb->OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext()) {
    emission::Validate(samples.session, tanks.Long("ID"));
    EXPECT_FALSE(samples.session.ValidationFailed) << tanks.Text("USER ID");
  }
  for (auto errors = samples.session.ClientDb->OpenTable("error"); !errors.AtEnd(); errors.MoveNext()) {
    ADD_FAILURE() << errors.Text("USER ID") << ": " << errors.Text("error");
  }
}

TEST(SampleDatabase, EveryTankMayBeReportedForTheYear) {
  SampleSession samples;
  samples.session.ReportTime = "Annual";
  ExpectSound(samples);
}

TEST(SampleDatabase, EveryTankMayBeReportedForAMonth) {
  SampleSession samples;
  samples.session.ReportTime = "Monthly";
  samples.session.MonthSelected[6] = true;
  ExpectSound(samples);
}

/// The fittings of a tank, one text a row.
std::vector<std::string> FittingTexts(store::Database& client, std::int32_t ID) {
  std::vector<std::string> texts;
  for (auto rows = client.OpenMatching("fittings", "fitid", {ID}); !rows.AtEnd(); rows.MoveNext()) {
    std::string& text = texts.emplace_back();
    for (int field = 0; field < rows.FieldCount(); ++field) {
      text += rows.Get(field).IsNull() ? "null" : rows.Get(field).AsText();
      text += '|';
    }
  }
  return texts;
}

TEST(SampleDatabase, TypicalFittingsAreThoseThatTheProgramFillsIn) {
  SampleSession samples;
  int typical = 0;
  for (auto tanks = samples.session.ClientDb->OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext()) {
    if (tanks.TextOrEmpty("FITTING") != "Typical") continue;
    ++typical;
    const std::int32_t ID = tanks.Long("ID");
    const auto delivered = FittingTexts(*samples.session.ClientDb, ID);
    if (tanks.Text("TANK_TYPE") == shell::kInternalFloatingRoof) {
      emission::TypicalFitIFRT(samples.session, ID, tanks.Text("DECK_TYPE"), tanks.Bool("SELF_SUP"),
                               tanks.Double("DIAMETER"));
    } else {
      emission::TypicalFitEFRT(samples.session, ID, tanks.Text("RF_TYPE"), tanks.Text("RIM_PRIM"),
                               tanks.Double("DIAMETER"));
    }
    EXPECT_EQ(FittingTexts(*samples.session.ClientDb, ID), delivered) << tanks.Text("USER ID");
  }
  EXPECT_GE(typical, 5);
}

}  // namespace
}  // namespace orvex::databases
