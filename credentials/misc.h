#pragma once
// Factory certificate commands: "gencert" makes the device's key, self-signed
// certificate and PKCS#12 bundle; "regenfipscert" re-packs an existing bundle
// with the same protection settings "gencert" uses.
#include "credentials/fact_device_key.h"

int gen_self_signed_cert();
int regen_fips_signed_cert();

// Makes the certificate's SHA-256 fingerprint file and returns the text after
// its first '=' (newline included), or null. The file is removed again.
ft::cred::CText get_formatted_thumb_print();
