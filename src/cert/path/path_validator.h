#pragma once
#include "cert/path/path_conditions.h"
#include "cert/path/path_outcome.h"

// Validation of a path (RFC 5280, 6.1), policies as RFC 9618 has them.
namespace zul {

class Evidence;

// PathValidator checks paths under the same conditions. Without evidence and signers no status is asked for.
class PathValidator {
  public:
    PathValidator(const PathConditions& conditions, PathBudget& budget, Evidence* evidence = nullptr,
                  CrlSigners* signers = nullptr)
        : conditions_(conditions), budget_(budget), evidence_(evidence), signers_(signers) {}

    // run checks a path that make_path has made, of an anchor and one certificate at least. The codes of a
    // refusal stand with CERT_CheckPath in zulcore.h. The thread's error text stays empty.
    void run(const Array<PathStep>& path, PathOutcome& outcome);

  private:
    struct State;

    // LeafCheck keeps a result that depends on the end entity alone: many paths begin with it.
    struct LeafCheck {
        const CertRecord* record = nullptr;
        int code = 0;
        SecretBuffer text;
    };
    template<class Check>
    [[nodiscard]] static int once(LeafCheck& known, const CertRecord& record, Check check);

    [[nodiscard]] bool check_anchor(State& state);
    [[nodiscard]] bool check_certificate(State& state, size_t i);
    [[nodiscard]] bool check_authority(State& state, size_t i);
    [[nodiscard]] bool check_purpose(State& state, size_t i);
    [[nodiscard]] bool check_web(State& state, size_t i);
    [[nodiscard]] bool check_names(State& state, size_t i);
    [[nodiscard]] bool check_policies(State& state, size_t i);
    [[nodiscard]] bool finish_policies(State& state);
    [[nodiscard]] bool check_subject_names(State& state, size_t i);
    [[nodiscard]] int subject_names_code(const CertRecord& record) const;
    [[nodiscard]] bool check_status(State& state, size_t i);

    const PathConditions& conditions_;
    PathBudget& budget_;
    Evidence* evidence_;
    CrlSigners* signers_;
    LeafCheck purpose_, web_, subjectName_;
};

} // namespace zul
