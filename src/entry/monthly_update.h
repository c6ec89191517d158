#pragma once

namespace orvex::entry {

/// Whether the months' throughputs {gal} sum to less or more than the net throughput {gal/yr} by more than a tenth of a
/// percent; both bounds are inside.
bool OutOfStep(double months_gal, double throughput_gal);

}  // namespace orvex::entry
