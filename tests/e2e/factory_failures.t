# The factory-data store refusing: each command reports it its own way and
# nothing already stored is lost. Failures set while the shell runs apply at once.
$! ftsim fail nosuch_operation -1 EIO
| ftsim: no library operation named 'nosuch_operation'; 'ftsim fail --points' lists them
$! ftsim fail eeprom_read x
| ftsim: RESULT must be an integer, not 'x'
$! ftsim fail eeprom_read -1 ENOTANERRNO
| ftsim: ERRNO must be a name such as EIO or a number, not 'ENOTANERRNO'
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write MODEL_NUM M1
PASS
$ ftsim fail eeprom_write -1 EIO
ft>program write MODEL_NUM M2
FAIL
ft>program writecommit MODEL_NUM M2
FAIL
$ ftsim fail eeprom_read -1 EIO
$ ftsim fail
| eeprom_write -1 EIO
| eeprom_read -1 EIO
ft>program read MODEL_NUM
ft>info
~ Factory Test .*
ft>production
Factory Mode
ft>program list all
 0: OPERATIONAL_MODE = "FAIL"
 1: ETHERADD = "FAIL"
 2: BLUETOOTHADD = "FAIL"
 3: WIFIADD = "FAIL"
 4: SN_UNIT = "FAIL"
 5: SN_PWB = "FAIL"
 6: CC_UNIT = "FAIL"
 7: CC_PWB = "FAIL"
 8: MODEL_NUM = "FAIL"
 9: GEN_VER = "FAIL"
10: HW_VER = "FAIL"
11: ID_LCD_GLASS = "FAIL"
12: ID_LCD_CONTROLLER = "FAIL"
13: ID_TOUCH_CONTROLLER = "FAIL"
14: RF_COMBO_MODULE = "FAIL"
15: CAMERA_MODULE = "FAIL"
16: NM_HF_M1 = "FAIL"
17: NM_HAND_M = "FAIL"
18: NM_HEAD_M = "FAIL"
19: NM_CORDLESS_M = "FAIL"
20: NM_35_M = "FAIL"
21: NM_HF_S = "FAIL"
22: NM_HAND_S = "FAIL"
23: NM_HEAD_S = "FAIL"
24: NM_CORDLESS_S = "FAIL"
25: NM_35_S = "FAIL"
26: CONFIGDATA_HAND_RX_GAIN = "FAIL"
27: CONFIGDATA_HAND_TX_GAIN = "FAIL"
28: SEC_MODE = "FAIL"
29: ADB_ROOT = "FAIL"
30: SERIAL_ENABLED = "FAIL"
31: AUTH_ENABLED = "FAIL"
32: CONFIGDATA_DES_SUPPORT = "FAIL"
33: EEA_PRODUCT = "FAIL"
# A read that only reports a positive result still counts as failed for the printer.
$ ftsim fail eeprom_read 1
ft>program read MODEL_NUM
$ ftsim unfail eeprom_read
$! ftsim unfail eeprom_read
| ftsim: 'eeprom_read' is not set to fail
ft>program read MODEL_NUM
MODEL_NUM = "M1"
# The store refuses the switch into production mode: no message, no reboot.
$ ftsim fail eeprom_set_rw_mode -1 EROFS
ft>production 1
ft>production 0
Factory Mode
$ ftsim unfail all
$ ftsim fail
ft>program write MODEL_NUM M3
PASS
ft>^D
@ exit 0
$ ftsim log
# A write cut short by a power cut leaves its temporary file; the next power-up clears it.
$ ftsim exec -- sh -c 'echo torn > /sim/eeprom.tmp-Ab3dE6gH'
$! ftsim exec -- test -e /sim/eeprom.tmp-Ab3dE6gH
