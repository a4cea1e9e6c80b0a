#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <memory>

#include "certificates.h"
#include "commands.h"
#include "failures.h"
#include "input_watch.h"
#include "json_output.h"
#include "key_option.h"
#include "key_output.h"
#include "letters.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

constexpr const char* kSuffix = ".age";
constexpr int kIdentityLength = 74, kRecipientLength = 62;

// KeyFiles are the names of files of recipients or identities.
struct KeyFiles {
    std::vector<std::string> names;

    // append_to makes them entries of a list of the library, which takes a text that begins like a key for
    // the key itself.
    void append_to(std::string& list) const {
        for (const std::string& name : names) {
            if (is_standard_stream(name) || name.find(';') != name.npos)
                throw UsageError("a file of keys is not standard input, and its name holds no semicolon");
            std::error_code ignored;
            if (!std::filesystem::exists(path_of(name), ignored))
                throw Refused::by_system(OPEN_ERROR, name);
            const std::string start = lower_ascii(name);
            const bool isLikeKey = start.starts_with("age1") || start.starts_with("age-secret-key-1");
            append_entry(list, (isLikeKey ? "./" : "") + name);
        }
    }
    void refuse_output(const std::string& out) const {
        for (const std::string& name : names)
            refuse_same_file(name, out, "The output would replace the keys.");
    }
    static void append_entry(std::string& list, const std::string& entry) {
        list += (list.empty() ? "" : ";") + entry;
    }
};

// SealedFile is what sealing and opening share.
struct SealedFile {
    std::string in, out;
    PasswordOption password;
    bool asks = false;
    ReplaceOption replace;

    void add_to(CLI::App& command, const std::string& outText) {
        command.add_flag("-p", asks, "Under a password, for which you are asked");
        password.add_to(command, "password", "Password", "-p");
        replace.add_to(command);
        command.add_option("IN", in, "Input file; - for standard input")->required()->option_text(" ");
        command.add_option("OUT", out, outText)->option_text(" ");
    }

    bool has_password() const { return asks || password.is_given(); }

    // settle_names takes the output's name from the input's if none is given: then it replaces no file.
    void settle_names(const std::string& derived, const KeyFiles& keys) {
        refuse_shared_input({is_standard_stream(in), password.is_standard_input()});
        if (out.empty()) {
            out = derived;
            replace.for_private(out);
        }
        keys.refuse_output(out);
    }

    SecretBytes read_password(bool isNew) const {
        password.refuse_output(out);
        if (!has_password())
            return SecretBytes(1);
        return isNew ? password.read_new(in) : password.read(in);
    }

    // perform makes a call of the library that reads IN and writes OUT.
    void perform(const std::function<int(int options)>& call) const {
        int result;
        bool hasRedirected;
        {
            std::error_code ignored;
            const bool isNew = !is_standard_stream(out) && !std::filesystem::exists(path_of(out), ignored);
            if (isNew) // what is replaced stays as it was until the end
                remove_on_signal("", out);
            const InputWatch watch(in, out);
            hasRedirected = watch.has_redirected();
            result = call((is_standard_stream(in) || hasRedirected ? ZUL_SEAL_STDIN : 0) |
                          (is_standard_stream(out) ? ZUL_SEAL_STDOUT : 0));
            keep_on_signal("", out);
        }
        // The library speaks of standard input then, which the user did not name.
        if (result == READ_ERROR && hasRedirected && last_error().find("standard input") != std::string::npos)
            throw Refused::by_system(READ_ERROR, in);
        accept(result);
    }

    void accept(int result) const {
        const bool isOutput = result == CREATE_ERROR || result == WRITE_ERROR;
        const std::string output = is_standard_stream(out) ? "standard output" : out;
        accept_status(result, isOutput ? output : in);
    }
};

struct SealCommand {
    SealedFile file;
    std::vector<std::string> recipients;
    KeyFiles recipientFiles;
    bool armour = false;

    std::string recipient_list() const {
        std::string list;
        for (const std::string& recipient : recipients) {
            if (!lower_ascii(recipient).starts_with("age1") || recipient.find(';') != recipient.npos)
                throw UsageError("-r takes a recipient, age1...; -R takes a file of them");
            KeyFiles::append_entry(list, recipient);
        }
        recipientFiles.append_to(list);
        return list;
    }

    void run() {
        const std::string list = recipient_list();
        if (list.empty() != file.has_password())
            throw UsageError("seal for recipients (-r, -R) or under a password (-p): one of the two");
        file.settle_names(is_standard_stream(file.in) ? "-" : file.in + kSuffix, recipientFiles);
        if (is_standard_stream(file.out) && !armour && output_is_terminal())
            throw UsageError("sealed bytes would disturb the terminal; use --armour, or name a file");
        const SecretBytes password = file.read_password(true);
        file.perform([&](int options) {
            return SEAL_File(file.out.c_str(), file.in.c_str(), list.c_str(), as_text(password),
                             options | (armour ? ZUL_SEAL_ARMOUR : 0));
        });
    }
};

struct OpenCommand {
    SealedFile file;
    KeyFiles identities;

    std::string derived_name() const {
        if (is_standard_stream(file.in))
            return "-";
        const size_t length = file.in.size() - std::min(file.in.size(), std::string_view(kSuffix).size());
        if (length == 0 || lower_ascii(file.in.substr(length)) != kSuffix)
            throw UsageError("IN does not end with .age, so OUT is needed");
        return file.in.substr(0, length);
    }

    void run() {
        std::string list;
        identities.append_to(list);
        if (list.empty() && !file.has_password())
            throw UsageError("what opens it? -i FILE for an identity, or -p for a password");
        file.settle_names(file.out.empty() ? derived_name() : "", identities);
        const SecretBytes password = file.read_password(false);
        file.perform([&](int options) {
            return SEAL_OpenFile(file.out.c_str(), file.in.c_str(), list.c_str(), as_text(password), options);
        });
    }
};

struct IdentityCommand {
    std::string file = "-";
    bool recipient = false, json = false;
    ReplaceOption replace;

    static std::string recipient_of(const char* identity, const std::string& subject) {
        char text[kRecipientLength + 1] = {};
        accept_length(SEAL_Recipient(text, kRecipientLength, identity), subject);
        return text;
    }

    void run() const {
        if (recipient) {
            if (is_standard_stream(file))
                throw UsageError("--recipient needs FILE");
            std::string list;
            KeyFiles{{file}}.append_to(list);
            print_recipient(recipient_of(list.c_str(), file));
            return;
        }
        if (json && is_standard_stream(file))
            throw UsageError("--json needs FILE: the identity itself goes to standard output");
        replace.for_private(file);
        std::error_code ignored;
        if (is_on_disk(file)) // others may have the right to read it
            std::filesystem::remove(path_of(file), ignored);
        SecretBytes identity(kIdentityLength + 1);
        accept_length(SEAL_MakeIdentity(reinterpret_cast<char*>(identity.data()), kIdentityLength, 0),
                      "identity");
        const std::string text = recipient_of(as_text(identity), "identity");
        identity.back() = '\n';
        Output output(file, true);
        output.write("# created: " + now_text(0) + "Z\n# public key: " + text + "\n");
        output.write(identity);
        output.finish();
        if (!is_standard_stream(file))
            print_recipient(text);
    }

    void print_recipient(const std::string& text) const {
        print_report(json, JsonObject().add_file("file", file).add("recipient", text), text + "\n");
    }
};

void add_seal_command(CLI::App& app) {
    auto seal = std::make_shared<SealCommand>();
    CLI::App* command = app.add_subcommand("seal", "Encrypt a file for recipients or under a password");
    command->add_option("-r,--recipient", seal->recipients, "A recipient; repeat it for more")
        ->allow_extra_args(false)
        ->option_text("age1...");
    command
        ->add_option("-R,--recipients-file", seal->recipientFiles.names,
                     "A file with a recipient in each line")
        ->allow_extra_args(false)
        ->option_text("FILE");
    command->add_flag("-a,--armour,--armor", seal->armour, "Write text");
    seal->file.add_to(*command, "Output file; - for standard output; without it IN and .age");
    command->footer(
        "The format is that of age. Every change is noticed, but nothing tells who sealed a file.\n\n"
        "Example:\n  zul seal -r $(zul identity my.key) report.pdf\n"
        "  zul open -i my.key report.pdf.age -");
    command->callback([seal] { seal->run(); });
}

void add_open_command(CLI::App& app) {
    auto open = std::make_shared<OpenCommand>();
    CLI::App* command = app.add_subcommand("open", "Decrypt a file that was sealed");
    command->add_option("-i,--identity", open->identities.names, "A file of identities; repeat it for more")
        ->allow_extra_args(false)
        ->option_text("FILE");
    open->file.add_to(*command, "Output file; - for standard output; without it IN less .age");
    command->footer(
        "A part of 64 KiB is written once it was found unchanged. Of a file that was cut or damaged\n"
        "further on a pipe has got the beginning, and the exit status alone tells.\n\n"
        "Example:\n  zul open -i my.key report.pdf.age report.pdf");
    command->callback([open] { open->run(); });
}

void add_identity_command(CLI::App& app) {
    auto identity = std::make_shared<IdentityCommand>();
    CLI::App* command = app.add_subcommand("identity", "Make an identity that opens sealed files");
    command->add_flag("--recipient", identity->recipient, "Print the recipient of the identity in FILE");
    identity->replace.add_to(*command);
    add_json_flag(*command, identity->json);
    command
        ->add_option("FILE", identity->file, "The file, for its owner alone; none or - for standard output")
        ->option_text(" ");
    command->footer("It prints the recipient, the public key for which others seal files.\n\n"
                    "Example:\n  zul identity my.key\n  zul identity --recipient my.key");
    command->callback([identity] { identity->run(); });
}

} // namespace

void add_seal_commands(CLI::App& app) {
    add_seal_command(app);
    add_open_command(app);
    add_identity_command(app);
}

} // namespace tool
