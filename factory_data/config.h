#pragma once
// Factory-data commands: info, program and production, and the identity block
// of the certificate command.

// Prints one field as NAME = "value" under @p label (the field's own name when
// label is null). 0 when printed, -1 when the name is unknown or the read fails.
int doRead(const char* field, const char* label);

int config_info();
int config_program_write(const char* field, const char* value);
int config_program_writecommit(const char* field, const char* value);
int config_program_commit();
int config_program_list(const char* target);
int config_program_read(const char* field);
int config_program_reset(const char* target);
int config_production(const char* action);
int config_print_fact_cert_info(const char* thumbprint);
