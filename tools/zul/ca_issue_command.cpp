#include <CLI/CLI.hpp>
#include <memory>

#include "ca_commands.h"
#include "ca_index.h"
#include "certificates.h"
#include "description_options.h"
#include "json_output.h"
#include "key_output.h"
#include "letters.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

// Removed is a file that goes again unless all goes well.
class Removed {
  public:
    explicit Removed(const std::string& file) : file_(file) {}
    Removed(const Removed&) = delete;
    Removed& operator=(const Removed&) = delete;
    ~Removed() {
        std::error_code ignored;
        if (!isKept_)
            std::filesystem::remove(path_of(file_), ignored);
    }
    void keep() { isKept_ = true; }
    void rename(const std::string& name) {
        std::error_code error;
        std::filesystem::rename(path_of(file_), path_of(name), error);
        if (error)
            throw Refused::by_system(CREATE_ERROR, name);
        file_ = name;
    }

  private:
    std::string file_;
    bool isKept_ = false;
};

struct CaIssueCommand {
    std::string folder, out, profile = "server", subject, request, publicKey, type;
    std::vector<std::string> copies;
    int days = 0;
    bool noPassword = false, json = false;
    const CLI::App* command = nullptr;
    DescriptionOptions described;
    PasswordOption password, newPassword;
    ReplaceOption replace;

    bool is_new_key() const { return request.empty() && publicKey.empty(); }
    std::string stem() const { return out.ends_with(".pem") ? out.substr(0, out.size() - 4) : out; }
    std::string certificate_file() const { return stem() + ".pem"; }
    std::string chain_file() const { return stem() + "-chain.pem"; }
    std::string key_file() const { return stem() + ".key"; }
    Signer signer() const { return profile == "ca" ? kRoot : kIssuing; }

    void check() {
        profile = lower_ascii(profile);
        if (type.empty()) // messages (CMS) are for RSA keys
            type = profile == "email" ? "rsa" : "p-256";
        if (!request.empty() && !publicKey.empty())
            throw UsageError("--request and --public-key exclude each other");
        if (request.empty() && !copies.empty())
            throw UsageError("--copy takes over what a request asks for");
        if (request.empty() && subject.empty() && !described.has_names() && described.describe.empty())
            throw UsageError("say for whom: --dns, --ip, --email, --uri or --subject");
        if (!is_new_key())
            for (const char* option : {"--type", "--no-password", "--new-password", "--new-password-file"})
                if (command->count(option) > 0)
                    throw UsageError(std::string(option) + " is for a new key; here the key is given");
        if (noPassword && newPassword.is_given())
            throw UsageError("--no-password and a new password exclude each other");
        if (is_new_key() && KEY_Make(nullptr, 0, type.c_str(), 0) < 0)
            throw UsageError("unknown type " + in_quotes(type) +
                             "; types: p-256, p-384, p-521, ed25519, x25519, "
                             "rsa (3072 bits), rsa-4096 and the like");
        if (is_standard_stream(out))
            throw UsageError("-o is the beginning of the names of files");
        refuse_shared_input({is_standard_stream(request), is_standard_stream(publicKey),
                             password.is_standard_input(), newPassword.is_standard_input()});
    }

    void check_outputs(const AuthorityFolder& files) const {
        std::vector<std::string> outputs = {certificate_file(), chain_file()};
        if (is_new_key())
            outputs.push_back(key_file());
        std::error_code ignored;
        const std::filesystem::path parent = path_of(stem()).parent_path();
        if (!parent.empty() && !std::filesystem::is_directory(parent, ignored))
            throw Refused::by_system(CREATE_ERROR, certificate_file());
        for (const std::string& each : outputs) {
            files.refuse_output(each);
            password.refuse_output(each);
            newPassword.refuse_output(each);
            for (const std::string& in : {request, publicKey})
                if (!in.empty())
                    refuse_same_file(in, each, "The output would replace the input.");
            replace.for_public(each);
        }
        if (is_new_key())
            replace.for_private(key_file());
    }

    Description description(const AuthoritySettings& settings) const {
        Description text;
        if (!subject.empty())
            text.pair("subject", read_name(subject, NameForm::any).text);
        else if (request.empty() && described.describe.empty())
            text.text(usual_subject());
        text.pair("profile", profile);
        if (profile == "ca")
            text.pair("pathLength", "0");
        const int span = days > 0 ? days : profile == "ca" ? 0 : settings.number(AuthoritySettings::kDays);
        if (span > 0)
            text.pair("days", std::to_string(span));
        described.put(text);
        text.list("copy", copies);
        text.text(settings.sources(signer()));
        return text;
    }

    // The first name is the common name too, for programs that show nothing else.
    std::string usual_subject() const {
        constexpr size_t kMost = 64;
        for (const auto* names : {&described.dns, &described.ip, &described.email, &described.uri})
            if (!names->empty())
                return names->front().size() > kMost ? "" : "CN=" + quote_value(names->front());
        return {};
    }

    void run() {
        check();
        const AuthorityFolder files = AuthorityFolder::open(folder);
        const AuthoritySettings settings(files);
        check_outputs(files);
        const std::string text = description(settings).c_str();
        const std::unique_ptr<RequestArgument> asked =
            request.empty() ? nullptr : std::make_unique<RequestArgument>(request);
        const Key given = publicKey.empty() ? Key() : Key::read(publicKey, {}).without_private();
        const Key signingKey = files.key(signer(), password);
        const SecretBytes secret =
            is_new_key() && !noPassword ? newPassword.read_new(in_quotes(key_file())) : SecretBytes();
        const Key made = is_new_key() ? Key::make(type) : Key();
        const char* certified = asked ? asked->text() : is_new_key() ? made.text() : given.text();
        if (asked)
            asked->warn_of_extensions(copies);
        issue(files, signingKey, certified, text, made, secret);
    }

    // The key's file comes first: without it the certificate is of no use. Then the index: what is out stands
    // there.
    void issue(const AuthorityFolder& files, const Key& signingKey, const char* certified,
               const std::string& text, const Key& made, const SecretBytes& secret) const {
        const AuthorityLock lock(files);
        const std::string issuer = files.file(signer() + ".pem"), fresh = files.file(AuthorityFolder::kNew);
        Removed copy(fresh);
        accept_status(
            CERT_Issue(fresh.c_str(), issuer.c_str(), signingKey.text(), certified, text.c_str(), 0),
            "certificate");
        const IndexLine line = IndexLine::of(fresh, signer(), profile);
        const bool isThere = !is_new_key() || is_on_disk(key_file());
        std::unique_ptr<Removed> keyFile = isThere ? nullptr : std::make_unique<Removed>(key_file());
        if (is_new_key())
            save_private_key(key_file(), made, secret);
        copy.rename(files.issued(line.serial));
        index_append(files, line);
        copy.keep();
        if (keyFile)
            keyFile->keep();

        SecretBytes chain = Input(files.issued(line.serial)).read_all();
        write_file(certificate_file(), chain);
        if (signer() == kIssuing) {
            const SecretBytes above = Input(issuer).read_all();
            chain.insert(chain.end(), above.begin(), above.end());
        }
        write_file(chain_file(), chain);
        JsonObject object;
        object.add("serialNumber", line.serial).add("notAfter", line.until).add("profile", profile);
        object.add_file("certificate", certificate_file()).add_file("chain", chain_file());
        if (is_new_key())
            object.add_file("key", key_file());
        print_report(json, object,
                     "issued " + line.serial + " until " + line.until + ": " + certificate_file() + ", " +
                         chain_file() + (is_new_key() ? ", " + key_file() : "") + "\n");
    }
};

} // namespace

void add_ca_issue_command(CLI::App& group) {
    auto issue = std::make_shared<CaIssueCommand>();
    CLI::App* command = group.add_subcommand("issue", "Issue a certificate, if need be with a new key");
    issue->command = command;
    command->add_option("DIR", issue->folder, "Folder of the authority")->required()->option_text(" ");
    command->add_option("-o,--out", issue->out, "Needed: writes OUT.pem, OUT-chain.pem and, if new, OUT.key")
        ->required()
        ->option_text("OUT");
    command
        ->add_option("--profile", issue->profile,
                     "server (the default), client, email, code, ocsp, timestamp or ca")
        ->option_text("PROFILE");
    command
        ->add_option("-s,--subject", issue->subject,
                     "Name, as \"C=AU;CN=Alice\" (the first --dns or other name)")
        ->option_text("NAME");
    issue->described.add_to(*command);
    command->add_option("--days", issue->days, "How long it is valid (as settings.txt says: 90; ca 10 years)")
        ->check(CLI::Range(1, 365000))
        ->option_text("N");
    issue->password.add_to(*command, "password", "Password of the authority's key");
    command->add_option("--request", issue->request, "A request brings the key, and a name")
        ->option_text("FILE");
    command
        ->add_option("--copy", issue->copies,
                     "Extensions of the request to take over: subjectAltName, keyUsage, extKeyUsage, ...")
        ->allow_extra_args(false)
        ->delimiter(',')
        ->option_text("LIST");
    command->add_option("--public-key", issue->publicKey, "Instead of a new key: this one")
        ->option_text("FILE");
    command
        ->add_option("--type", issue->type,
                     "New key: p-256 (the default), p-384, p-521, ed25519, rsa (for e-mail) or rsa-N")
        ->option_text("TYPE");
    issue->newPassword.add_to(*command, "new-password", "Password for the new key");
    command->add_flag("--no-password", issue->noPassword,
                      "The new key is not encrypted: many servers need that");
    issue->replace.add_to(*command);
    add_json_flag(*command, issue->json);
    command->footer(
        "OUT-chain.pem has the certificate and that of the issuing authority, as servers send them. With\n"
        "the profile ca the root signs: another issuing authority. What settings.txt says is in every\n"
        "certificate. The index has the certificate before it is written.\n\nExample:\n"
        "  zul ca issue pki --dns www.example.com --dns example.com --no-password -o www\n"
        "  zul ca issue pki --profile email --email alice@example.com --request alice.req -o alice");
    command->callback([issue] { issue->run(); });
}

} // namespace tool
