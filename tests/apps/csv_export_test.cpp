#include "orvex-report/csv_export.h"

#include <gtest/gtest.h>

#include <string>

#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::report_app {
namespace {

std::string Line(const std::string& text, int number) {
  std::size_t start = 0;
  for (; number > 0; --number) start = text.find("\r\n", start) + 2;
  return text.substr(start, text.find("\r\n", start) - start);
}

TEST(EmissionCsv, HoldsAllFieldsOfTheChosenTanksInTheirOrder) {
  test::TestSession test;
  test::AddRow(test.client(), "emission", {{"ID", 1}, {"NAME", "first"}, {"S_LOSS", 0.1}, {"PRIMARY", true}});
  test::AddRow(test.client(), "emission", {{"ID", 2}, {"NAME", "second, \"x\""}});
  test::AddRow(test.client(), "emission", {{"ID", 3}, {"NAME", "third"}});
  test::AddRow(test.client(), "emission", {{"ID", 1}, {"NAME", "fourth"}});
  const auto path = test.folder.Path() / "rows.csv";
  WriteEmissionCsv(test.client(), {{2, "B", ""}, {1, "A", ""}}, path);
  const auto content = test::FileContent(path);
  std::string names;
  for (const auto& field : test.client().Fields("emission")) names += field.name + ",";
  names.pop_back();
  EXPECT_EQ(Line(content, 0), names);
  EXPECT_TRUE(Line(content, 1).starts_with("2,,\"second, \"\"x\"\"\",")) << Line(content, 1);
  EXPECT_TRUE(Line(content, 2).starts_with("1,,first,")) << Line(content, 2);
  EXPECT_NE(Line(content, 2).find(",0.1,"), std::string::npos) << Line(content, 2);
  EXPECT_TRUE(Line(content, 3).starts_with("1,,fourth,")) << Line(content, 3);
  EXPECT_EQ(Line(content, 4), "");
}

TEST(EmissionCsv, NamesAFileThatCannotBeWritten) {
  test::TestSession test;
  EXPECT_RUN_TIME_ERROR(WriteEmissionCsv(test.client(), {}, test.folder.Path() / "missing" / "rows.csv"),
                        store::ErrorNumber::kInvalidPath);
}

}  // namespace
}  // namespace orvex::report_app
