#pragma once
// Handlers of the command groups, as the dispatch tables and the start-up and
// quit sequences call them.
//
// Subsystems land one at a time. Each declaration is weak, so a build that
// does not link a subsystem yet still links: its rows then answer as unknown
// commands and its start-up and quit calls are skipped.

#define FT_HANDLER [[gnu::weak]]

// Start-up and quit.
FT_HANDLER int keyTestInit();
FT_HANDLER int jackTestInit();
FT_HANDLER int hookswitchTestInit();
FT_HANDLER int ehsTestInit();
FT_HANDLER int initialize_lcd();
FT_HANDLER void initialize_audio();
FT_HANDLER int cameraInit();
FT_HANDLER int ehsTestDestroy();
FT_HANDLER int hookswitchTestDestroy();
FT_HANDLER int jackTestDestroy();
FT_HANDLER int keyTestDestroy();
FT_HANDLER int btTestDestroy();
FT_HANDLER int cameraExit();
FT_HANDLER int wifi_exit(int verbose);

// Factory data.
FT_HANDLER int config_info();
FT_HANDLER int config_program_write(const char* field, const char* value);
FT_HANDLER int config_program_writecommit(const char* field, const char* value);
FT_HANDLER int config_program_commit();
FT_HANDLER int config_program_list(const char* target);
FT_HANDLER int config_program_read(const char* field);
FT_HANDLER int config_program_reset(const char* target);
FT_HANDLER int config_production(const char* action);

// Help screens.
FT_HANDLER int factory_help();
FT_HANDLER int factory_audio_help();
FT_HANDLER int factory_l2_help();

// Audio.
FT_HANDLER int audio_loop(const char* action, const char* input, const char* output);
FT_HANDLER int audio_section508_gain(const char* action);
FT_HANDLER int audio_tone(const char* action, const char* device);
FT_HANDLER int audio_warn(const char* ftp_ip, const char* user, const char* password, const char* playback_file,
                          const char* playback_volume, const char* capture_volume, const char* capture_file);

// Display and input.
FT_HANDLER int lcd_fill(const char* color);
FT_HANDLER int lcd_crosshair();
FT_HANDLER int lcd_invertgrid(const char* color);
FT_HANDLER int lcd_half_filled();
FT_HANDLER int lcd_fl(const char* bars, const char* color1, const char* color2);
FT_HANDLER int lcd_digit(const char* color, const char* digit);
FT_HANDLER int backlight(const char* word);
FT_HANDLER int rawbacklight(const char* word);
FT_HANDLER int keyTest(const char* mode);
FT_HANDLER int jackTest(const char* mode);
FT_HANDLER int jackKeyTest(const char* mode);
FT_HANDLER int hookswitchTest(const char* mode);
FT_HANDLER int ehsTest(const char* mode);

// Wireless.
FT_HANDLER int wifi_mac_get();
FT_HANDLER int wifi_scan_network();
FT_HANDLER int wifi_init(int verbose);
FT_HANDLER int wifi_cap();
FT_HANDLER int wifi_rf_cfg(const char* tx_path, const char* rx_path);
FT_HANDLER int wifi_rf_scan(const char* filter_type, const char* filter_value, const char* iterations,
                            const char* mode);
FT_HANDLER int btEnable();
FT_HANDLER int btDisable();
FT_HANDLER int btGetMacAddr(char* buffer);
FT_HANDLER int btScan();
FT_HANDLER int btTestInit();
FT_HANDLER int btCap();

// Memory, network, transfers, peripherals and credentials.
FT_HANDLER int flash();
FT_HANDLER int sdram(const char* type);
FT_HANDLER int setport(const char* port, const char* mode);
FT_HANDLER int ethled(const char* mode);
FT_HANDLER int eth(const char* port, const char* mode);
FT_HANDLER int ip(const char* action, const char* address);
FT_HANDLER int ping(const char* address);
FT_HANDLER int ledTest(const char* pattern);
FT_HANDLER int sendFTP(const char* user, const char* password, const char* local_file, const char* dest_file,
                       const char* server);
FT_HANDLER int getFTP(const char* user, const char* password, const char* local_path, const char* remote_path,
                      const char* server);
FT_HANDLER int velor_regulatory(const char* user, const char* password, const char* remote_path,
                                const char* server);
FT_HANDLER int usblist();
FT_HANDLER int usbrw();
FT_HANDLER int usb_cmd(const char* action, const char* value);
FT_HANDLER int cameraAction(const char* action);
FT_HANDLER int cradleTest(const char* action);
FT_HANDLER int gen_self_signed_cert();
FT_HANDLER int regen_fips_signed_cert();

// Ethernet switch.
FT_HANDLER int rltkFTResetSettings();
FT_HANDLER int rltkFTportCntrs(const char* port);
FT_HANDLER int rltkFTportResetCntrs(const char* port);
FT_HANDLER int rltkFTGetMac(const char* port);
FT_HANDLER int rltkFTPrintMacTable();
FT_HANDLER int rltkFTGetRegValue(const char* reg);
FT_HANDLER int rltkFTGetPhyRegValue(const char* port, const char* reg);
FT_HANDLER int rltkFTEarlyInit(const char* mode);
FT_HANDLER int rltkFTsetAutoMDIX(const char* port, const char* mode);
FT_HANDLER int rltkFTgetAutomdix(const char* port);
FT_HANDLER int rltkFTsetLinkStatus(const char* port, const char* status);
FT_HANDLER int rltkFTgetLinkStatus(const char* port);
FT_HANDLER int rltkFTsetLinkMode(const char* port, const char* mode);
FT_HANDLER int rltkFTgetLinkMode(const char* port);
FT_HANDLER int rltkFTgetPVID(const char* port);
FT_HANDLER int rltkFTgetPortPriority(const char* port);
FT_HANDLER int rltkFTgetVlanMbrCfg(const char* index);
FT_HANDLER int rltkFTshowAllRules();
FT_HANDLER int rltkFTdelAllRules();
FT_HANDLER int rltkFTGetGreenEthernetPort();
FT_HANDLER int rltkFTSetGreenEthernetPort(const char* mode);
FT_HANDLER int rltkFTGetEEEPort(const char* port);
FT_HANDLER int rltkFTSetEEEPort(const char* port, const char* mode);
FT_HANDLER int rltkFTrgmiiDelayExt_set(const char* port, const char* tx_delay, const char* rx_delay);
FT_HANDLER int rltkFTl2getSSC();
FT_HANDLER int rltkFTl2setSSC(const char* status);
FT_HANDLER int rltkFTl2getLPIStatus();
