#include "emission/mixture.h"

#include <string>

#include "emission/arithmetic.h"
#include "emission/mixture_components.h"
#include "emission/routine.h"
#include "emission/vapor_pressure.h"

namespace orvex::emission {
namespace {

using shell::Session;
using std::int32_t;
using store::RecordSet;

/// Sum of a term over the components of a mixture.
template <typename Term>
double SumOver(Session& session, int32_t ID, int32_t MixID, Term term) {
  double sum = 0;
  for (auto components = OpenComponents(session, ID, MixID); !components.AtEnd(); components.MoveNext()) {
    sum = Finite(sum + term(components));
  }
  return sum;
}

double Moles(RecordSet& component) { return Divide(WeightShare(component), component.Double("MOLWT")); }

/// Vapor moles per unit of vapor weight percent.
double VaporMoles(RecordSet& component) {
  return Divide(component.DoubleOrZero("VP_FRACT"), component.Double("VP_MOLWT"));
}

double TotalVaporMoles(Session& session, int32_t ID, int32_t MixID) { return SumOver(session, ID, MixID, VaporMoles); }

/// Vapor pressure of the component itself at a temperature {R}.
double PurePressure(Session& session, RecordSet& component, double T) {
  return PVA(session, component.Text("NAME"), T);
}

/// Volume of a weight of a component, by its density in the reference table; a component that is no chemical adds none.
double Volume(RecordSet& chemical, RecordSet& component, double weight) {
  double volume = 0;
  chemical.Seek({component.Get("NAME")});
  shell::Statement([&] { volume = Divide(weight, chemical.Double("L_DENS")); });
  return volume;
}

}  // namespace

double TotalMoles(Session& session, int32_t ID, int32_t MixID) {
  return Routine(session, "modEmission.TotalMoles", [&] { return SumOver(session, ID, MixID, Moles); });
}

double MixLiquidMW(Session& session, int32_t ID, int32_t MixID) {
  return Routine(session, "modEmission.MixLiquidMW", [&] {
    const double total = SumOver(session, ID, MixID, Moles);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double weight = component.IsNull("VP_MOLWT") ? component.Double("MOLWT") : component.Double("VP_MOLWT");
      const double mole_fraction = Divide(Divide(WeightShare(component), weight), total);
      return mole_fraction * weight;
    });
  });
}

double MixturePVA(Session& session, int32_t ID, int32_t MixID, double T) {
  return Routine(session, "modEmission.MixturePVA", [&] {
    const double total_weight = SumOver(session, ID, MixID, WeightShare);
    const double mixture_weight = MixLiquidMW(session, ID, MixID);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double mole_fraction =
          Divide(Divide(WeightShare(component), total_weight) * mixture_weight, component.Double("MOLWT"));
      return PurePressure(session, component, T) * mole_fraction;
    });
  });
}

double MixVaporMW(Session& session, int32_t ID, int32_t MixID, double T) {
  return Routine(session, "modEmission.MixVaporMW", [&] {
    const double mixture_pressure = MixturePVA(session, ID, MixID, T);
    const double total_moles = TotalMoles(session, ID, MixID);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double mole_fraction = Divide(Moles(component), total_moles);
      const double partial_pressure = PurePressure(session, component, T) * mole_fraction;
      return component.Double("VP_MOLWT") * Divide(partial_pressure, mixture_pressure);
    });
  });
}

double MixLiquidDensity(Session& session, int32_t ID, int32_t MixID) {
  return Routine(session, "modEmission.MixLiquidDensity", [&] {
    const double total_weight = SumOver(session, ID, MixID, WeightShare);
    auto chemical = session.ReferenceDb->OpenTable("chemical");
    chemical.SetIndex("chemname");
    const double volume = SumOver(session, ID, MixID, [&](RecordSet& component) {
      return Volume(chemical, component, Divide(WeightShare(component), total_weight));
    });
    return volume == 0 ? 0 : Divide(1, volume);
  });
}

double VapMixPV(Session& session, int32_t ID, int32_t MixID, double T) {
  return Routine(session, "modEmission.VapMixPV", [&] {
    const double total = TotalVaporMoles(session, ID, MixID);
    const double sum = SumOver(session, ID, MixID, [&](RecordSet& component) {
      return Divide(Divide(VaporMoles(component), total), PurePressure(session, component, T));
    });
    return Divide(1, sum);
  });
}

double VapMixPVMinMax(Session& session, int32_t ID, int32_t MixID, double T, double T2) {
  return Routine(session, "modEmission.VapMixPVMinMax", [&] {
    const double total = TotalVaporMoles(session, ID, MixID);
    const double mixture_pressure = VapMixPV(session, ID, MixID, T);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double vapor_fraction = Divide(VaporMoles(component), total);
      const double mole_fraction = Divide(vapor_fraction * mixture_pressure, PurePressure(session, component, T));
      return mole_fraction * PurePressure(session, component, T2);
    });
  });
}

double VapMixVaporMW(Session& session, int32_t ID, int32_t MixID) {
  return Routine(session, "modEmission.VapMixVaporMW", [&] {
    const double total = TotalVaporMoles(session, ID, MixID);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      return component.Double("VP_MOLWT") * Divide(VaporMoles(component), total);
    });
  });
}

double VapMixLiquidMWf(Session& session, int32_t ID, int32_t MixID, double T) {
  return Routine(session, "modEmission.VapMixLiquidMWf", [&] {
    const double total = TotalVaporMoles(session, ID, MixID);
    const double mixture_pressure = VapMixPV(session, ID, MixID, T);
    return SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double vapor_fraction = Divide(VaporMoles(component), total);
      const double mole_fraction = Divide(mixture_pressure * vapor_fraction, PurePressure(session, component, T));
      return mole_fraction * component.Double("MOLWT");
    });
  });
}

double VapMIxLdens(Session& session, int32_t ID, int32_t MixID, double T) {
  return Routine(session, "modEmission.VapMIxLdens", [&] {
    const double total = TotalVaporMoles(session, ID, MixID);
    const double mixture_pressure = VapMixPV(session, ID, MixID, T);
    double vapor_fraction = 0;
    const double liquid_weight = SumOver(session, ID, MixID, [&](RecordSet& component) {
      vapor_fraction = Divide(VaporMoles(component), total);
      const double mole_fraction = Divide(mixture_pressure * vapor_fraction, PurePressure(session, component, T));
      return mole_fraction * component.Double("MOLWT");
    });
    auto chemical = session.ReferenceDb->OpenTable("chemical");
    chemical.SetIndex("chemname");
    // The vapor fraction stays that of the last component here: this is how the density is defined.
    const double volume = SumOver(session, ID, MixID, [&](RecordSet& component) {
      const double mole_fraction = Divide(mixture_pressure * vapor_fraction, PurePressure(session, component, T));
      return Volume(chemical, component, Divide(mole_fraction * component.Double("MOLWT"), liquid_weight));
    });
    return Divide(1, volume);
  });
}

double VaporPercents(Session& session, int32_t ID, int32_t MixID) {
  return SumOver(session, ID, MixID, [](RecordSet& component) { return component.DoubleOrZero("VP_FRACT"); });
}

bool VaporFractionsComplete(Session& session, int32_t ID, int32_t MixID) {
  const double sum = VaporPercents(session, ID, MixID);
  return sum > 99.9 && sum < 100.1;
}

}  // namespace orvex::emission
