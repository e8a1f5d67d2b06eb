#pragma once
#include <array>
#include <cstddef>

namespace ft {

struct FactoryField {
    const char* name;
};

inline constexpr std::size_t kFactoryFieldCount = 34;

// Row order is the store's index order: never reorder or insert.
// The final row is the table's end marker.
inline constexpr std::array<FactoryField, kFactoryFieldCount + 1> kFactoryFields{{
    {"OPERATIONAL_MODE"},
    {"ETHERADD"},
    {"BLUETOOTHADD"},
    {"WIFIADD"},
    {"SN_UNIT"},
    {"SN_PWB"},
    {"CC_UNIT"},
    {"CC_PWB"},
    {"MODEL_NUM"},
    {"GEN_VER"},
    {"HW_VER"},
    {"ID_LCD_GLASS"},
    {"ID_LCD_CONTROLLER"},
    {"ID_TOUCH_CONTROLLER"},
    {"RF_COMBO_MODULE"},
    {"CAMERA_MODULE"},
    {"NM_HF_M1"},
    {"NM_HAND_M"},
    {"NM_HEAD_M"},
    {"NM_CORDLESS_M"},
    {"NM_35_M"},
    {"NM_HF_S"},
    {"NM_HAND_S"},
    {"NM_HEAD_S"},
    {"NM_CORDLESS_S"},
    {"NM_35_S"},
    {"CONFIGDATA_HAND_RX_GAIN"},
    {"CONFIGDATA_HAND_TX_GAIN"},
    {"SEC_MODE"},
    {"ADB_ROOT"},
    {"SERIAL_ENABLED"},
    {"AUTH_ENABLED"},
    {"CONFIGDATA_DES_SUPPORT"},
    {"EEA_PRODUCT"},
    {nullptr},
}};

// Fields other commands address by their fixed index.
inline constexpr int kOperationalModeIndex = 0;
inline constexpr int kEtherAddIndex = 1;
inline constexpr int kDesSupportIndex = 32;

}  // namespace ft
