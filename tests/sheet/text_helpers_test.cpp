#include <gtest/gtest.h>

#include "sheet/TextHelpers.h"

using namespace zeph;

TEST(Val, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("  -3.5"), -3.5);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("1,500"), 1);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("-"), 0);
    EXPECT_EQ(Val("2e2x"), 200);
    EXPECT_EQ(Val("3e"), 3);
}
