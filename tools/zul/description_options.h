#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

// Descriptions of certificates, requests and revocation lists, as the CERT_ functions take them.
namespace tool {

class Description {
  public:
    // The values of pair and list are quoted: none of them can bring another keyword.
    void pair(const std::string& keyword, std::string_view value);
    void list(const std::string& keyword, const std::vector<std::string>& values);
    void flag(const std::string& keyword) { text(keyword); }
    void text(const std::string& pairs); // as the user wrote them; nothing if empty

    const char* c_str() const { return text_.c_str(); }

  private:
    std::string text_;
};

// DescriptionOptions are --dns, --ip, --email, --uri and --describe, each but the last as often as wanted.
struct DescriptionOptions {
    std::vector<std::string> dns, ip, email, uri;
    std::string describe;

    void add_to(CLI::App& command);
    void put(Description& description) const;
    bool has_names() const { return !(dns.empty() && ip.empty() && email.empty() && uri.empty()); }
    std::string names() const; // "dns:localhost,ip:127.0.0.1"
};

// refuse_period: a validity ends with at most one of --until, --years and --days.
void refuse_period(const std::string& until, int years, int days);

} // namespace tool
