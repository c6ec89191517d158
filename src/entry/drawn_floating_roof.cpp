#include "entry/drawn_floating_roof.h"

#include "entry/drawing_parts.h"

namespace orvex::entry {
namespace {

constexpr double kRimSpace = 6;    // between roof and shell
constexpr double kDeckHeight = 7;  // of an internal floating roof
constexpr double kPontoon = 15;    // height of pontoons and double decks
constexpr double kAbove = 4;       // how far a secondary seal rises

constexpr Paint kOutlined = {.fill = kDeckColor, .stroke = kInk, .width = 1};
constexpr Paint kThin = {.fill = "", .stroke = kInk, .width = 0.8};

bool IsInternal(const FrmTank& form) { return PhysicalSection(form) == Section::kInternal; }

bool HasSecondarySeal(const FrmTank& form) {
  const auto secondary = StoredPhysical(form, "RIM_SEC");
  return !secondary.empty() && secondary != "None";
}

Box Afloat(const Box& shell, double level, double height) {
  const auto inside = Inside(shell);
  return {inside.left + kRimSpace, level - height, inside.right - kRimSpace, level};
}

/// Legs that stand on the floor when the tank is empty.
void DrawLegs(Svg& svg, const Box& roof) {
  constexpr double kLength = 12;
  for (const double part : {0.2, 0.5, 0.8}) {
    const double x = roof.left + part * roof.Width() + 8;
    svg.Line({x, roof.bottom}, {x, roof.bottom + kLength}, {.fill = "", .stroke = kInk, .width = 1.4});
  }
}

void DrawBoltedSeams(Svg& svg, const Box& deck) {
  constexpr int kSeams = 9;
  for (int i = 1; i <= kSeams; ++i) {
    const double x = deck.left + deck.Width() * i / (kSeams + 1);
    svg.Line({x, deck.top}, {x, deck.bottom}, kThin);
    svg.Rectangle({x - 1.5, deck.top - 3, x + 1.5, deck.top}, {.fill = kInk, .stroke = ""}, "bolt");
  }
}

/// Boxes at the rim and a single deck between them.
void DrawPontoons(Svg& svg, const Box& roof) {
  const double width = roof.Width() * 0.17;
  svg.Rectangle({roof.left + width, roof.bottom - 4, roof.right - width, roof.bottom}, kOutlined, "single-deck");
  svg.Rectangle({roof.left, roof.top, roof.left + width, roof.bottom}, kOutlined, "pontoon");
  svg.Rectangle({roof.right - width, roof.top, roof.right, roof.bottom}, kOutlined, "pontoon");
}

/// Two decks with walls between them.
void DrawDoubleDeck(Svg& svg, const Box& roof) {
  constexpr int kWalls = 6;
  svg.Rectangle(roof, kOutlined, "double-deck");
  for (int i = 1; i <= kWalls; ++i) {
    const double x = roof.left + roof.Width() * i / (kWalls + 1);
    svg.Line({x, roof.top}, {x, roof.bottom}, kThin);
  }
}

/// How an internal floating roof's deck is made.
std::string DeckKind(const FrmTank& form) {
  const auto type = StoredPhysical(form, "DECK_TYPE"), construction = StoredPhysical(form, "DECK_CONSTRUCT");
  if (type == "Welded") return "welded";
  if (type != "Bolted") return {};
  return construction == "Sheet" ? "bolted, sheet" : construction == "Panel" ? "bolted, panel" : "bolted";
}

}  // namespace

void DrawFloatingRoof(Svg& svg, const Box& shell, double level, const FrmTank& form) {
  const auto roof = Afloat(shell, level, IsInternal(form) ? kDeckHeight : kPontoon);
  DrawLegs(svg, roof);
  if (IsInternal(form)) {
    svg.Rectangle(roof, kOutlined, "deck");
    if (StoredPhysical(form, "DECK_TYPE") == "Bolted") DrawBoltedSeams(svg, roof);
  } else if (StoredPhysical(form, "RF_TYPE") == "Double Deck") {
    DrawDoubleDeck(svg, roof);
  } else {
    DrawPontoons(svg, roof);
  }
}

void DrawSeals(Svg& svg, const Box& shell, double level, const FrmTank& form) {
  const auto roof = Afloat(shell, level, IsInternal(form) ? kDeckHeight : kPontoon);
  const auto inside = Inside(shell);
  svg.Rectangle({inside.left, roof.top, roof.left, roof.bottom}, {.fill = kSealColor, .stroke = ""}, "primary-seal");
  svg.Rectangle({roof.right, roof.top, inside.right, roof.bottom}, {.fill = kSealColor, .stroke = ""}, "primary-seal");
  if (!HasSecondarySeal(form)) return;
  const Paint blade = {.fill = "", .stroke = kHeatColor, .width = 2.2};
  svg.Line({roof.left, roof.top - 1}, {inside.left, roof.top - kAbove - 5}, blade, "secondary-seal");
  svg.Line({roof.right, roof.top - 1}, {inside.right, roof.top - kAbove - 5}, blade, "secondary-seal");
}

void ListFloatingRoof(DrawingLegend& legend, const FrmTank& form) {
  if (IsInternal(form)) {
    legend.Part(kDeckColor, "deck", DeckKind(form));
  } else {
    const auto roof = StoredPhysical(form, "RF_TYPE");
    legend.Part(kDeckColor, "roof", roof == "Double Deck" ? "double deck" : roof == "Pontoon" ? "pontoon" : "");
  }
  legend.Part(kSealColor, "primary seal", StoredPhysical(form, "RIM_PRIM"));
  if (HasSecondarySeal(form)) legend.Part(kHeatColor, "secondary seal", StoredPhysical(form, "RIM_SEC"));
}

}  // namespace orvex::entry
