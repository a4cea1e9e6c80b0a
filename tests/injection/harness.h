#pragma once
#include <functional>
#include <string>
#include <vector>

#include "support/calls/calls.h"

namespace injection {

using namespace calls;

// What is there before a call writes its output.
enum class Before {
    nothing,
    file,
    linked, // a file of two names, target and link, which is not replaced but written in place
};

// befores gives the states in which a call is tried.
const std::vector<Before>& befores(const Call& call);

// Trial is one call, repeated from the same state of its outputs. Faults are armed by its users.
class Trial {
  public:
    Trial(const Call& call, Before before);

    // run puts the outputs back, arms the faults, and calls.
    void run(const std::function<void()>& arm = [] {});
    // expect_clean runs without a fault. What it does is the measure of all others.
    void expect_clean();
    // expect_failed looks at the last run, which is one that failed: a code other than 0, which is recorded
    // and has a text, and as much of the outputs as the call promises. expect_whole looks at one that did not
    // fail.
    void expect_failed(bool looksAtOutputs = true) const;
    void expect_whole() const;
    // expect_kept looks at the outputs as the end of the process would leave them in the middle of the call:
    // what is replaced in one step is as it was, or whole. It gives whether something else stays that is not
    // whole.
    bool expect_kept() const;
    // expect_nothing_leaked compares blocks of memory and open files with those before the last run.
    void expect_nothing_leaked() const;

    int result() const { return result_; }
    int code() const; // of a failure: positive if the result has the sign that it should have
    bool succeeded() const { return is_good(call_, result_); }
    const Call& call() const { return call_; }
    size_t whole_size() const { return wholeSize_; } // of the output
    std::string name() const;

  private:
    void prepare() const;
    void expect_nothing_half() const;
    bool replaces() const; // in one step

    const Call& call_;
    const Before before_;
    int result_ = 0;
    size_t wholeSize_ = 0, wholeSecondSize_ = 0;
    long blocks_ = 0;
    int descriptor_ = 0;
};

// sample gives the numbers from 1 to count that are tried: all with --all, else the first of them and then
// ever fewer.
std::vector<size_t> sample(size_t count);
extern bool triesAll;

} // namespace injection
