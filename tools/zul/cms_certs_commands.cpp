#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cms_message.h"
#include "json_output.h"
#include "streams.h"

namespace tool {

namespace {

struct MakeCertsCommand {
    std::vector<std::string> files;
    std::string out;
    bool pem = false;

    void run() const {
        if (std::count(files.begin(), files.end(), "-") > 1)
            refuse_shared_input({true, true});
        for (const std::string& file : files)
            refuse_same_file(file, out, "The output would replace the input.");
        std::vector<Certificate> certificates;
        for (const std::string& file : files)
            add_certificates(certificates, file);
        check_list(certificates.size());
        const ScratchFile made;
        accept_status(CMS_MakeSigData(made.path(), nullptr, certificate_list(certificates).c_str(), nullptr,
                                      ZUL_CMS_CERTS_ONLY | (pem ? ZUL_CMS_FORMAT_BASE64 : 0)),
                      "message");
        made.deliver(out);
    }
};

struct ListCertsCommand {
    std::string file;
    bool json = false;

    void run() const {
        const Message message(file);
        const int count = message.certificate_count();
        std::string text;
        JsonArray list;
        for (int i = 1; i <= count; ++i) {
            const Certificate each = message.certificate(i);
            const bool isReadable = each.number("version") >= 0;
            JsonObject object;
            object.add("number", i).add("isReadable", isReadable);
            text += std::to_string(i);
            for (const char* name : {"serialNumber", "notAfter", "subjectName", "issuerName"}) {
                const std::string value = isReadable ? query(each.argument, name) : "?";
                text += "\t" + value;
                if (isReadable)
                    object.add(name, value);
            }
            text += "\n";
            list.add(object);
        }
        print_report(json, JsonObject().add_file("file", file).add("certificates", list), text);
    }
};

struct ExtractCertsCommand {
    std::string file, out = "-";
    int index = 0;
    bool der = false;

    static SecretBytes pem(const Certificate& certificate) {
        const ScratchFile one, armoured;
        write_file(one.path(), certificate.der);
        accept_length(PEM_FileFromBinFile(armoured.path(), one.path(), "CERTIFICATE", 64),
                      certificate.name());
        return Input(armoured.path()).read_all();
    }

    void run() const {
        if (der && index == 0)
            throw UsageError("--der writes one certificate; choose it with --index N");
        refuse_same_file(file, out, "The output would replace the input.");
        const Message message(file);
        const int count = message.certificate_count();
        if (count == 0)
            throw Refused::by_system(NO_DATA_ERROR, message.name(), "It carries no certificates.");
        SecretBytes all;
        for (int i = index == 0 ? 1 : index; i <= (index == 0 ? count : index); ++i) {
            const Certificate each = message.certificate(i);
            const SecretBytes form = der ? each.der : pem(each);
            all.insert(all.end(), form.begin(), form.end());
        }
        Output output(out);
        output.write(all);
        output.finish();
    }
};

} // namespace

void add_cms_certs_commands(CLI::App& app) {
    CLI::App* group =
        app.add_subcommand("certs", "Make a message of certificates alone, list them or take them out");
    group->require_subcommand(1);
    group->footer("Example:\n  zul cms certs make alice.pem ca.pem -o chain.p7b\n"
                  "  zul cms certs extract chain.p7b -o chain.pem");

    auto make = std::make_shared<MakeCertsCommand>();
    CLI::App* command = group->add_subcommand("make", "Make a message of certificates alone (p7b, p7c)");
    command->add_option("CERT", make->files, "The certificates, 10 at most; of a bundle or PEM all")
        ->required()
        ->option_text(" ");
    command->add_option("-o,--out", make->out, "Needed: output file; - for standard output")
        ->required()
        ->option_text("FILE");
    command->add_flag("--pem", make->pem, "Write PEM (PKCS7) instead of DER");
    command->footer("Example:\n  zul cms certs make alice.pem ca.pem -o chain.p7b");
    command->callback([make] { make->run(); });

    auto extract = std::make_shared<ExtractCertsCommand>();
    command = group->add_subcommand("extract", "Take certificates out of a message");
    command->add_option("MESSAGE", extract->file, "A signed message or a p7b; - for standard input")
        ->required()
        ->option_text(" ");
    command->add_option("-n,--index", extract->index, "The N-th certificate alone, from 1 (all, as PEM)")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()))
        ->option_text("N");
    command->add_flag("--der", extract->der, "Write DER, of one certificate");
    command->add_option("-o,--out", extract->out, "Output file (standard output)")->option_text("FILE");
    command->footer("Nothing is checked: anybody can put a certificate into a message.\n\n"
                    "Example:\n  zul cms certs extract report.p7m --index 1 -o alice.pem");
    command->callback([extract] { extract->run(); });

    auto list = std::make_shared<ListCertsCommand>();
    command = group->add_subcommand("list", "List the certificates of a message");
    command->add_option("MESSAGE", list->file, "A signed message or a p7b; - for standard input")
        ->required()
        ->option_text(" ");
    add_json_flag(*command, list->json);
    command->footer(
        "Nothing is checked. Fields are parted by tabs: the N of 'zul cms certs extract', serial number,\n"
        "end of the validity, subject, issuer.\n\nExample:\n  zul cms certs list chain.p7b");
    command->callback([list] { list->run(); });

    for (CLI::App* each : group->get_subcommands([](const CLI::App*) { return true; }))
        each->group("Commands");
}

} // namespace tool
