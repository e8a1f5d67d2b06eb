#pragma once
#include <array>
#include <cstddef>

namespace ft {

struct FactoryField {
    const char* name;
    const char* alias;  // carried for the store's sake; nothing here reads it
};

inline constexpr std::size_t kFactoryFieldCount = 34;

// Row order is the store's index order: never reorder or insert.
// The final row is the table's end marker.
inline constexpr std::array<FactoryField, kFactoryFieldCount + 1> kFactoryFields{{
    {"OPERATIONAL_MODE", "opermode"},
    {"ETHERADD", "ethaddr"},
    {"BLUETOOTHADD", "btaddr"},
    {"WIFIADD", "wifiaddr"},
    {"SN_UNIT", "phonesn"},
    {"SN_PWB", "pwbsn"},
    {"CC_UNIT", "phonecc"},
    {"CC_PWB", "pwbcc"},
    {"MODEL_NUM", "modelnum"},
    {"GEN_VER", "genver"},
    {"HW_VER", "hwver"},
    {"ID_LCD_GLASS", "lcdglass"},
    {"ID_LCD_CONTROLLER", "lcdcontroller"},
    {"ID_TOUCH_CONTROLLER", "touchcontroller"},
    {"RF_COMBO_MODULE", "rfcombo"},
    {"CAMERA_MODULE", "camodule"},
    {"NM_HF_M1", "handsfreemic1"},
    {"NM_HAND_M", "handsetmic"},
    {"NM_HEAD_M", "headsetmic"},
    {"NM_CORDLESS_M", "cordlessmic"},
    {"NM_35_M", "3.5mmmic"},
    {"NM_HF_S", "handsfreespeaker"},
    {"NM_HAND_S", "handsetspeaker"},
    {"NM_HEAD_S", "headsetspeaker"},
    {"NM_CORDLESS_S", "cordlessspeaker"},
    {"NM_35_S", "3.5mmspeaker"},
    {"CONFIGDATA_HAND_RX_GAIN", "rxgain"},
    {"CONFIGDATA_HAND_TX_GAIN", "txgain"},
    {"SEC_MODE", "secmod"},
    {"ADB_ROOT", "adbroot"},
    {"SERIAL_ENABLED", "serialEnabled"},
    {"AUTH_ENABLED", "authEnabled"},
    {"CONFIGDATA_DES_SUPPORT", "configdatadessupport"},
    {"EEA_PRODUCT", "eeaProduct"},
    {nullptr, nullptr},
}};

// Fields other commands address by their fixed index.
inline constexpr int kOperationalModeIndex = 0;
inline constexpr int kEtherAddIndex = 1;
inline constexpr int kDesSupportIndex = 32;

}  // namespace ft
