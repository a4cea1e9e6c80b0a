#pragma once
#include <string>

namespace injection {

// Child is a copy of this process, made in the middle of what it does, whose end the parent waits for.
class Child {
  public:
    enum class Handlers { called, left }; // those that the library has for a fork
    explicit Child(Handlers handlers);

    bool is_me() const { return process_ == 0; }
    // finish is for the child: it ends with a status, or another one if a check has failed in it.
    [[noreturn]] void finish(int status) const;
    // wait is for the parent.
    void wait();

    // What the child came to. The fatal path reports and ends with status 1; so does a sanitizer.
    bool ended_with_report(const char* part) const;
    bool ended_with(int status) const;
    const std::string& said() const { return said_; } // on its standard error

  private:
    int process_, pipe_[2], status_ = 0, parts_ = 0;
    std::string said_;
};

} // namespace injection
