#include "shell/status.h"

#include <gtest/gtest.h>

#include "support/scripted_host.h"

namespace orvex::shell {
namespace {

using Texts = std::vector<std::string>;
using Pointers = std::vector<Pointer>;

TEST(Status, SaysReadyWhenThereIsNothingToSay) {
  test::ScriptedHost host;
  SetStatus(host, "", true);
  SetStatus(host, "Saved", false);
  SetStatus(host, "Saving", true);
  EXPECT_EQ(host.status, (Texts{"Ready", "Saved", "Saving, please wait..."}));
}

TEST(Status, CommandIsBusyFromItsStartToItsEnd) {
  test::ScriptedHost host;
  Session session(host);
  {
    const BusyScope busy(session, "Processing");
    EXPECT_EQ(host.status, Texts{"Processing, please wait..."});
    EXPECT_EQ(host.pointers, Pointers{Pointer::kBusy});
  }
  EXPECT_EQ(host.status.back(), "Ready");
  EXPECT_EQ(host.pointers.back(), Pointer::kDefault);
}

TEST(Status, CommandInsideAnotherOneLeavesItBusy) {
  test::ScriptedHost host;
  Session session(host);
  {
    const BusyScope outer(session, "Processing");
    { const BusyScope inner(session, "Saving"); }
    EXPECT_EQ(host.status.back(), "Processing, please wait...");
    EXPECT_EQ(host.pointers.back(), Pointer::kBusy);
  }
  EXPECT_EQ(host.status.back(), "Ready");
  EXPECT_EQ(host.pointers.back(), Pointer::kDefault);
  { const BusyScope next(session, "Finding data"); }
  EXPECT_EQ(host.pointers.back(), Pointer::kDefault);
}

TEST(Status, CommandThatFailsIsNoLongerBusy) {
  test::ScriptedHost host;
  Session session(host);
  try {
    const BusyScope busy(session, "Processing");
    throw Interrupted();
  } catch (const Interrupted&) {
    EXPECT_EQ(host.pointers.back(), Pointer::kDefault);
    EXPECT_EQ(host.status.back(), "Ready");
  }
}

}  // namespace
}  // namespace orvex::shell
