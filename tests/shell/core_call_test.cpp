// The guard every slot passes through on its way into the core.
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/Platform.h"
#include "shell/gui/CoreCall.h"

namespace zeph::gui {
namespace {

TEST(CoreCall, WorkRunsAQuitIsNoFailureAnyOtherExceptionIsReportedAndStopsTheRest) {
    std::vector<std::string> reported;
    ResetUnhandledFailure();
    FailureHandler previous =
        SetUnhandledFailureHandler([&](const std::string& message) { reported.push_back(message); });
    bool ran = false;
    EXPECT_TRUE(CallCore([&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_FALSE(CallCore([] { throw QuitRequest(0); }));
    EXPECT_TRUE(reported.empty());
    EXPECT_TRUE(CallCore([] {}));

    EXPECT_FALSE(CallCore([] { throw std::runtime_error("the rule data vanished"); }));
    EXPECT_EQ(reported, std::vector<std::string>{"the rule data vanished"});
    EXPECT_TRUE(UnhandledFailureHappened());
    ran = false;
    EXPECT_FALSE(CallCore([&] { ran = true; }));
    EXPECT_FALSE(ran);
    SetUnhandledFailureHandler(previous);
    ResetUnhandledFailure();
}

}  // namespace
}  // namespace zeph::gui
