// Debug and disable switches, set directly and through --debug: and --disable:.
#include <gtest/gtest.h>

#include "options/optobj.h"
#include "options/register_option.h"

namespace {

register_option debug_gauge("debug:gauge");
register_option debug_probe("debug:probe");
register_option disable_marker("disable:marker");

TEST(Switches, ListItemsSetOneOrAValueByExactName) {
  debug_probe = 5;
  process_debug_option("debug", "gauge,probe=0");
  EXPECT_EQ(debug_gauge, 1);
  EXPECT_EQ(debug_probe, 0);

  process_debug_option("debug", "probe=0x10,,gauge=010,marker,nosuch");
  EXPECT_EQ(debug_probe, 16);
  EXPECT_EQ(debug_gauge, 8);
  EXPECT_EQ(disable_marker, 0);

  process_debug_option("debug", "Gauge=3,gauge =3,probe=junk");
  EXPECT_EQ(debug_gauge, 8);
  EXPECT_EQ(debug_probe, 0);
  EXPECT_EQ(register_option::get_option("debug:nosuch"), nullptr);
}

TEST(Switches, LaterWordsWin) {
  option_obj opts(true);
  EXPECT_TRUE(opts.process_option("-disable:marker", nullptr));
  EXPECT_EQ(disable_marker, 1);
  EXPECT_TRUE(opts.process_option("-disable:marker=0", nullptr));
  EXPECT_EQ(disable_marker, 0);
}

TEST(Switches, ALocalSwitchLeavesTheRegistryWhenDestroyed) {
  {
    register_option local("debug:local");
    {
      register_option shadow("debug:local");  // replaces the first in the registry
      EXPECT_EQ(register_option::get_option("debug:local"), &shadow);
    }
    EXPECT_EQ(register_option::get_option("debug:local"), nullptr);
    process_debug_option("debug", "local=7");
    EXPECT_EQ(local, 0);
  }
  process_debug_option("debug", "local");
  EXPECT_EQ(register_option::get_option("debug:local"), nullptr);
}

}  // namespace
