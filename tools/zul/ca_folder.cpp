#include "ca_folder.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <thread>
#include <vector>

#include "certificates.h"
#include "description_options.h"
#include "operating_system.h"
#include "streams.h"

namespace tool {

namespace {

struct SettingRow {
    const char *keyword, *usual, *meaning;
};
constexpr SettingRow kSettings[] = {
    {AuthoritySettings::kCrl, "", "where ca.crl can be fetched"},
    {AuthoritySettings::kIssuers, "", "where ca.cer can be fetched"},
    {AuthoritySettings::kOcsp, "", "the OCSP responder"},
    {AuthoritySettings::kRootCrl, "", "where root.crl can be fetched"},
    {AuthoritySettings::kRootIssuers, "", "where root.cer can be fetched"},
    {AuthoritySettings::kDays, "90", "how long certificates are valid"},
    {AuthoritySettings::kListDays, "30", "when the list after a ca.crl is due"},
    {AuthoritySettings::kRootListDays, "365", "when the list after a root.crl is due"},
};

const SettingRow* find_setting(std::string_view keyword) {
    const auto* row = std::find_if(std::begin(kSettings), std::end(kSettings),
                                   [keyword](const SettingRow& each) { return keyword == each.keyword; });
    return row == std::end(kSettings) ? nullptr : row;
}

std::string_view without_blanks(std::string_view text) {
    constexpr const char* kBlanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// remove_remains removes what a command left that was killed while it wrote.
void remove_remains(const AuthorityFolder& folder) {
    std::error_code error;
    std::vector<std::filesystem::path> remains;
    for (const auto& entry : std::filesystem::directory_iterator(path_of(folder.name()), error)) {
        const std::string name = entry.path().filename().string();
        const bool isOurs =
            name.starts_with("ca.crl.") || name.starts_with("root.crl.") || name.starts_with("new.pem.");
        if (name == AuthorityFolder::kNew || (isOurs && name.ends_with(".tmp")))
            remains.push_back(entry.path());
    }
    for (const std::filesystem::path& each : remains)
        std::filesystem::remove(each, error);
}

} // namespace

AuthorityFolder AuthorityFolder::open(const std::string& folder) {
    AuthorityFolder result(folder);
    if (!is_on_disk(result.file("ca.pem")) || !is_on_disk(result.file("index.txt")))
        throw Refused::by_system(OPEN_ERROR, folder,
                                 "This is not the folder of an authority; 'zul ca init' makes one.");
    return result;
}

void AuthorityFolder::refuse_output(const std::string& out) const {
    for (const char* each : {"root.key", "root.pem", "root.cer", "root.crl", "ca.key", "ca.pem", "ca.cer",
                             "ca.crl", "index.txt", "settings.txt", "lock"})
        refuse_same_file(file(each), out, "The output would replace a file of the authority.");
}

Key AuthorityFolder::key(const Signer& signer, const PasswordOption& password) const {
    Key key = Key::read(file(signer + ".key"), password);
    if (!key.is_private())
        throw Refused::by_system(BAD_FORMAT_ERROR, file(signer + ".key"), "This is no private key.");
    key.check(file(signer + ".key"));
    return key;
}

void AuthorityFolder::make_list(const Signer& signer, const Key& key, const std::string& revoked, int days,
                                bool isFirst) const {
    const std::string list = file(signer + ".crl"), certificate = file(signer + ".pem");
    Description text;
    text.pair("days", std::to_string(days));
    if (isFirst)
        text.pair("number", "1");
    else if (!is_on_disk(list)) // a new list would forget who is revoked
        throw Refused::by_system(OPEN_ERROR, list, "The list that the new one has to continue is missing.");
    accept_status(CERT_IssueCRL(list.c_str(), certificate.c_str(), key.text(),
                                isFirst ? nullptr : list.c_str(), revoked.c_str(), text.c_str(),
                                ZUL_CERT_DER),
                  list);
}

void save_private_key(const std::string& file, const Key& key, const SecretBytes& password) {
    accept_status(KEY_Save(file.c_str(), key.text(), password.empty() ? nullptr : as_text(password), nullptr,
                           ZUL_KEY_FORMAT_PEM),
                  file);
}

AuthorityLock::AuthorityLock(const AuthorityFolder& folder) {
    constexpr int kTries = 200;
    constexpr std::chrono::milliseconds kPause{50};
    const std::string name = folder.file("lock");
    file_ = std::fopen(name.c_str(), "ab");
    if (file_ == nullptr)
        throw Refused::by_system(CREATE_ERROR, name);
    for (int i = 0; !lock_file(file_); ++i) {
        if (i == kTries) {
            static_cast<void>(std::fclose(file_));
            throw Refused::by_system(CREATE_ERROR, name, "Another command is at work in this folder.");
        }
        std::this_thread::sleep_for(kPause);
    }
    remove_remains(folder);
}

AuthorityLock::~AuthorityLock() {
    static_cast<void>(std::fclose(file_)); // which gives up the lock
}

AuthoritySettings::AuthoritySettings(const AuthorityFolder& folder) {
    const std::string name = folder.file("settings.txt");
    const SecretBytes content = Input(name).read_all();
    std::string_view rest(as_text(content), content.size());
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view line = without_blanks(rest.substr(0, rest.find('\n')));
        rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
        if (line.empty() || line[0] == '#')
            continue;
        const size_t equals = std::min(line.find('='), line.size());
        const std::string keyword(without_blanks(line.substr(0, equals)));
        if (equals == line.size() || find_setting(keyword) == nullptr)
            throw Refused::by_system(BAD_FORMAT_ERROR, name,
                                     "Line " + std::to_string(number) + " is no setting.");
        values_[keyword] = without_blanks(line.substr(equals + 1));
    }
    for (const char* keyword : {kDays, kListDays, kRootListDays})
        if (number(keyword) < 1)
            throw Refused::by_system(BAD_FORMAT_ERROR, name, std::string(keyword) + " is a number of days.");
}

std::string AuthoritySettings::get(const std::string& keyword) const {
    const auto found = values_.find(keyword);
    return found != values_.end() ? found->second : find_setting(keyword)->usual;
}

int AuthoritySettings::number(const std::string& keyword) const {
    const std::string text = get(keyword);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : -1;
}

std::string AuthoritySettings::sources(const Signer& signer) const {
    Description text;
    const auto add = [&](const char* keyword, const char* setting) {
        if (const std::string value = get(setting); !value.empty())
            text.pair(keyword, value);
    };
    add("crl", signer == kRoot ? kRootCrl : kCrl);
    add("caIssuers", signer == kRoot ? kRootIssuers : kIssuers);
    if (signer != kRoot)
        add("ocsp", kOcsp);
    return text.c_str();
}

std::string AuthoritySettings::text() const {
    std::string text = "# What 'zul ca' puts into certificates and lists of this authority.\n";
    for (const SettingRow& row : kSettings)
        text += std::string("\n# ") + row.meaning + "\n" + (get(row.keyword).empty() ? "#" : "") +
                row.keyword + "=" + get(row.keyword) + "\n";
    return text;
}

} // namespace tool
