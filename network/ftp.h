#pragma once
// FTP transfers and the regulatory label, as the shell calls them.
int sendFTP(const char* user, const char* password, const char* local_file, const char* dest_file, const char* server);
int getFTP(const char* user, const char* password, const char* local_path, const char* remote_path, const char* server);
int velor_regulatory(const char* user, const char* password, const char* remote_path, const char* server);
