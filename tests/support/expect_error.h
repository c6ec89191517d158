#pragma once

#include <gtest/gtest.h>

#include "store/run_time_error.h"

/// The statement must fail with the run-time error of this number.
#define EXPECT_RUN_TIME_ERROR(statement, number)                                                  \
  try {                                                                                           \
    (void)(statement);                                                                            \
    ADD_FAILURE() << #statement " should fail with " #number;                                     \
  } catch (const ::orvex::store::RunTimeError& error) {                                           \
    EXPECT_EQ(static_cast<int>(error.Number()), static_cast<int>(number)) << error.Description(); \
  }                                                                                               \
  static_assert(true, "")
