#pragma once
// The phone's hardware-module loader (libhardware): finds a HAL module by its
// id in /system/lib/hw. Layouts as the phone's own header has them, so the
// same code builds against the real one.
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define MAKE_TAG_CONSTANT(A, B, C, D) (((A) << 24) | ((B) << 16) | ((C) << 8) | (D))
#define HARDWARE_MODULE_TAG MAKE_TAG_CONSTANT('H', 'W', 'M', 'T')
#define HARDWARE_DEVICE_TAG MAKE_TAG_CONSTANT('H', 'W', 'D', 'T')

/** Name of the module record every HAL library exports. */
#define HAL_MODULE_INFO_SYM HMI
#define HAL_MODULE_INFO_SYM_AS_STR "HMI"

struct hw_module_t;
struct hw_module_methods_t;
struct hw_device_t;

/** A HAL module, as its library exports it. */
struct hw_module_t {
    /** HARDWARE_MODULE_TAG. */
    uint32_t tag;
    uint16_t module_api_version;
    uint16_t hal_api_version;
    /** The id hw_get_module finds the module by. */
    const char* id;
    const char* name;
    const char* author;
    struct hw_module_methods_t* methods;
    /** The module's library handle, filled in by hw_get_module. */
    void* dso;
#ifdef __LP64__
    uint64_t reserved[32 - 7];
#else
    uint32_t reserved[32 - 7];
#endif
};

struct hw_module_methods_t {
    /** Opens the module's device @p id; 0 with *device set, or a negative errno. */
    int (*open)(const struct hw_module_t* module, const char* id, struct hw_device_t** device);
};

/** The common head of every HAL device. */
struct hw_device_t {
    /** HARDWARE_DEVICE_TAG. */
    uint32_t tag;
    uint32_t version;
    struct hw_module_t* module;
#ifdef __LP64__
    uint64_t reserved[12];
#else
    uint32_t reserved[12];
#endif
    int (*close)(struct hw_device_t* device);
};

/** Finds the HAL module @p id and stores it in *module: 0 on success, a
 * negative errno when no library provides it or it cannot be loaded. */
int hw_get_module(const char* id, const struct hw_module_t** module);

#ifdef __cplusplus
}
#endif
