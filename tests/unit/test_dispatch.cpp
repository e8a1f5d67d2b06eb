// The dispatch tables against what the build links: a row of an area that
// has landed must reach its handler.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "shell/dispatch.h"

namespace {

// Commands of the areas whose code has not landed yet, an area a line; an
// area that lands deletes its line (and drops FT_NOT_BUILT_YET from its header).
const std::vector<std::string> kNotBuiltYet = {
    "loop", "section508", "tone", "warn",                                  // audio
    "setport", "ethled", "eth", "ip", "ping", "led",                       // network: ports and LEDs
    "l2resetSettings", "l2portCntrs", "l2portResetCntrs", "l2getmac", "l2printMacTable", "l2getRegValue",
    "l2getPhyRegValue", "l2Init", "l2setAutoMDIX", "l2getAutoMDIX", "l2setLinkStatus", "l2getLinkStatus",
    "l2setLinkMode", "l2getLinkMode", "l2GetPVID", "l2GetPortPriority", "l2GetVlan_mbrCfg", "l2ShowAllRules",
    "l2DelAllRules", "l2GetGreenEthernetPort", "l2SetGreenEthernetPort", "l2GetEEEPort", "l2SetEEEPort",
    "l2rgmiiDelayExt_set", "l2getSSC", "l2setSSC", "l2getLPIStatus",       // network: switch
    "bt on", "bt off", "bt mac_get", "bt scan", "bt init", "bt cap",       // Bluetooth
};

TEST(Dispatch, EveryRowOfALandedAreaReachesItsHandler) {
    std::vector<std::string> missing = ft::unlinked_commands();
    std::vector<std::string> expected = kNotBuiltYet;
    std::sort(missing.begin(), missing.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(missing, expected);
}

}  // namespace
