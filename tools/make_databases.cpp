#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <cstdio>

#include "databases/build.h"

/// Makes the delivered database files at build time. Exit 1, with the reason on the error stream, if one can't be made.
int main(int argc, char** argv) {
  using namespace orvex::databases;
  std::string target;
  std::string csv_folder;
  std::string reference_folder;

  CLI::App app("Makes the database files that the system is delivered with.", "make-databases");
  app.require_subcommand(1);
  auto* reference = app.add_subcommand("reference", "the reference database from CSV files");
  reference->add_option("--from", csv_folder, "folder of the CSV files")->required();
  auto* client = app.add_subcommand("client", "an empty client database");
  auto* samples = app.add_subcommand("samples", "a client database with the sample tanks");
  samples->add_option("--from", csv_folder, "folder of the tanks' CSV files")->required();
  samples->add_option("--reference", reference_folder, "folder of the reference CSV files")->required();
  for (auto* command : {reference, client, samples}) command->add_option("target", target, "file to make")->required();
  CLI11_PARSE(app, argc, argv);

  try {
    if (*reference) BuildReferenceDatabase(csv_folder, target);
    if (*client) BuildEmptyClientDatabase(target);
    if (*samples) BuildSampleDatabase(csv_folder, reference_folder, target);
  } catch (const std::exception& error) {
    fmt::print(stderr, "make-databases: {}\n", error.what());
    return 1;
  }
  return 0;
}
