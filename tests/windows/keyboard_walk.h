#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <filesystem>
#include <functional>
#include <string>

#include "store/database.h"
#include "support/test_databases.h"
#include "windows/typist.h"

namespace orvex::test {

/// The whole program over folders of its own, worked by the keyboard alone. The tank that is entered is computed a
/// second time from rows that were written into another client database, without any window.
class KeyboardWalk : public testing::Test {
 protected:
  KeyboardWalk();

  [[nodiscard]] std::filesystem::path ApplicationFolder() const { return folder_.Path() / "application"; }
  [[nodiscard]] std::filesystem::path Client() const { return ApplicationFolder() / "client1.mdb"; }

  /// From the splash to the quick menu, or past it to the menus.
  void ComeToQuickMenu();
  void ComeToMenus();
  /// From the quick menu: a new tank of the type.
  void NewByQuickMenu(const QString& tank_type);
  /// From the main window: a new tank, by the access key of its type.
  void NewByMenus(const QString& type_key);
  /// The identification page of a new tank.
  void Identify(const QString& user_id, const QString& city, const QString& state);
  void ChooseCity(const QString& part, const QString& city);
  /// The liquid page, as far as the speciation option; none for a single chemical.
  void ChooseKind(const QString& category, const QString& option);
  /// Ticks all months and gives each the same part of the throughput, and the first mixture.
  void UseAllMonths(const QString& total);
  /// Chooses a row of the speciation profiles for the mixture shown.
  void CopyProfile(const QString& profile);
  /// From the editor: Run Report, the year's Detail report, and back.
  void RunDetailReport();
  /// Closes the editor with this key as the answer to its question.
  void CloseEditor(const QString& answer);
  /// From the main window.
  void Exit();
  /// Works the program until it ends.
  void Run();

  /// The Detail report that the program left.
  [[nodiscard]] std::string Report() const;
  /// The Detail report of a tank in another client database, which `fill` makes of an empty one, or of the sample.
  [[nodiscard]] std::string ReportOfRows(const std::string& user_id,
                                         const std::function<void(store::Database& client)>& fill) const;
  [[nodiscard]] std::string ReportOfSample(const std::string& user_id,
                                           const std::function<void(store::Database& client)>& change) const;

  TemporaryFolder folder_;
  Typist typist_;

 private:
  [[nodiscard]] static std::string ReportOf(const std::filesystem::path& client, const std::string& user_id);
};

/// Tells the first lines in which two reports differ.
void ExpectSameReport(const std::string& entered, const std::string& computed);

/// The fields of the identification page, as `Identify` fills them in.
void SetIdentity(store::Database& client, const char* user_id, const char* city, const char* state);

/// Adds the components of a speciation profile, by its number, to the first mixture of the first tank.
void AddProfile(store::Database& client, int profile);

/// Adds a mixture of these fields that the tank holds from one month to another, January being 0, with the same
/// throughput {gal} in each.
void AddMixtureOfMonths(store::Database& client, std::size_t first, std::size_t last, double gallons_a_month,
                        FieldValues fields);

}  // namespace orvex::test
