# Programming factory data: values as typed and as quoted, refusals, and that
# every value is read back from the store after a power cycle.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write SN_UNIT "AB  12"
PASS
ft>program write MODEL_NUM "VX 400 rev B
PASS
ft>program writecommit HW_VER 1.0
PASS
ft>program write ETHERADD 00:11:22:33:44:55 ignored words
PASS
ft>program write SN_PWB "A B"tail more
PASS
ft>program write CC_PWB "x" y "z" w
PASS
ft>program write ID_LCD_GLASS
FAIL
ft>program write NO_SUCH_FIELD 1
FAIL
ft>program writecommit etheradd 1
FAIL
ft>program write ID_LCD_GLASS ""
FAIL
ft>program read NO_SUCH_FIELD
ft>program read
ft>program commit
PASS
ft>program reset nvdata
Not supporting reset of nvdata
ft>program reset all
Invalid target!
ft>program list
Invalid target!
ft>program list ALL
Invalid target!
ft>^D
@ exit 0
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program read SN_UNIT
SN_UNIT = "AB 12"
ft>program read MODEL_NUM
MODEL_NUM = "VX 400 rev B "
ft>program read SN_PWB
SN_PWB = "A B"
ft>program read CC_PWB
CC_PWB = "x" y "z"
ft>info
~ Factory Test .*
Model = "VX 400 rev B "
LCD = "<NOT Initialized>"
HW Version = "1.0"
Gen Version = "<NOT Initialized>"
MAC = "00:11:22:33:44:55"
Operational Mode = "0"
ConfigData Des Support = "<NOT Initialized>"
ft>program list ict
 0: OPERATIONAL_MODE = "0"
 1: ETHERADD = "00:11:22:33:44:55"
 2: BLUETOOTHADD = ""
 3: WIFIADD = ""
 4: SN_UNIT = "AB 12"
 5: SN_PWB = "A B"
 6: CC_UNIT = ""
 7: CC_PWB = "x" y "z"
 8: MODEL_NUM = "VX 400 rev B "
 9: GEN_VER = ""
10: HW_VER = "1.0"
11: ID_LCD_GLASS = ""
12: ID_LCD_CONTROLLER = ""
13: ID_TOUCH_CONTROLLER = ""
14: RF_COMBO_MODULE = ""
15: CAMERA_MODULE = ""
16: NM_HF_M1 = ""
17: NM_HAND_M = ""
18: NM_HEAD_M = ""
19: NM_CORDLESS_M = ""
20: NM_35_M = ""
21: NM_HF_S = ""
22: NM_HAND_S = ""
23: NM_HEAD_S = ""
24: NM_CORDLESS_S = ""
25: NM_35_S = ""
26: CONFIGDATA_HAND_RX_GAIN = ""
27: CONFIGDATA_HAND_TX_GAIN = ""
28: SEC_MODE = ""
29: ADB_ROOT = ""
30: SERIAL_ENABLED = ""
31: AUTH_ENABLED = ""
32: CONFIGDATA_DES_SUPPORT = ""
33: EEA_PRODUCT = ""
# A value longer than the 31 characters the printer shows is stored whole.
# A field holds 31 characters, as the shell's read buffers do: one more is
# refused rather than stored and read back cut short.
ft>program write EEA_PRODUCT 01234567890123456789012345678901
FAIL
ft>program write EEA_PRODUCT 0123456789012345678901234567890
PASS
ft>program read EEA_PRODUCT
EEA_PRODUCT = "0123456789012345678901234567890"
ft>quit
@ exit 0
