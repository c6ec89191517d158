#pragma once

#include <optional>
#include <string>
#include <vector>

#include "refdata/record_editor.h"

/// What the chemical editor shows of the vapor pressure that its options give.
namespace orvex::refdata {

inline constexpr double kFirstFahrenheit = 40, kLastFahrenheit = 100;  ///< of the plot, degree by degree

struct VaporPressureCurve {
  int option;                               ///< number of its heading
  std::vector<std::optional<double>> psia;  ///< from `kFirstFahrenheit`; nothing where the option gives none
};

/// One for each option that the record fills completely, as a calculation computes it.
std::vector<VaporPressureCurve> VaporPressureCurves(const RecordEditor& form);

/// The curves as an SVG text. Temperatures at which two of them differ by more than 5 percent of the greater are
/// shaded.
std::string VaporPressurePlot(const RecordEditor& form);

/// The same in words: which options differ and where, which give no vapor pressure and where, and
/// whether a calculation has one of them to go by.
std::string VaporPressureSummary(const RecordEditor& form);

}  // namespace orvex::refdata
