#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "databases/table_rows.h"
#include "store/run_time_error.h"

namespace orvex::test {

/// Cells of a CSV row by field name.
using Cells = std::map<std::string, std::string>;

/// The cells with some of them changed.
Cells With(Cells cells, const Cells& changes);

/// Rows of a table as if read from "made.csv": flags that are not named are 0, other fields empty. The row counter and
/// the user-defined flag of the reference tables are not in the file.
databases::TableRows MakeRows(std::string_view table, const std::vector<Cells>& rows);

/// The description of the error 3421 that the action ends with; a failure of the test if it doesn't.
template <typename Action>
std::string RefusalOf(Action action) {
  try {
    action();
  } catch (const store::RunTimeError& error) {
    EXPECT_EQ(error.Number(), store::ErrorNumber::kDataConversion);
    return error.Description();
  }
  ADD_FAILURE() << "nothing was refused";
  return {};
}

}  // namespace orvex::test
