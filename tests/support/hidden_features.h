#pragma once
#include <gtest/gtest.h>

#include "platform/cpu.h"

namespace test {

// The tests of this fixture run with the features of its parameter hidden, and so with each kernel.
class HiddenFeatures : public testing::TestWithParam<uint32_t> {
  protected:
    void SetUp() override { zul::cpu_mask_features(GetParam()); }
    void TearDown() override { zul::cpu_mask_features(0); }
};

} // namespace test
