#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "exchange/keyed_table.h"
#include "store/dbase_file.h"

namespace orvex::exchange {

/// Where the four files are.
struct TankPaths {
  std::filesystem::path tanks, mixtures, fittings, components;
};

/// The files that tanks are read from. What belongs to a tank has its `IDX_ID`.
///
/// Errors: those of `store::DbaseTable`, among them 3265 for a file that lacks a field that is going to be read.
struct TankSources {
  /// `tick` is called for each record that is read.
  TankSources(const TankPaths& paths, const std::function<void()>& tick);

  store::DbaseTable tanks;
  KeyedTable mixtures, fittings, components;
};

/// A tank as its record names it.
struct TankName {
  std::string IDX_ID;
  std::string ID;      ///< without the blanks around it
  std::string logged;  ///< as what the person is told of it
  bool complete = false;

  /// Of the current record.
  static TankName Read(const store::DbaseTable& tanks);
};

}  // namespace orvex::exchange
