#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "ca_commands.h"
#include "ca_index.h"
#include "certificates.h"
#include "description_options.h"
#include "json_output.h"
#include "letters.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

// NewFolder is made beside its place and takes it in one step when it is complete.
class NewFolder {
  public:
    explicit NewFolder(const std::string& place) : place_(place), made_(place + ".new-" + random_serial()) {
        std::error_code error;
        if (!std::filesystem::create_directory(path_of(made_), error))
            throw Refused::by_system(CREATE_ERROR, place);
        std::filesystem::permissions(path_of(made_), std::filesystem::perms::owner_all, error);
        std::filesystem::create_directory(path_of(made_ + "/issued"), error);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;
    ~NewFolder() {
        std::error_code ignored;
        for (const char* key : {"/root.key", "/ca.key"})
            if (is_on_disk(made_ + key))
                WIPE_File((made_ + key).c_str(), 0);
        std::filesystem::remove_all(path_of(made_), ignored);
    }

    AuthorityFolder folder() const { return AuthorityFolder(made_); }
    void keep() const {
        std::error_code error;
        std::filesystem::remove(path_of(place_), error); // an empty folder, if there is one
        std::filesystem::rename(path_of(made_), path_of(place_), error);
        if (error)
            throw Refused::by_system(CREATE_ERROR, place_);
    }

  private:
    std::string place_, made_;
};

// value_of gives the value of a keyword in a text of read_name as it stands there, empty if it is not there.
std::string value_of(const std::string& name, const std::string& keyword, size_t* place = nullptr) {
    for (size_t at = 0; at < name.size();) {
        const size_t value = name.find('=', at) + 1;
        size_t end = value;
        if (end < name.size() && name[end] == '\'') {
            for (end++; end < name.size() && name[end] != '\''; end++)
                end += name[end] == '\\' ? size_t{1} : size_t{0};
            end++;
        } else {
            end = std::min(name.find(';', end), name.size());
        }
        if (lower_ascii(name.substr(at, value - 1 - at)) == keyword) {
            if (place != nullptr)
                *place = value;
            return name.substr(value, end - value);
        }
        at = end + 1;
    }
    return {};
}

std::string with_suffix(std::string value, const std::string& suffix) {
    constexpr size_t kMost = 48; // a common name has 64 characters
    if (value.empty() || value.size() > kMost || value.starts_with('#'))
        return suffix;
    value.insert(value.ends_with('\'') ? value.size() - 1 : value.size(), " " + suffix);
    return value;
}

// authority_name puts "Root CA" or "Issuing CA" behind the common name of an authority, or behind that of its
// organization.
std::string authority_name(std::string name, const std::string& suffix) {
    size_t place = 0;
    const std::string common = value_of(name, "cn", &place);
    if (!common.empty())
        return name.replace(place, common.size(), with_suffix(common, suffix));
    return name + ";CN=" + with_suffix(value_of(name, "o"), suffix);
}

struct CaInitCommand {
    std::string folder, name, type = "p-256", url, ocsp;
    int rootYears = 20, years = 10;
    bool noPassword = false, json = false;
    PasswordOption password;

    void check() {
        while (folder.size() > 1 && (folder.ends_with('/') || folder.ends_with(preferred_separator())))
            folder.pop_back();
        if (lower_ascii(type) == "x25519" || KEY_Make(nullptr, 0, type.c_str(), 0) < 0)
            throw UsageError("unknown type " + in_quotes(type) +
                             "; types: p-256, p-384, p-521, ed25519, rsa (3072 bits), rsa-4096 and the like");
        if (noPassword && password.is_given())
            throw UsageError("--no-password and a password exclude each other");
        if (years >= rootYears)
            throw UsageError("--years is less than --root-years");
        std::error_code error;
        if (std::filesystem::exists(path_of(folder), error) &&
            !(std::filesystem::is_directory(path_of(folder), error) &&
              std::filesystem::is_empty(path_of(folder), error)))
            throw Refused::by_system(CREATE_ERROR, folder, "It exists already, and is no empty folder.");
    }
    static char preferred_separator() {
        return static_cast<char>(std::filesystem::path::preferred_separator);
    }

    AuthoritySettings settings() const {
        AuthoritySettings result;
        const std::string base = url.empty() || url.ends_with('/') ? url : url + "/";
        if (!base.empty()) {
            result.set(AuthoritySettings::kCrl, base + "ca.crl");
            result.set(AuthoritySettings::kIssuers, base + "ca.cer");
            result.set(AuthoritySettings::kRootCrl, base + "root.crl");
            result.set(AuthoritySettings::kRootIssuers, base + "root.cer");
        }
        if (!ocsp.empty())
            result.set(AuthoritySettings::kOcsp, ocsp);
        return result;
    }

    Description description(const std::string& subject, const char* suffix, int validity) const {
        Description text;
        text.pair("subject", authority_name(subject, suffix));
        text.pair("profile", "ca");
        text.pair("valid", std::to_string(validity) + "y");
        return text;
    }

    void run() {
        check();
        const std::string subject = read_name(name, NameForm::any).text;
        const SecretBytes secret =
            noPassword ? SecretBytes() : password.read_new("the keys of the authority");
        const Key root = Key::make(type), issuing = Key::make(type);
        const NewFolder made(folder);
        const AuthorityFolder files = made.folder();
        for (const auto& [signer, key] : {std::pair(kRoot, &root), std::pair(kIssuing, &issuing)})
            save_private_key(files.file(signer + ".key"), *key, secret);
        const AuthoritySettings chosen = settings();

        accept_status(CERT_SelfSign(files.file("root.pem").c_str(), root.text(),
                                    description(subject, "Root CA", rootYears).c_str(), 0),
                      "root certificate");
        Description contents = description(subject, "Issuing CA", years);
        contents.pair("pathLength", "0");
        contents.text(chosen.sources(kRoot));
        accept_status(CERT_Issue(files.file("ca.pem").c_str(), files.file("root.pem").c_str(), root.text(),
                                 issuing.text(), contents.c_str(), 0),
                      "certificate of the issuing authority");
        for (const Signer& signer : {kRoot, kIssuing})
            write_file(files.file(signer + ".cer"), der_of(files.file(signer + ".pem")));

        write_text(files.file("index.txt"), kIndexHead);
        const IndexLine line = IndexLine::of(files.file("ca.pem"), kRoot, "ca");
        index_append(files, line);
        write_file(files.issued(line.serial), Input(files.file("ca.pem")).read_all());
        write_text(files.file("settings.txt"), chosen.text());
        files.make_list(kRoot, root, "", chosen.list_days(kRoot), true);
        files.make_list(kIssuing, issuing, "", chosen.list_days(kIssuing), true);
        made.keep();
        tell();
    }

    static void write_text(const std::string& file, const std::string& text) {
        Output output(file);
        output.write(text);
        output.finish();
    }
    void tell() const {
        JsonObject object;
        object.add_file("folder", folder).add_file("certificate", folder + "/root.cer");
        object.add("rootYears", rootYears).add("years", years);
        print_report(json, object,
                     "made " + folder + ": a root and an issuing authority, valid for " +
                         std::to_string(rootYears) + " and " + std::to_string(years) + " years\n" +
                         "install root.cer where certificates shall be trusted; keep root.key safe\n");
    }
};

} // namespace

void add_ca_init_command(CLI::App& group) {
    auto init = std::make_shared<CaInitCommand>();
    CLI::App* command =
        group.add_subcommand("init", "Make an authority: a root and an issuing authority below it");
    command->add_option("DIR", init->folder, "Folder to make")->required()->option_text(" ");
    command->add_option("--name", init->name, "Needed: its name, as \"C=AU;O=Example\"")
        ->required()
        ->option_text("NAME");
    command
        ->add_option("--type", init->type, "Keys: p-256 (the default), p-384, p-521, ed25519, rsa or rsa-N")
        ->option_text("TYPE");
    init->password.add_to(*command, "password", "Password for both keys");
    command->add_flag("--no-password", init->noPassword, "Weak: the keys are not encrypted");
    command->add_option("--url", init->url, "Where *.cer and *.crl of the folder are published")
        ->option_text("URL");
    command->add_option("--ocsp-url", init->ocsp, "OCSP responder of the issuing authority")
        ->option_text("URL");
    command->add_option("--years", init->years, "Validity of the issuing authority (10)")
        ->check(CLI::Range(1, 1000))
        ->option_text("N");
    command->add_option("--root-years", init->rootYears, "Validity of the root (20)")
        ->check(CLI::Range(1, 1000))
        ->option_text("N");
    add_json_flag(*command, init->json);
    command->footer(
        "The names are NAME with a CN that ends with \"Root CA\" and \"Issuing CA\". Browsers take no\n"
        "certificates of Ed25519. The folder appears when all of it is made. settings.txt there has the\n"
        "URLs and days, and may be edited.\n\nExample:\n"
        "  zul ca init pki --name \"C=AU;O=Example\" --url http://pki.example/");
    command->callback([init] { init->run(); });
}

} // namespace tool
