#pragma once
// The phone's legacy Bluetooth HAL (module id "bluetooth"): the device, the
// interface the stack offers, the callbacks it makes and the OS call-outs it
// asks for. Layouts as the phone's own header has them (the 7.x interface:
// enable takes the guest-mode flag, 13 callbacks), so the same code builds
// against the real one; records the stack checks carry their own size.
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include "platform/hardware.h"

#ifdef __cplusplus
extern "C" {
#endif

#define BT_HARDWARE_MODULE_ID "bluetooth"
#define BT_STACK_MODULE_ID "bluetooth"
#define BT_STACK_TEST_MODULE_ID "bluetooth_test"

/** Result of every interface operation: BT_STATUS_SUCCESS (0) or why not. */
typedef enum {
    BT_STATUS_SUCCESS,
    BT_STATUS_FAIL,
    BT_STATUS_NOT_READY,
    BT_STATUS_NOMEM,
    BT_STATUS_BUSY,
    BT_STATUS_DONE,
    BT_STATUS_UNSUPPORTED,
    BT_STATUS_PARM_INVALID,
    BT_STATUS_UNHANDLED,
    BT_STATUS_AUTH_FAILURE,
    BT_STATUS_RMT_DEV_DOWN,
    BT_STATUS_AUTH_REJECTED
} bt_status_t;

typedef enum { BT_STATE_OFF = 0, BT_STATE_ON = 1 } bt_state_t;
typedef enum { BT_DISCOVERY_STOPPED = 0, BT_DISCOVERY_STARTED = 1 } bt_discovery_state_t;
typedef enum { BT_ACL_STATE_CONNECTED = 0, BT_ACL_STATE_DISCONNECTED = 1 } bt_acl_state_t;
typedef enum { BT_BOND_STATE_NONE = 0, BT_BOND_STATE_BONDING = 1, BT_BOND_STATE_BONDED = 2 } bt_bond_state_t;
typedef enum { BT_DEVICE_DEVTYPE_BREDR = 1, BT_DEVICE_DEVTYPE_BLE = 2, BT_DEVICE_DEVTYPE_DUAL = 3 } bt_device_type_t;
typedef enum {
    BT_SSP_VARIANT_PASSKEY_CONFIRMATION = 0,
    BT_SSP_VARIANT_PASSKEY_ENTRY = 1,
    BT_SSP_VARIANT_CONSENT = 2,
    BT_SSP_VARIANT_PASSKEY_NOTIFICATION = 3
} bt_ssp_variant_t;
typedef enum { ASSOCIATE_JVM, DISASSOCIATE_JVM } bt_cb_thread_evt;

/** What a property record holds; the value's type is given with each. */
typedef enum {
    BT_PROPERTY_BDNAME = 0x1,                   /**< bt_bdname_t: the name text, len without a NUL */
    BT_PROPERTY_BDADDR = 0x2,                   /**< bt_bdaddr_t */
    BT_PROPERTY_UUIDS = 0x3,
    BT_PROPERTY_CLASS_OF_DEVICE = 0x4,          /**< uint32_t */
    BT_PROPERTY_TYPE_OF_DEVICE = 0x5,           /**< bt_device_type_t as uint32_t */
    BT_PROPERTY_SERVICE_RECORD = 0x6,
    BT_PROPERTY_ADAPTER_SCAN_MODE = 0x7,
    BT_PROPERTY_ADAPTER_BONDED_DEVICES = 0x8,
    BT_PROPERTY_ADAPTER_DISCOVERY_TIMEOUT = 0x9,
    BT_PROPERTY_REMOTE_FRIENDLY_NAME = 0xA,
    BT_PROPERTY_REMOTE_RSSI = 0xB,              /**< int8_t */
    BT_PROPERTY_REMOTE_VERSION_INFO = 0xC,
    BT_PROPERTY_LOCAL_LE_FEATURES = 0xD,
    BT_PROPERTY_REMOTE_DEVICE_TIMESTAMP = 0xFF
} bt_property_type_t;

typedef struct {
    uint8_t address[6];
} __attribute__((packed)) bt_bdaddr_t;

typedef struct {
    uint8_t name[249];
} __attribute__((packed)) bt_bdname_t;

typedef struct {
    uint8_t uu[16];
} bt_uuid_t;

typedef struct {
    uint8_t pin[16];
} __attribute__((packed)) bt_pin_code_t;

/** One property: @c len bytes at @c val, valid only during the callback that delivers it. */
typedef struct {
    bt_property_type_t type;
    int len;
    void* val;
} bt_property_t;

/* Records only passed through by pointer here. */
typedef struct bt_out_of_band_data bt_out_of_band_data_t;
typedef struct bt_activity_energy_info bt_activity_energy_info;
typedef struct bt_uid_traffic bt_uid_traffic_t;

typedef void (*adapter_state_changed_callback)(bt_state_t state);
typedef void (*adapter_properties_callback)(bt_status_t status, int num_properties, bt_property_t* properties);
typedef void (*remote_device_properties_callback)(bt_status_t status, bt_bdaddr_t* bd_addr, int num_properties,
                                                  bt_property_t* properties);
typedef void (*device_found_callback)(int num_properties, bt_property_t* properties);
typedef void (*discovery_state_changed_callback)(bt_discovery_state_t state);
typedef void (*pin_request_callback)(bt_bdaddr_t* remote_bd_addr, bt_bdname_t* bd_name, uint32_t cod,
                                     bool min_16_digit);
typedef void (*ssp_request_callback)(bt_bdaddr_t* remote_bd_addr, bt_bdname_t* bd_name, uint32_t cod,
                                     bt_ssp_variant_t pairing_variant, uint32_t pass_key);
typedef void (*bond_state_changed_callback)(bt_status_t status, bt_bdaddr_t* remote_bd_addr,
                                            bt_bond_state_t state);
typedef void (*acl_state_changed_callback)(bt_status_t status, bt_bdaddr_t* remote_bd_addr, bt_acl_state_t state);
typedef void (*callback_thread_event)(bt_cb_thread_evt evt);
typedef void (*dut_mode_recv_callback)(uint16_t opcode, uint8_t* buf, uint8_t len);
typedef void (*le_test_mode_callback)(bt_status_t status, uint16_t num_packets);
typedef void (*energy_info_callback)(bt_activity_energy_info* energy_info, bt_uid_traffic_t* uid_data);

/** The callbacks the stack makes, on a thread of its own. @c size must be
 * sizeof(bt_callbacks_t); an entry may be null when the caller wants none. */
typedef struct {
    size_t size;
    adapter_state_changed_callback adapter_state_changed_cb;
    adapter_properties_callback adapter_properties_cb;
    remote_device_properties_callback remote_device_properties_cb;
    device_found_callback device_found_cb;
    discovery_state_changed_callback discovery_state_changed_cb;
    pin_request_callback pin_request_cb;
    ssp_request_callback ssp_request_cb;
    bond_state_changed_callback bond_state_changed_cb;
    acl_state_changed_callback acl_state_changed_cb;
    callback_thread_event thread_evt_cb;
    dut_mode_recv_callback dut_mode_recv_cb;
    le_test_mode_callback le_test_mode_cb;
    energy_info_callback energy_info_cb;
} bt_callbacks_t;

typedef void (*alarm_cb)(void* data);
/** Asks for @p cb(@p data) once, @p delay_millis from now; true when armed. */
typedef bool (*set_wake_alarm_callout)(uint64_t delay_millis, bool should_wake, alarm_cb cb, void* data);
/** 0 on success. */
typedef int (*acquire_wake_lock_callout)(const char* lock_name);
typedef int (*release_wake_lock_callout)(const char* lock_name);

/** What the stack asks of the OS for its timers and wake locks. @c size must
 * be sizeof(bt_os_callouts_t). */
typedef struct {
    size_t size;
    set_wake_alarm_callout set_wake_alarm;
    acquire_wake_lock_callout acquire_wake_lock;
    release_wake_lock_callout release_wake_lock;
} bt_os_callouts_t;

/** The stack's interface. Every int operation returns a bt_status_t; the
 * answers they ask for arrive later through the callbacks. */
typedef struct {
    size_t size;
    /** Registers the callbacks and starts the stack's thread. */
    int (*init)(bt_callbacks_t* callbacks);
    /** Switches the adapter on; adapter_state_changed_cb reports it. */
    int (*enable)(bool guest_mode);
    /** Switches the adapter off; adapter_state_changed_cb reports it. */
    int (*disable)(void);
    /** Stops the stack's thread; the callbacks are not called any more. */
    void (*cleanup)(void);
    int (*get_adapter_properties)(void);
    /** Asks for one adapter property; adapter_properties_cb delivers it. */
    int (*get_adapter_property)(bt_property_type_t type);
    int (*set_adapter_property)(const bt_property_t* property);
    int (*get_remote_device_properties)(bt_bdaddr_t* remote_addr);
    int (*get_remote_device_property)(bt_bdaddr_t* remote_addr, bt_property_type_t type);
    int (*set_remote_device_property)(bt_bdaddr_t* remote_addr, const bt_property_t* property);
    int (*get_remote_service_record)(bt_bdaddr_t* remote_addr, bt_uuid_t* uuid);
    int (*get_remote_services)(bt_bdaddr_t* remote_addr);
    /** Starts a device discovery: discovery_state_changed_cb, device_found_cb
     * for each device, discovery_state_changed_cb again when it ends. */
    int (*start_discovery)(void);
    /** Ends a discovery early; discovery_state_changed_cb reports it. */
    int (*cancel_discovery)(void);
    int (*create_bond)(const bt_bdaddr_t* bd_addr, int transport);
    int (*create_bond_out_of_band)(const bt_bdaddr_t* bd_addr, int transport, const bt_out_of_band_data_t* oob_data);
    int (*remove_bond)(const bt_bdaddr_t* bd_addr);
    int (*cancel_bond)(const bt_bdaddr_t* bd_addr);
    int (*get_connection_state)(const bt_bdaddr_t* bd_addr);
    int (*pin_reply)(const bt_bdaddr_t* bd_addr, uint8_t accept, uint8_t pin_len, bt_pin_code_t* pin_code);
    int (*ssp_reply)(const bt_bdaddr_t* bd_addr, bt_ssp_variant_t variant, uint8_t accept, uint32_t passkey);
    const void* (*get_profile_interface)(const char* profile_id);
    int (*dut_mode_configure)(uint8_t enable);
    int (*dut_mode_send)(uint16_t opcode, uint8_t* buf, uint8_t len);
    int (*le_test_mode)(uint16_t opcode, uint8_t* buf, uint8_t len);
    int (*config_hci_snoop_log)(uint8_t enable);
    /** Hands the stack the OS call-outs it uses for its alarms and wake locks. */
    int (*set_os_callouts)(bt_os_callouts_t* callouts);
    int (*read_energy_info)(void);
    void (*dump)(int fd, const char** arguments);
    void (*config_clear)(void);
    void (*interop_database_clear)(void);
    void (*interop_database_add)(uint16_t feature, const bt_bdaddr_t* addr, size_t len);
} bt_interface_t;

/** The device the "bluetooth" module's open method gives. */
typedef struct {
    struct hw_device_t common;
    /** The stack's interface, or null when it has none to offer. */
    const bt_interface_t* (*get_bluetooth_interface)(void);
} bluetooth_device_t;

typedef bluetooth_device_t bluetooth_module_t;

#ifdef __cplusplus
}
#endif
