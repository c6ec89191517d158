#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "store/field_table.h"

namespace {

using namespace orvex;

constexpr std::string_view kHead = R"('use strict';

// Made at build time from the field tables of the reference database: what the elements of a reference data report are
// called, in which unit their figures are, and what they hold.
(function (orvex) {
  orvex.referenceFields = {
)";

constexpr std::string_view kFoot = R"(  };
})(window.orvex = window.orvex || {});
)";

// A text as a script writes it.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + "'";
}

// A report names a field's element as the field, without its blanks.
std::string ElementName(std::string_view field) {
  std::string name;
  for (const char character : field)
    if (character != ' ') name += character;
  return name;
}

std::string_view TypeName(store::FieldType type) {
  switch (type) {
    case store::FieldType::kBoolean:
      return "boolean";
    case store::FieldType::kLong:
    case store::FieldType::kDouble:
      return "number";
    case store::FieldType::kText:
      return "text";
    case store::FieldType::kCounter:
      break;
  }
  return "counter";
}

std::string Script() {
  std::string script(kHead);
  auto out = std::back_inserter(script);
  for (const auto& table : store::ReferenceTables()) {
    fmt::format_to(out, "    {}: [\n", Quoted(table.name));
    for (const auto& field : table.fields) {
      fmt::format_to(out, "      {{name: {}, label: {}, unit: {}, type: {}}},\n", Quoted(ElementName(field.name)),
                     Quoted(field.label), Quoted(field.unit), Quoted(TypeName(field.type)));
    }
    script += "    ],\n";
  }
  return script + std::string(kFoot);
}

}  // namespace

/// Makes the display pages' table of reference fields at build time: make-reference-fields FILE.
int main(int argc, char** argv) {
  if (argc != 2) {
    fmt::print(stderr, "usage: make-reference-fields FILE\n");
    return 64;
  }
  try {
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(argv[1], std::ios::binary);
    file << Script();
    file.close();
  } catch (const std::exception& error) {
    fmt::print(stderr, "make-reference-fields: {}: {}\n", argv[1], error.what());
    return 1;
  }
  return 0;
}
