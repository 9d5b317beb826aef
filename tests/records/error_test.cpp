#include <gtest/gtest.h>

#include "zqxml/status.h"

TEST(StatusList, GetMessageIsNull) {
  EXPECT_EQ(ZQGetMessage(), nullptr);
}
