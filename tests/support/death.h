#pragma once
#include <gtest/gtest.h>

// EXPECT_REPORTED_END expects that a statement ends the process with status 1 and a report, which under
// Windows is in a message box.
#ifdef _WIN32
#define EXPECT_REPORTED_END(statement, text) EXPECT_EXIT(statement, testing::ExitedWithCode(1), "")
#else
#define EXPECT_REPORTED_END(statement, text) EXPECT_EXIT(statement, testing::ExitedWithCode(1), text)
#endif
