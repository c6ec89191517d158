#include <fmt/format.h>
#include <gtest/gtest.h>

#include <random>

#include "exchange/inventory_folder.h"
#include "support/expect_error.h"

/// What is wrong with a folder of CSV files, and how it is told.
namespace orvex::exchange {
namespace {

class InventoryFaults : public test::InventoryFolder {
 protected:
  /// The refusal of a tank with a cell in one more column.
  std::string RefusalOfTankCell(const std::string& column, const std::string& cell) {
    Write("tanks.csv", "USER ID,TANK_TYPE," + column + "\nT-1,Horizontal Tank," + cell + "\n");
    return Refusal();
  }
  std::string RefusalOfMixtures(std::string_view content) {
    Write("mixtures.csv", content);
    return Refusal();
  }
  std::string RefusalOfComponents(std::string_view content) {
    Write("components.csv", content);
    return Refusal();
  }
};

// Cells ---------------------------------------------------------------------------------------------------------------

TEST_F(InventoryFaults, ATextInANumberIsRefused) {
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", "ten"), "tanks.csv, line 2, DIAMETER: 'ten' is not a number.");
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", "1e999"), "tanks.csv, line 2, DIAMETER: '1e999' is not a number.");
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", "nan"), "tanks.csv, line 2, DIAMETER: 'nan' is not a number.");
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", "\"\""), "tanks.csv, line 2, DIAMETER: '' is not a number.");
}

TEST_F(InventoryFaults, ACommaInANumberIsTold) {
  for (const auto* number : {"12,5", "1,000"})
    EXPECT_EQ(RefusalOfTankCell("VOLUME", fmt::format("\"{}\"", number)),
              fmt::format("tanks.csv, line 2, VOLUME: '{}' is not a number: decimals stand behind a point, and nothing "
                          "parts thousands.",
                          number));
}

TEST_F(InventoryFaults, ASwitchIsYesOrNo) {
  EXPECT_EQ(RefusalOfTankCell("HEATED", "maybe"), "tanks.csv, line 2, HEATED: 'maybe' is neither Yes nor No.");
  EXPECT_EQ(RefusalOfTankCell("UNDER", "2"), "tanks.csv, line 2, UNDER: '2' is neither Yes nor No.");
}

TEST_F(InventoryFaults, ATextWiderThanItsFieldIsRefused) {
  // 256 umlauts have 512 bytes; characters are what counts.
  std::string wide;
  for (int i = 0; i < 255; ++i) wide += "\u00C4";
  EXPECT_EQ(RefusalOfTankCell("DESC", wide), "");
  test_.client().DeleteMatching("tank", "ID", {1});
  EXPECT_EQ(RefusalOfTankCell("DESC", wide + "\u00C4"),
            "tanks.csv, line 2, DESC: the text has 256 characters, the field holds 255.");
}

TEST_F(InventoryFaults, AWordThatIsInNoListIsRefused) {
  EXPECT_EQ(RefusalOfTankCell("SHL COLSHD", "Pink"),
            "tanks.csv, line 2, SHL COLSHD: 'Pink' is none of: White/White, Aluminum/Specular, Aluminum/Diffuse, "
            "Gray/Light, Gray/Medium, Red/Primer.");
  EXPECT_EQ(RefusalOfTankCell("PT_COND", "Fair"), "tanks.csv, line 2, PT_COND: 'Fair' is none of: Good, Poor.");
  EXPECT_EQ(RefusalOfTankCell("SHL_COND", "Rust"),
            "tanks.csv, line 2, SHL_COND: 'Rust' is none of: Light Rust, Dense Rust, Gunite Lining.");
  EXPECT_EQ(RefusalOfTankCell("RF_TYPE", "Flat"),
            "tanks.csv, line 2, RF_TYPE: 'Flat' is none of: Cone, Dome, Pontoon, Double Deck.");
  EXPECT_EQ(RefusalOfTankCell("FITTING", "Some"), "tanks.csv, line 2, FITTING: 'Some' is none of: Typical, Detail.");
  EXPECT_EQ(RefusalOfTankCell("DECK_TYPE", "Glued"),
            "tanks.csv, line 2, DECK_TYPE: 'Glued' is none of: Bolted, Welded.");
  EXPECT_EQ(RefusalOfTankCell("DECK_CONSTRUCT", "Foil"),
            "tanks.csv, line 2, DECK_CONSTRUCT: 'Foil' is none of: Sheet, Panel.");
  EXPECT_EQ(RefusalOfTankCell("TANK_CONSTRUCT", "Cast"),
            "tanks.csv, line 2, TANK_CONSTRUCT: 'Cast' is none of: Welded, Riveted.");
  Write("tanks.csv", "USER ID,TANK_TYPE\nT-1,Barrel\n");
  EXPECT_EQ(Refusal(),
            "tanks.csv, line 2, TANK_TYPE: 'Barrel' is none of: Vertical Fixed Roof Tank, Horizontal Tank, Internal "
            "Floating Roof Tank, External Floating Roof Tank, Domed External Floating Roof Tank.\r\n"
            "tanks.csv, line 2, TANK_TYPE: a tank needs its type.");
}

TEST_F(InventoryFaults, TheWordsOfMixturesAreCheckedToo) {
  EXPECT_EQ(RefusalOfMixtures("USER ID,C_CATEGORY,COMPONENT,SPEC_OPT\nT-1,Water,Triple,Some\n"),
            "mixtures.csv, line 2, C_CATEGORY: 'Water' is none of: Organic Liquids, Petroleum Distillates, Crude "
            "Oils.\r\n"
            "mixtures.csv, line 2, COMPONENT: 'Triple' is none of: Single, Multiple.\r\n"
            "mixtures.csv, line 2, SPEC_OPT: 'Some' is none of: Full Speciation, Partial Speciation, Vapor Weight "
            "Speciation, None.");
}

TEST_F(InventoryFaults, NumbersOfRowsAreWholeAndFromOneOn) {
  for (const auto* number : {"0", "-1", "1.5", "1000000001", "one"})
    EXPECT_EQ(RefusalOfTankCell("ID", number),
              fmt::format("tanks.csv, line 2, ID: '{}' is not a whole number from 1 to 1000000000.", number));
}

TEST_F(InventoryFaults, ALongOrBrokenTextIsShownInShort) {
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", std::string(100, 'x')),
            "tanks.csv, line 2, DIAMETER: '" + std::string(60, 'x') + "...' is not a number.");
  EXPECT_EQ(RefusalOfTankCell("DIAMETER", "\"a\r\nb\""), "tanks.csv, line 2, DIAMETER: 'a  b' is not a number.");
}

// Columns and files ---------------------------------------------------------------------------------------------------

TEST_F(InventoryFaults, AnUnknownColumnIsToldWithTheNearestName) {
  EXPECT_EQ(RefusalOfTankCell("HIEGHT S", "1"),
            "tanks.csv, line 1: there is no field 'HIEGHT S'. Did you mean 'HEIGHT S'?");
  EXPECT_EQ(RefusalOfTankCell("Shl_Colshd", "1"),
            "tanks.csv, line 1: there is no field 'Shl_Colshd'. Did you mean 'SHL COLSHD'?");
  EXPECT_EQ(RefusalOfTankCell("Diam", "1"), "tanks.csv, line 1: there is no field 'Diam'. Did you mean 'DIAMETER'?");
  Write("tanks.csv", "USER ID,TANK_TYPE\nT-1,Horizontal Tank\n");
  EXPECT_EQ(RefusalOfMixtures("USER ID,NAME\nT-1,Benzene\n"),
            "mixtures.csv, line 1: there is no field 'NAME'. Did you mean 'MIX NAME'?");
}

TEST_F(InventoryFaults, AMissingColumnIsNamed) {
  Write("tanks.csv", "CITY\nRome\n");
  EXPECT_EQ(Refusal(),
            "tanks.csv, line 1: the column 'USER ID' is missing.\r\n"
            "tanks.csv, line 1: the column 'TANK_TYPE' is missing.");
  Write("tanks.csv", "USER ID,TANK_TYPE\nT-1,Horizontal Tank\n");
  EXPECT_EQ(RefusalOfMixtures("MIX ID,MIX NAME\n1,Benzene\n"),
            "mixtures.csv, line 1: the column 'USER ID' is missing.");
}

TEST_F(InventoryFaults, AFileOfSemicolonsIsTold) {
  Write("tanks.csv", "USER ID;TANK_TYPE;DIAMETER\nT-1;Horizontal Tank;12,5\n");
  EXPECT_EQ(
      Refusal(),
      "tanks.csv, line 1: the columns are parted by semicolons. Save the file with commas between the columns and "
      "points in the numbers.");
  Write("tanks.csv", "\xEF\xBB\xBF\"USER ID\";\"TANK_TYPE\"\r\n");
  EXPECT_TRUE(Refusal().starts_with("tanks.csv, line 1: the columns are parted by semicolons.")) << Refusal();
  Write("tanks.csv", "USER ID\tTANK_TYPE\r\n");
  EXPECT_TRUE(Refusal().starts_with("tanks.csv, line 1: the columns are parted by tabs.")) << Refusal();
}

TEST_F(InventoryFaults, AFileInAnotherCodePageIsTold) {
  Write("tanks.csv", "USER ID,TANK_TYPE\n\xC4,Horizontal Tank\n");
  EXPECT_EQ(Refusal(), "tanks.csv, line 2, character 1: the text is not UTF-8.");
}

TEST_F(InventoryFaults, AMissingFileIsNamed) {
  std::filesystem::remove(Folder() / "fittings.csv");
  try {
    Import();
    FAIL();
  } catch (const store::RunTimeError& error) {
    EXPECT_EQ(error.Number(), store::ErrorNumber::kFileNotFound);
    EXPECT_EQ(error.Description(), "The file '" + (Folder() / "fittings.csv").string() + "' is not there.");
  }
}

TEST_F(InventoryFaults, WhatIsNoFileOrFarTooLargeIsNotRead) {
  std::filesystem::remove(Folder() / "tanks.csv");
  std::filesystem::create_directory(Folder() / "tanks.csv");
  EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kDiskFailure);
  std::filesystem::remove(Folder() / "tanks.csv");
  Write("tanks.csv", "USER ID,TANK_TYPE\n");
  std::filesystem::resize_file(Folder() / "tanks.csv", 257U << 20U);
  EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kDiskFailure);
}

// Rows and what they belong to ----------------------------------------------------------------------------------------

TEST_F(InventoryFaults, ATankNeedsAnIdentificationAndAType) {
  Write("tanks.csv", "USER ID,TANK_TYPE\nT-1,Horizontal Tank\n,Horizontal Tank\n\"\",Horizontal Tank\nT-4,\n");
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX NAME\nT-1,a\nT-4,b\n"),
            "tanks.csv, line 3, USER ID: a tank needs its identification.\r\n"
            "tanks.csv, line 3: the tank has no mixture in mixtures.csv.\r\n"
            "tanks.csv, line 4, USER ID: a tank needs its identification.\r\n"
            "tanks.csv, line 4: the tank has no mixture in mixtures.csv.\r\n"
            "tanks.csv, line 5, TANK_TYPE: a tank needs its type.");
}

TEST_F(InventoryFaults, TwoTanksCannotShareAnIdentificationOrANumber) {
  Write("tanks.csv", "USER ID,ID,TANK_TYPE\nT-1,5,Horizontal Tank\nt-1,6,Horizontal Tank\nT-2,5,Horizontal Tank\n");
  EXPECT_EQ(RefusalOfMixtures("ID\n5\n6\n"),
            "tanks.csv, line 3, USER ID: 't-1' is the tank of line 2, too.\r\n"
            "tanks.csv, line 4, ID: 5 is the tank of line 2, too.\r\n"
            "tanks.csv, line 4: the tank has no mixture in mixtures.csv.");
}

TEST_F(InventoryFaults, ATankThatTheDatabaseHoldsIsRefusedWhateverTheCase) {
  test::AddHorizontalTank(test_, {{"USER ID", "t-1"}});
  EXPECT_EQ(Refusal(), "tanks.csv, line 2, USER ID: the client database holds a tank 'T-1' already.");
}

TEST_F(InventoryFaults, EveryRowBelongsToATankOfTheFiles) {
  EXPECT_EQ(RefusalOfMixtures("USER ID,ID,MIX NAME\nT-1,,a\nT-9,,b\n,,c\n,7,d\nT-1,3,e\n"),
            "mixtures.csv, line 3, USER ID: there is no tank 'T-9' in tanks.csv.\r\n"
            "mixtures.csv, line 4, USER ID: the row names no tank.\r\n"
            "mixtures.csv, line 5, ID: no tank of tanks.csv has the number 7.\r\n"
            "mixtures.csv, line 6, ID: 3 is not the number of the tank 'T-1'. Mend it or leave it empty.");
}

TEST_F(InventoryFaults, ARowOfATankThatOnlyTheDatabaseHoldsIsRefused) {
  test::AddHorizontalTank(test_, {{"USER ID", "old"}});
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX NAME\nT-1,a\nold,b\n"),
            "mixtures.csv, line 3, USER ID: there is no tank 'old' in tanks.csv.");
}

TEST_F(InventoryFaults, ATankNeedsAMixture) {
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX NAME\n"), "tanks.csv, line 2: the tank has no mixture in mixtures.csv.");
}

TEST_F(InventoryFaults, TwoMixturesOfATankCannotShareANumber) {
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX ID,MIX NAME\nT-1,2,a\nT-1,2,b\n"),
            "mixtures.csv, line 3, MIX ID: 2 is the number of line 2, too.");
}

TEST_F(InventoryFaults, AComponentBelongsToAMixtureOfTheFiles) {
  Write("mixtures.csv", "USER ID,MIX NAME,COMPONENT\nT-1,a,Multiple\nT-1,b,Multiple\n");
  EXPECT_EQ(RefusalOfComponents("USER ID,MIX ID,NAME\nT-1,2,Benzene\nT-1,3,Benzene\nT-1,,Benzene\n"),
            "components.csv, line 3, MIX ID: the tank 'T-1' has no mixture 3 in mixtures.csv.\r\n"
            "components.csv, line 4, MIX ID: the tank 'T-1' has 2 mixtures: tell which one.");
}

TEST_F(InventoryFaults, OnlyAComponentWithAllItsNumbersMayBeOfAMixtureThatIsNotThere) {
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n5,T-1,Horizontal Tank\n");
  EXPECT_EQ(RefusalOfComponents("ID,USER ID,MIX ID,COMP ID\n5,T-1,3,1\n5,T-1,3,\n,T-1,3,2\n"),
            "components.csv, line 3, MIX ID: the tank 'T-1' has no mixture 3 in mixtures.csv.\r\n"
            "components.csv, line 4, MIX ID: the tank 'T-1' has no mixture 3 in mixtures.csv.");
  // Two of one number are as wrong as in a mixture that is there.
  EXPECT_EQ(RefusalOfComponents("ID,USER ID,MIX ID,COMP ID\n5,T-1,3,1\n5,T-1,3,1\n"),
            "components.csv, line 3, COMP ID: 1 is the number of line 2, too.");
}

TEST_F(InventoryFaults, TwoComponentsOfAMixtureCannotShareANumber) {
  Write("mixtures.csv", "USER ID,MIX NAME,COMPONENT\nT-1,a,Multiple\nT-1,b,Multiple\n");
  EXPECT_EQ(RefusalOfComponents("USER ID,MIX ID,COMP ID\nT-1,1,1\nT-1,2,1\nT-1,1,1\n"),
            "components.csv, line 4, COMP ID: 1 is the number of line 2, too.");
}

TEST_F(InventoryFaults, TwoFittingsOfATankCannotShareANumber) {
  Write("fittings.csv", "USER ID,FIT ID\nT-1,4\nT-1,4\n");
  EXPECT_EQ(Refusal(), "fittings.csv, line 3, FIT ID: 4 is the number of line 2, too.");
}

// The reference database ----------------------------------------------------------------------------------------------

TEST_F(InventoryFaults, ACityMustBeKnown) {
  EXPECT_EQ(
      RefusalOfTankCell("MET CTYST", "\"Sampleton,Ohio\""),
      "tanks.csv, line 2, MET CTYST: the city 'Sampleton,Ohio' is not in the reference database. It is written as "
      "there: City, State.");
  EXPECT_EQ(RefusalOfTankCell("MET CTYST", "\"SAMPLETON, OHIO\""), "");
}

TEST_F(InventoryFaults, ARimSealOfAFloatingRoofMustBeKnown) {
  const auto refusal_of = [&](const char* type, const char* seals) {
    Write("tanks.csv", fmt::format("USER ID,TANK_TYPE,RIM_PRIM,RIM_SEC\nT-1,{},{}\n", type, seals));
    return Refusal();
  };
  for (const auto* type :
       {"Internal Floating Roof Tank", "External Floating Roof Tank", "Domed External Floating Roof Tank"})
    EXPECT_EQ(refusal_of(type, "Mechanical Shoe,Rope"),
              "tanks.csv, line 2, RIM_PRIM: the rim seal 'Mechanical Shoe' with 'Rope' is not in the reference "
              "database.");
  EXPECT_EQ(refusal_of("Internal Floating Roof Tank", "Rope,"), "");
}

TEST_F(InventoryFaults, ASingleChemicalMustBeKnownAndAMixtureNeedNot) {
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX NAME,COMPONENT\nT-1,Unobtainium,Single\n"),
            "mixtures.csv, line 2, MIX NAME: the chemical 'Unobtainium' is not in the reference database.");
  EXPECT_EQ(RefusalOfMixtures("USER ID,MIX NAME,COMPONENT\nT-1,Unobtainium,Multiple\n"), "");
}

TEST_F(InventoryFaults, AComponentMustBeAKnownChemical) {
  EXPECT_EQ(RefusalOfComponents("USER ID,NAME\nT-1,benzene\nT-1,Unobtainium\n"),
            "components.csv, line 3, NAME: the chemical 'Unobtainium' is not in the reference database.");
}

TEST_F(InventoryFaults, AFittingMustBeKnownWithItsStatus) {
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Hatch"}, {"COVR_TYPE", "Bolted"}});
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Drain"}});
  Write("fittings.csv", "USER ID,FIT_TYPE,COVR_TYPE\nT-1,hatch,bolted\nT-1,Hatch,\nT-1,Drain,\nT-1,Drain,Open\n");
  EXPECT_EQ(Refusal(),
            "fittings.csv, line 3, FIT_TYPE: the fitting 'Hatch' without a status is not in the reference database.\r\n"
            "fittings.csv, line 5, FIT_TYPE: the fitting 'Drain' with 'Open' is not in the reference database.");
}

// Many faults ---------------------------------------------------------------------------------------------------------

TEST_F(InventoryFaults, OfAllFilesAreToldAtOnceInTheirOrder) {
  Write("tanks.csv", "USER ID,TANK_TYPE,DIAMETER,HEATED\nT-1,Horizontal Tank,x,y\n");
  Write("mixtures.csv", "USER ID,MIX NAME,COMPONENT,VP\nT-1,Unobtainium,Single,z\n");
  Write("components.csv", "USER ID;NAME\n");
  Write("fittings.csv", "USER ID,FIT_TYPE,QUANTITY\nT-1,Lid,many\n");
  EXPECT_EQ(Refusal(),
            "tanks.csv, line 2, DIAMETER: 'x' is not a number.\r\n"
            "tanks.csv, line 2, HEATED: 'y' is neither Yes nor No.\r\n"
            "mixtures.csv, line 2, VP: 'z' is not a number.\r\n"
            "mixtures.csv, line 2, MIX NAME: the chemical 'Unobtainium' is not in the reference database.\r\n"
            "components.csv, line 1: the columns are parted by semicolons. Save the file with commas between the "
            "columns and points in the numbers.\r\n"
            "fittings.csv, line 2, QUANTITY: 'many' is not a number.\r\n"
            "fittings.csv, line 2, FIT_TYPE: the fitting 'Lid' without a status is not in the reference database.");
}

TEST_F(InventoryFaults, BeyondAThousandAreCountedOnly) {
  std::string tanks = "USER ID,TANK_TYPE,DIAMETER\n";
  for (int i = 0; i < 1500; ++i) tanks += fmt::format("T-{},Horizontal Tank,x\n", i);
  Write("tanks.csv", tanks);
  const auto refusal = RefusalOfMixtures("USER ID;MIX NAME\n");
  EXPECT_TRUE(refusal.ends_with("\r\ntanks.csv, line 1001, DIAMETER: 'x' is not a number.\r\nand 501 more faults."))
      << refusal.substr(refusal.size() - 200);
}

TEST_F(InventoryFaults, AnyDamagedFileIsToldOrReadAndNeverHalfImported) {
  test::AddInternalTank(test_, {{"DESC", "Two\r\nlines, \"quoted\""}});
  test::AddFittingsInUse(test_);
  ExportInventory(test_.client(), Folder());
  const auto clear = [&] {
    for (const auto table : test::kInventoryTables) test_.client().Execute(fmt::format("DELETE * FROM {}", table));
  };
  clear();
  const std::string good = Content("tanks.csv");
  std::mt19937 random(7);
  int refused = 0;
  for (int i = 0; i < 400; ++i) {
    std::string bad = good;
    for (auto count = 1 + random() % 4; count > 0; --count)
      bad[random() % bad.size()] =
          "\"\r\n,;\0\xFF\x80"
          "a1 "[random() % 11];
    if (i % 4 == 0) bad.resize(random() % bad.size());
    Write("tanks.csv", bad);
    try {
      EXPECT_EQ(Import().tanks, 1);
      clear();
    } catch (const store::RunTimeError& error) {
      ++refused;
      EXPECT_EQ(error.Number(), store::ErrorNumber::kDataConversion) << error.Description();
      EXPECT_TRUE(error.Description().find(".csv, line ") != std::string::npos) << error.Description();
      EXPECT_TRUE(test_.client().OpenTable("tank").AtEnd());
    }
  }
  EXPECT_GT(refused, 100);
  EXPECT_LT(refused, 400);
}

}  // namespace
}  // namespace orvex::exchange
