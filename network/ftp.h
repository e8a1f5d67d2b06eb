#pragma once
// FTP transfers and the regulatory label, as the shell calls them.
#include "common/handler.h"

FT_NOT_BUILT_YET int sendFTP(const char* user, const char* password, const char* local_file, const char* dest_file,
                             const char* server);
FT_NOT_BUILT_YET int getFTP(const char* user, const char* password, const char* local_path, const char* remote_path,
                            const char* server);
FT_NOT_BUILT_YET int velor_regulatory(const char* user, const char* password, const char* remote_path,
                                      const char* server);
