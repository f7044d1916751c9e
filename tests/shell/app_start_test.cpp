#include <gtest/gtest.h>
TEST(AppStart, Placeholder) { SUCCEED(); }
