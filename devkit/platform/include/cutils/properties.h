// SPDX-License-Identifier: Apache-2.0

// The part of Android's system properties that the plug-in calls.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

// Bytes of a property's value, the final zero included.
#define PROPERTY_VALUE_MAX 92

// Copies the value of the environment variable named `key`, cut to fit, to
// `value`, a buffer of PROPERTY_VALUE_MAX bytes. Without that variable, or where
// it is empty, copies `default_value`; where that is null too, the empty text.
// Returns the length of what it copied. [any thread]
__attribute__((visibility("default"))) int property_get(const char* key, char* value,
                                                        const char* default_value);

#ifdef __cplusplus
}
#endif
