#include <gtest/gtest.h>

#include <filesystem>

#include "fuzz/fuzz.h"
#include "support/file_content.h"

namespace orvex::fuzz {
namespace {

/// Reads all files of a folder of the corpus, and what is left of them when they are cut off; their number.
int Replay(const char* folder, void (*read)(std::string_view bytes)) {
  constexpr std::size_t kCuts = 16;
  int files = 0;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(ORVEX_FUZZ_CORPUS) / folder)) {
    const std::string bytes = test::FileContent(file.path());
    read(bytes);
    for (std::size_t cut = 0; cut < kCuts; ++cut) read(std::string_view(bytes).substr(0, bytes.size() * cut / kCuts));
    ++files;
  }
  return files;
}

// A reader that breaks a promise ends the process.

TEST(FuzzCorpus, DbaseFilesAreReadOrRefused) { EXPECT_GE(Replay("dbase", FuzzDbase), 3); }

TEST(FuzzCorpus, CsvFilesAreReadOrRefused) { EXPECT_GE(Replay("csv", FuzzCsv), 3); }

TEST(FuzzCorpus, DatabasesAreReadOrRefused) { EXPECT_GE(Replay("database", FuzzDatabase), 1); }

TEST(FuzzCorpus, WorkbooksTakeASheetOrAreRefused) { EXPECT_GE(Replay("workbook", FuzzWorkbook), 2); }

}  // namespace
}  // namespace orvex::fuzz
