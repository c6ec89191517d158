#pragma once

#include <cstdint>
#include <string_view>

#include "support/test_databases.h"

/// Whole, consistent tanks to start tests from. Each `Add...Tank` adds one tank with one all-year mixture of benzene
/// (number 1), the fittings that its type asks for, and whatever reference rows are not there yet; nothing in them
/// breaks a rule of `Validate`. `changes` replace fields of the tank. All give the tank's `ID`.
namespace orvex::test {

/// The city of the sample tanks: 14 psia, 1400 Btu/(ft2 day), 45 to 65 deg F over the year.
inline constexpr std::string_view kSampleCity = "Sampleton, Ohio";

/// Shell 20 ft by 20 ft, filled to 18 ft, cone roof, 42,000 gal, 10 turnovers.
std::int32_t AddVerticalTank(TestSession& test, FieldValues changes = {});
/// 10 ft by 20 ft, above ground, 10,800 gal, 10 turnovers.
std::int32_t AddHorizontalTank(TestSession& test, FieldValues changes = {});
/// 100 ft, bolted sheet deck, 6 columns, 1,000,000 gal, 12 turnovers.
std::int32_t AddInternalTank(TestSession& test, FieldValues changes = {});
/// 100 ft, welded shell, pontoon roof, 1,000,000 gal, 12 turnovers.
std::int32_t AddExternalTank(TestSession& test, FieldValues changes = {});
/// As the external one, under a fixed dome.
std::int32_t AddDomedTank(TestSession& test, FieldValues changes = {});

/// Adds an all-year mixture without throughput: benzene at 55, 60 and 65 deg F.
void AddMixture(store::Database& client, std::int32_t ID, std::int32_t MixID, FieldValues changes = {});
/// Adds a component with the weights of benzene and no share.
void AddComponent(store::Database& client, std::int32_t ID, std::int32_t MixID, std::int32_t CompID,
                  FieldValues changes = {});
void AddFitting(store::Database& client, std::int32_t ID, std::int32_t FitID, FieldValues changes = {});

/// Adds the city, benzene and toluene, one primary seal with and without a secondary one, and a deck seam, unless they
/// are there.
void AddSampleReference(store::Database& reference);

void ChangeTank(store::Database& client, std::int32_t ID, FieldValues changes);
void ChangeMixture(store::Database& client, std::int32_t ID, std::int32_t MixID, FieldValues changes);
/// Sets the twelve monthly throughputs of a mixture {gal}.
void SetThroughput(store::Database& client, std::int32_t ID, std::int32_t MixID, double gallons_a_month);
/// Sets the twelve month flags of a mixture.
void SetMonths(store::Database& client, std::int32_t ID, std::int32_t MixID, bool stored);

}  // namespace orvex::test
