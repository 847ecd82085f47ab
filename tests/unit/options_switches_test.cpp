// Debug and disable switches, set directly and through --debug: and --disable:.
#include <gtest/gtest.h>

#include "options/optobj.h"
#include "options/register_option.h"

namespace {

register_option debug_ranges("debug:ranges");
register_option debug_looptype("debug:looptype");
register_option disable_se("disable:se");

class SwitchesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    debug_ranges = 0;
    debug_looptype = 0;
    disable_se = 0;
  }
};

TEST_F(SwitchesTest, ListItemsSetOneOrAValue) {
  debug_looptype = 5;
  process_debug_option("debug", "ranges,looptype=0");
  EXPECT_EQ(debug_ranges, 1);
  EXPECT_EQ(debug_looptype, 0);

  process_debug_option("debug", "looptype=0x10,,ranges=010");
  EXPECT_EQ(debug_looptype, 16);
  EXPECT_EQ(debug_ranges, 8);

  process_debug_option("debug", "ranges=-2,looptype=junk");
  EXPECT_EQ(debug_ranges, -2);
  EXPECT_EQ(debug_looptype, 0);
}

TEST_F(SwitchesTest, NamesAreExactAndLiveInTheirNameSpace) {
  process_debug_option("debug", "Ranges,se,nosuch=3,ranges ");
  EXPECT_EQ(debug_ranges, 0);
  EXPECT_EQ(disable_se, 0);
  EXPECT_EQ(register_option::get_option("debug:nosuch"), nullptr);
  EXPECT_EQ(register_option::get_option("disable:se"), &disable_se);
}

TEST_F(SwitchesTest, LaterWordsWin) {
  option_obj opts(true);
  EXPECT_TRUE(opts.process_option("-disable:se", nullptr));
  EXPECT_EQ(disable_se, 1);
  EXPECT_TRUE(opts.process_option("-debug:ranges", nullptr));
  EXPECT_EQ(debug_ranges, 1);
  EXPECT_TRUE(opts.process_option("-disable:se=0", nullptr));
  EXPECT_EQ(disable_se, 0);
}

TEST(RegisterOption, ALocalSwitchLeavesTheRegistryWhenDestroyed) {
  {
    register_option local("debug:local");
    process_debug_option("debug", "local=7");
    EXPECT_EQ(local, 7);
    {
      register_option shadow("debug:local");  // replaces the first in the registry
      EXPECT_EQ(register_option::get_option("debug:local"), &shadow);
    }
    EXPECT_EQ(register_option::get_option("debug:local"), nullptr);
  }
  EXPECT_EQ(register_option::get_option("debug:local"), nullptr);
  process_debug_option("debug", "local");
}

}  // namespace
