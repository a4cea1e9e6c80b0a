#pragma once

namespace CLI {
class App;
}

// Every command turns its arguments into one or a few calls of the library; it throws UsageError for an
// argument that cannot be right and Refused for what the library or the system refuses.
namespace tool {

void add_digest_commands(CLI::App& app);
void add_hash_command(CLI::App& app);
void add_cipher_commands(CLI::App& app);
void add_seal_commands(CLI::App& app);
void add_wrap_commands(CLI::App& app);
void add_encode_commands(CLI::App& app);
void add_random_command(CLI::App& app);
void add_key_commands(CLI::App& app);
void add_key_make_command(CLI::App& group);
void add_key_convert_command(CLI::App& group);
void add_sign_commands(CLI::App& app);
void add_rsa_commands(CLI::App& app);
void add_agree_command(CLI::App& app);
void add_kdf_commands(CLI::App& app);
void add_ca_commands(CLI::App& app);
void add_cert_commands(CLI::App& app);
void add_cert_make_commands(CLI::App& group);
void add_cert_path_command(CLI::App& group);
void add_request_commands(CLI::App& app);
void add_crl_commands(CLI::App& app);
void add_cms_commands(CLI::App& app);
void add_mail_commands(CLI::App& app);
void add_pfx_commands(CLI::App& app);
void add_pfx_make_command(CLI::App& group);
void add_pfx_extract_command(CLI::App& group);
void add_ocsp_commands(CLI::App& app);
void add_der_command(CLI::App& app);
void add_general_commands(CLI::App& app);
void add_doctor_command(CLI::App& app);
void add_help_commands(CLI::App& app);

int run_tool(int argc, char** argv); // (zul_main.cpp)

} // namespace tool
