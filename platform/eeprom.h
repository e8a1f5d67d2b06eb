#pragma once
// Factory-data store of the phone (libeeprom). Fields are addressed by the row
// index of the factory field table; values are NUL-terminated texts.
#ifdef __cplusplus
extern "C" {
#endif

/** @return the field's index (0..33), or -1 when the name is unknown. */
int eeprom_nameToIndex(const char* name);

/**
 * Reads field @p index into @p buffer of @p length bytes.
 * @return 0 on success with the value NUL-terminated within @p length;
 *         negative on failure, with errno set.
 */
int eeprom_read(int index, char* buffer, int length);

/** Stores the NUL-terminated @p value in field @p index. @return negative on failure. */
int eeprom_write(int index, const char* value);

/**
 * Sets the store's access mode. Mode 0 switches the device into production
 * mode, which the store reports as a non-zero OPERATIONAL_MODE.
 * @return negative on failure.
 */
int eeprom_set_rw_mode(int mode);

#ifdef __cplusplus
}
#endif
