// The guard every slot passes through on its way into the core.
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/Platform.h"
#include "shell/gui/CoreCall.h"

namespace zeph::gui {
namespace {

class CoreCallTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetUnhandledFailure();
        previous_ = SetUnhandledFailureHandler(
            [this](const std::string& message) { reported_.push_back(message); });
    }
    void TearDown() override {
        SetUnhandledFailureHandler(previous_);
        ResetUnhandledFailure();
    }

    std::vector<std::string> reported_;
    FailureHandler previous_;
};

TEST_F(CoreCallTest, WorkThatSucceedsRuns) {
    bool ran = false;
    EXPECT_TRUE(CallCore([&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(reported_.empty());
}

TEST_F(CoreCallTest, AQuitRequestIsNoFailure) {
    EXPECT_FALSE(CallCore([] { throw QuitRequest(0); }));
    EXPECT_TRUE(reported_.empty());
    EXPECT_FALSE(UnhandledFailureHappened());
    EXPECT_TRUE(CallCore([] {}));
}

TEST_F(CoreCallTest, AnyOtherExceptionIsReportedWithItsMessageAndStopsFurtherWork) {
    EXPECT_FALSE(CallCore([] { throw std::runtime_error("the rule data vanished"); }));
    ASSERT_EQ(reported_.size(), 1u);
    EXPECT_EQ(reported_[0], "the rule data vanished");
    EXPECT_TRUE(UnhandledFailureHappened());

    bool ran = false;
    EXPECT_FALSE(CallCore([&] { ran = true; }));
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace zeph::gui
