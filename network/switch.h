#pragma once
// Ethernet switch diagnostics, as the shell calls them after its word checks.

int rltkFTResetSettings();
int rltkFTportCntrs(const char* port);
int rltkFTportResetCntrs(const char* port);
int rltkFTGetMac(const char* port);
int rltkFTPrintMacTable();
int rltkFTGetRegValue(const char* reg);
int rltkFTGetPhyRegValue(const char* port, const char* reg);
int rltkFTEarlyInit(const char* mode);
int rltkFTsetAutoMDIX(const char* port, const char* mode);
int rltkFTgetAutomdix(const char* port);
int rltkFTsetLinkStatus(const char* port, const char* status);
int rltkFTgetLinkStatus(const char* port);
int rltkFTsetLinkMode(const char* port, const char* mode);
int rltkFTgetLinkMode(const char* port);
int rltkFTgetPVID(const char* port);
int rltkFTgetPortPriority(const char* port);
int rltkFTgetVlanMbrCfg(const char* index);
int rltkFTshowAllRules();
int rltkFTdelAllRules();
int rltkFTGetGreenEthernetPort();
int rltkFTSetGreenEthernetPort(const char* mode);
int rltkFTGetEEEPort(const char* port);
int rltkFTSetEEEPort(const char* port, const char* mode);
int rltkFTrgmiiDelayExt_set(const char* port, const char* tx_delay, const char* rx_delay);
int rltkFTl2getSSC();
int rltkFTl2setSSC(const char* status);
int rltkFTl2getLPIStatus();
