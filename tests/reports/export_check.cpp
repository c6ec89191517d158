#include "reports/export_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <regex>

#include "reports/layout_check.h"
#include "reports/report_faults.h"
#include "store/field_table.h"

namespace orvex::test {
namespace {

using store::FieldInfo;
using store::FieldType;

/// How a report shows its table.
struct Shape {
  std::string_view word, table, number, index, record, title;
};
constexpr Shape kShapes[] = {
    {"Chemical", "chemical", "Counter", "Counter", "Chemical", "Chemical Report"},
    {"Met", "met", "Counter", "Counter", "Met", "Meteorological Report"},
    {"Fit", "fitting", "Counter", "Counter", "Fit", "Fitting Report"},
    {"Rim", "rimseal", "Counter", "Counter", "Rim", "Rim Seal Report"},
    {"Deck", "deckseam", "Counter", "Counter", "Deck", "Deck Seam Report"},
    {"Profile", "profile names", "SPEC ID", "spec id", "Speciation", "Speciation Profile Report"},
};

const Shape& ShapeOf(std::string_view word) { return *std::ranges::find(kShapes, word, &Shape::word); }

std::string WithoutBlanks(std::string_view name) {
  std::string text(name);
  std::erase(text, ' ');
  return text;
}

/// Walks the children of a node in the order in which they must stand.
class Children {
 public:
  Children(pugi::xml_node parent, Faults& faults) : parent_(parent), next_(parent.first_child()), faults_(faults) {}

  void ExpectText(std::string_view text) {
    faults_.Expect(next_.type() == pugi::node_pcdata && next_.value() == text,
                   fmt::format("{}: \"{}\" instead of the text \"{}\"", parent_.path(), next_.value(), text));
    next_ = next_.next_sibling();
  }
  pugi::xml_node Element(std::string_view name) {
    auto element = next_;
    faults_.Expect(element.type() == pugi::node_element && element.name() == name && !element.first_attribute(),
                   fmt::format("{}: <{}> instead of <{}>", parent_.path(), element.name(), name));
    next_ = next_.next_sibling();
    return element;
  }
  /// The text of the next element, which holds nothing else.
  std::string TextOf(std::string_view name) {
    const auto element = Element(name);
    const auto text = element.first_child();
    faults_.Expect(!text || (text.type() == pugi::node_pcdata && !text.next_sibling()),
                   element.path() + ": more than a text");
    return text.value();
  }
  void ExpectTextOf(std::string_view name, std::string_view text) { faults_.ExpectEqual(name, TextOf(name), text); }
  void ExpectEnd() { faults_.Expect(!next_, parent_.path() + ": more than expected: " + next_.name() + next_.value()); }

 private:
  pugi::xml_node parent_, next_;
  Faults& faults_;
};

void CheckFigure(std::string_view name, const std::string& text, double value, bool whole, Faults& faults) {
  static const std::regex kWhole("-?(0|[1-9][0-9]{0,2}(,[0-9]{3})*)");
  static const std::regex kTwoDecimals("-?(0|[1-9][0-9]{0,2}(,[0-9]{3})*)\\.[0-9]{2}");
  const auto figure = Figure(text);
  const double half_a_digit = (whole ? 0.5 : 0.005) * (1 + 1e-9) + 1e-14 * std::abs(value);
  faults.Expect(figure && std::regex_match(text, whole ? kWhole : kTwoDecimals) &&
                    std::abs(*figure - value) <= half_a_digit && (*figure != 0 || text.front() != '-'),
                fmt::format("{}: \"{}\" for {}", name, text, value));
}

/// @param zero what a Double of 0 is shown as, but in QUANTITY
void CheckField(const FieldInfo& field, const store::Value& value, std::string_view zero, const std::string& text,
                Faults& faults) {
  const bool quantity = field.name == "QUANTITY";
  if (value.IsNull()) {
    faults.ExpectEqual(field.name, text, "");
  } else if (field.type == FieldType::kBoolean) {
    faults.ExpectEqual(field.name, text, value.AsBool() ? "Y" : "N");
  } else if (field.type != FieldType::kDouble) {
    faults.ExpectEqual(field.name, text, value.AsText());
  } else if (value.AsDouble() == 0) {
    faults.ExpectEqual(field.name, text, quantity ? "0" : zero);
  } else {
    CheckFigure(field.name, text, value.AsDouble(), quantity, faults);
  }
}

void CheckRow(Children& children, store::RecordSet& row, std::string_view table, std::string_view zero,
              Faults& faults) {
  for (const auto& field : store::FindTable(table).fields)
    CheckField(field, row.Get(field.name), zero, children.TextOf(WithoutBlanks(field.name)), faults);
}

void CheckProfile(Children& children, store::Database& reference, store::RecordSet& row, Faults& faults) {
  children.ExpectTextOf("ProfileName", row.TextOrEmpty("Profile Name"));
  children.ExpectTextOf("TYPE", row.TextOrEmpty("TYPE"));
  Children components(children.Element("COMPONENTS"), faults);
  constexpr std::string_view kTable = "profile components";
  for (auto part = reference.OpenTable(kTable); !part.AtEnd(); part.MoveNext()) {
    if (part.LongOrZero("SPEC ID") != row.Long("SPEC ID")) continue;
    Children component(components.Element("COMPONENT"), faults);
    CheckRow(component, part, kTable, "0.00", faults);
    component.ExpectEnd();
  }
  components.ExpectEnd();
}

void CheckRecords(Children& records, const Shape& shape, store::Database& reference,
                  const std::vector<std::int32_t>& numbers, Faults& faults) {
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    auto row = reference.OpenAt(shape.table, shape.index, {numbers[i]});
    Children children(records.Element(shape.record), faults);
    children.ExpectText(shape.title);
    if (shape.word == "Profile") {
      CheckProfile(children, reference, row, faults);
    } else {
      CheckRow(children, row, shape.table, "", faults);
    }
    children.ExpectTextOf("REC_NO", fmt::to_string(i + 1));
    children.ExpectEnd();
  }
}

}  // namespace

std::vector<std::int32_t> RowNumbers(store::Database& reference, std::string_view word) {
  const auto& shape = ShapeOf(word);
  std::vector<std::int32_t> numbers;
  for (auto row = reference.OpenTable(shape.table); !row.AtEnd(); row.MoveNext())
    numbers.push_back(row.Long(shape.number));
  return numbers;
}

std::vector<std::string> ExportFaults(const std::filesystem::path& file, std::string_view word,
                                      store::Database& reference, const std::vector<std::int32_t>& numbers) {
  Faults faults;
  pugi::xml_document document;
  const auto parsed = document.load_file(file.c_str(), kWholeFile, pugi::encoding_utf8);
  faults.Expect(parsed.status == pugi::status_ok, parsed.description());
  const auto declaration = document.first_child();
  faults.Expect(declaration.type() == pugi::node_declaration, "the file begins with something else");
  faults.ExpectEqual("version", declaration.first_attribute().value(), "1.0");
  const auto root = declaration.next_sibling();
  faults.ExpectEqual("root", root.name(), "DataExport");
  faults.Expect(!root.next_sibling() && !root.first_attribute(), "something behind the root or in it");

  store::Transaction view(reference, store::Transaction::Purpose::kRead);
  Children records(root, faults);
  records.ExpectTextOf("Type", word);
  records.ExpectText("\\r\\n\\r\\n");
  CheckRecords(records, ShapeOf(word), reference, numbers, faults);
  records.ExpectEnd();
  view.Commit();
  return faults.All();
}

}  // namespace orvex::test
