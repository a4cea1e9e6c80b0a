#include "cert/path/check_path.h"

#include "cert/names/name_print.h"
#include "cert/path/evidence.h"
#include "cert/path/path_report.h"
#include "cert/report/json_report.h"
#include "cert/report/text_report.h"
#include "frame/err.h"
#include "zulcore.h"

namespace zul {

namespace {

[[nodiscard]] int read_conditions(PathConditions& conditions, const CheckPathInput& input, bool hasEvidence) {
    if (const int error = path_conditions_read(conditions, input.conditions))
        return error;
    conditions.isWeb = (input.options & ZUL_CERT_WEB) != 0;
    conditions.nameOptions = input.options & ZUL_CERT_SUBJECT_NAME;
    if (!conditions.hasRevocation)
        conditions.revocation = hasEvidence ? RevocationDemand::all : RevocationDemand::none;
    return 0;
}

// read_leaf reads the first object of a list, which has to be a certificate.
[[nodiscard]] int read_leaf(CertRecord& leaf, const ObjectList& list) {
    if (list.size() == 0 || list[0].kind != ObjectKind::certificate)
        return err_fail(BAD_FORMAT_ERROR, "The first object is not a certificate");
    return leaf.read(list[0].der);
}

// result_of sets the thread's error text to what the best path failed for.
[[nodiscard]] int result_of(const PathSummary& summary) {
    const PathOutcome& best = summary.best;
    if (summary.code == 0)
        return 0;
    if (summary.isCutShort)
        err_add_text("Too much work: not all paths have been tried");
    if (best.records.empty())
        return summary.code;
    TextBuffer name;
    put_name(name, best.records[best.failedStep]->view.subject);
    return err_fail(summary.code, "%s: certificate %d of %d (%s)", best.text.text(),
                    static_cast<int>(best.failedStep + 1), static_cast<int>(best.records.size()),
                    name.c_str());
}

} // namespace

int check_path(const CheckPathInput& input, TextBuffer* report) {
    ObjectList leafList, others, trusted, evidenceList;
    PathConditions conditions;
    CertRecord leaf;
    CertPool pool;
    Evidence evidence;
    PathSummary summary;
    others.leave_out_unreadable();
    evidenceList.leave_out_unreadable();
    for (const auto& [list, argument] :
         {std::pair(&leafList, input.certificate), std::pair(&others, input.others),
          std::pair(&trusted, input.trusted), std::pair(&evidenceList, input.evidence)})
        if (const int error = list->add(argument))
            return error;
    if (const int error = read_conditions(conditions, input, evidenceList.size() > 0))
        return error;
    if (const int error = read_leaf(leaf, leafList))
        return error;
    // What comes with the end entity is its chain, as servers send it.
    pool.add(leafList, 1, false);
    pool.add(others, 0, false);
    pool.add(trusted, 0, true);
    pool.index();
    if (pool.anchors() == 0)
        return err_fail(NO_DATA_ERROR, "There is no trusted certificate");
    evidence.read(evidenceList);
    path_find(summary, pool, leaf, &evidence, conditions);
    const size_t unreadable = pool.unreadable() + evidence.unreadable();
    if (report != nullptr && (input.options & ZUL_CERT_JSON) != 0) {
        JsonReport json(*report);
        show_path(json, summary, conditions, unreadable);
        json.finish();
    } else if (report != nullptr) {
        TextReport text(*report);
        show_path(text, summary, conditions, unreadable);
    }
    return result_of(summary);
}

} // namespace zul
