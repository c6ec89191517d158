#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "reports/reference_report_fixture.h"
#include "store/field_table.h"

namespace orvex::reports {
namespace {

using store::FieldType;
using store::Value;

/// Texts without the quotes that break a clause. Blanks at the ends and slashes would make a seal another one.
const std::vector<std::string>& Texts() {
  static const std::vector<std::string> kTexts = {"",       "a",       "A",       "Öl & <Gas>", "油 \U0001F6E2",
                                                  "x\r\ny", "]]>&lt;", "[b] {c}", "%*?#",       "1,234.50"};
  return kTexts;
}

double RandomNumber() {
  const double digits = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(-999'999, 1'000'000));
  return digits * *rc::gen::element(0.0, 1e-6, 1e-3, 0.005, 1.0, 1e4, 1e9);
}

Value RandomValue(const store::FieldInfo& field) {
  if (*rc::gen::inRange(0, 5) == 0) return {};
  if (field.type == FieldType::kDouble) return RandomNumber();
  if (field.type == FieldType::kBoolean) return *rc::gen::arbitrary<bool>();
  if (field.type == FieldType::kLong) return *rc::gen::inRange<std::int32_t>(1, 6);
  const auto text = *rc::gen::elementOf(Texts());
  return text.size() > static_cast<std::size_t>(field.width) ? Value("a") : Value(text);
}

void AddRandomRows(store::Database& reference, std::string_view table, int count) {
  auto rows = reference.OpenTable(table);
  for (int i = 0; i < count; ++i) {
    rows.AddNew();
    for (const auto& field : store::FindTable(table).fields)
      if (field.type != FieldType::kCounter) rows.Set(field.name, RandomValue(field));
    rows.Update();
  }
}

class RandomTables : public test::ReferenceReportTest {
 public:
  void TestBody() override {
    for (const auto* table : {"chemical", "met", "fitting", "rimseal", "deckseam", "profile names"})
      AddRandomRows(Reference(), table, *rc::gen::inRange(1, 6));
    AddRandomRows(Reference(), "profile components", *rc::gen::inRange(0, 12));
    for (const auto word : test::kWords) {
      auto form = Open(word);
      if (form.lstItems.items.empty()) continue;  // all null
      ClickSelectAll(session_, form);
      Print(form);
      RC_ASSERT(Faults(word, test::RowNumbers(Reference(), word)) == Strings());
    }
    // A choice of names gives every row that bears one of them, letters of either case.
    for (const std::string word : {"Chemical", "Met", "Deck", "Profile"}) CheckPart(word);
  }

 private:
  Strings Faults(std::string_view word, const std::vector<std::int32_t>& numbers) {
    return test::ExportFaults(File(), word, Reference(), numbers);
  }

  void CheckPart(const std::string& word) {
    auto form = Open(word);
    const auto items = form.lstItems.items;
    if (items.empty()) return;
    const auto picked = *rc::gen::elementOf(items);
    Choose(form, {picked});
    if (form.lstSelectItems.items.size() == items.size()) return;
    Print(form);
    RC_ASSERT(Faults(word, Bearers(word, picked)) == Strings());
  }

  std::vector<std::int32_t> Bearers(const std::string& word, const std::string& name) {
    const bool profile = word == "Profile", met = word == "Met";
    const auto* table = profile ? "profile names" : met ? "met" : word == "Deck" ? "deckseam" : "chemical";
    const auto* field = profile ? "Profile Name" : met ? "CTYST" : "NAME";
    const std::set<std::string> same = name == "a" || name == "A" ? std::set<std::string>{"a", "A"} : std::set{name};
    std::vector<std::int32_t> numbers;
    for (auto row = Reference().OpenTable(table); !row.AtEnd(); row.MoveNext())
      if (!row.IsNull(field) && same.contains(row.Text(field)))
        numbers.push_back(row.Long(profile ? "SPEC ID" : "Counter"));
    return numbers;
  }
};

RC_GTEST_PROP(XmlExportProperties, ShowsEveryValueOfRandomTables, ()) { RandomTables().TestBody(); }

}  // namespace
}  // namespace orvex::reports
