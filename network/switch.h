#pragma once
// Ethernet switch diagnostics, as the shell calls them after its word checks.
#include "common/handler.h"

FT_NOT_BUILT_YET int rltkFTResetSettings();
FT_NOT_BUILT_YET int rltkFTportCntrs(const char* port);
FT_NOT_BUILT_YET int rltkFTportResetCntrs(const char* port);
FT_NOT_BUILT_YET int rltkFTGetMac(const char* port);
FT_NOT_BUILT_YET int rltkFTPrintMacTable();
FT_NOT_BUILT_YET int rltkFTGetRegValue(const char* reg);
FT_NOT_BUILT_YET int rltkFTGetPhyRegValue(const char* port, const char* reg);
FT_NOT_BUILT_YET int rltkFTEarlyInit(const char* mode);
FT_NOT_BUILT_YET int rltkFTsetAutoMDIX(const char* port, const char* mode);
FT_NOT_BUILT_YET int rltkFTgetAutomdix(const char* port);
FT_NOT_BUILT_YET int rltkFTsetLinkStatus(const char* port, const char* status);
FT_NOT_BUILT_YET int rltkFTgetLinkStatus(const char* port);
FT_NOT_BUILT_YET int rltkFTsetLinkMode(const char* port, const char* mode);
FT_NOT_BUILT_YET int rltkFTgetLinkMode(const char* port);
FT_NOT_BUILT_YET int rltkFTgetPVID(const char* port);
FT_NOT_BUILT_YET int rltkFTgetPortPriority(const char* port);
FT_NOT_BUILT_YET int rltkFTgetVlanMbrCfg(const char* index);
FT_NOT_BUILT_YET int rltkFTshowAllRules();
FT_NOT_BUILT_YET int rltkFTdelAllRules();
FT_NOT_BUILT_YET int rltkFTGetGreenEthernetPort();
FT_NOT_BUILT_YET int rltkFTSetGreenEthernetPort(const char* mode);
FT_NOT_BUILT_YET int rltkFTGetEEEPort(const char* port);
FT_NOT_BUILT_YET int rltkFTSetEEEPort(const char* port, const char* mode);
FT_NOT_BUILT_YET int rltkFTrgmiiDelayExt_set(const char* port, const char* tx_delay, const char* rx_delay);
FT_NOT_BUILT_YET int rltkFTl2getSSC();
FT_NOT_BUILT_YET int rltkFTl2setSSC(const char* status);
FT_NOT_BUILT_YET int rltkFTl2getLPIStatus();
