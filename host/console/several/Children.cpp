#include "console/several/Children.hpp"

#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <new>

namespace console {
namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

File temporary() {
    File file(std::tmpfile());
    if (!file) {
        throw Failure(fmt::format("cannot keep what is said of each model: {}; make room in {}", std::strerror(errno),
                                  std::filesystem::temp_directory_path().string()));
    }
    return file;
}

std::string contentOf(std::FILE* file) {
    std::string text;
    std::array<char, 1U << 16U> block{};
    std::rewind(file);
    for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), file)) > 0;)
        text.append(block.data(), count);
    return text;
}

struct Child {
    std::size_t place = 0;
    File out, err, facts;
};

/// Signals that this process takes one by one instead of being ended by them.
class Waiting {
public:
    Waiting() {
        sigemptyset(&signals_);
        for (const int number : {SIGCHLD, SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals_, number);
        sigprocmask(SIG_BLOCK, &signals_, &before_);
    }
    ~Waiting() { release(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    int next() const {
        int number = 0;
        sigwait(&signals_, &number);
        return number;
    }
    void release() const { sigprocmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t signals_{};
    sigset_t before_{};
};

class Runs {
public:
    explicit Runs(const ChildPlan& plan) : plan_(plan), progress_(fmt::format("Working on {} models", plan.count)) {}

    void run() {
        while (true) {
            while (!interrupt_ && started_ < plan_.count && running_.size() < plan_.atOnce) start(started_++);
            if (running_.empty()) break;
            take(waiting_.next());
        }
        if (!interrupt_) return;
        waiting_.release();
        std::signal(interrupt_, SIG_DFL);
        std::raise(interrupt_);
    }

private:
    void start(std::size_t place);
    [[noreturn]] void become(const Child& child);
    ExitStatus work(const Child& child, JsonValue& facts);
    void take(int signal);
    void collect();
    void finish(Child child, int status);

    const ChildPlan& plan_;
    Waiting waiting_;
    ProgressLine progress_;
    std::map<pid_t, Child> running_;
    std::map<std::size_t, ChildResult> finished_;  ///< That wait for one before them.
    std::size_t started_ = 0;
    std::size_t taken_ = 0;
    int interrupt_ = 0;
};

void Runs::start(std::size_t place) {
    Child child{place, temporary(), temporary(), temporary()};
    // What is in a buffer would be printed by both.
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process < 0) throw Failure(fmt::format("cannot start work on another model: {}", std::strerror(errno)));
    if (process == 0) become(child);
    running_.emplace(process, std::move(child));
}

void Runs::become(const Child& child) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    waiting_.release();
    // A table is fitted to the terminal that it will be printed on.
    const Terminal terminal = Terminal::standardOutput();
    if (terminal.present) setenv("COLUMNS", std::to_string(terminal.width).c_str(), 1);
    keepResults(terminal.colour);
    const int input = open(plan_.input.empty() ? "/dev/null" : plan_.input.c_str(), O_RDONLY | O_CLOEXEC);
    dup2(input, STDIN_FILENO);
    dup2(fileno(child.out.get()), STDOUT_FILENO);
    dup2(fileno(child.err.get()), STDERR_FILENO);
    JsonValue facts = JsonValue::object();
    const ExitStatus status = work(child, facts);
    const std::string text = facts.dump(-1, ' ', false, JsonValue::error_handler_t::replace);
    std::fwrite(text.data(), 1, text.size(), child.facts.get());
    std::fflush(nullptr);
    _exit(static_cast<int>(status));
}

ExitStatus Runs::work(const Child& child, JsonValue& facts) {
    try {
        const ExitStatus status = plan_.work(child.place, facts);
        flushStandardOutput();
        return status;
    } catch (const Failure& failure) {
        complain(failure.what());
    } catch (const std::bad_alloc&) {
        sayMemoryIsOut();
    } catch (const std::exception& error) {
        complain(std::string("internal error: ") + error.what() + "; please report it with the command used");
    }
    facts = JsonValue::object();
    return ExitStatus::Failed;
}

void Runs::take(int signal) {
    if (signal == SIGCHLD) return collect();
    interrupt_ = signal;
    for (const auto& [process, child] : running_) kill(process, signal);
}

void Runs::collect() {
    int status = 0;
    for (pid_t process = 0; (process = waitpid(-1, &status, WNOHANG)) > 0;) {
        const auto found = running_.find(process);
        if (found == running_.end()) continue;
        Child child = std::move(found->second);
        running_.erase(found);
        finish(std::move(child), status);
    }
}

void Runs::finish(Child child, int status) {
    ChildResult result;
    result.out = contentOf(child.out.get());
    result.err = contentOf(child.err.get());
    result.facts = JsonValue::parse(contentOf(child.facts.get()), nullptr, false);
    if (!result.facts.is_object()) result.facts = JsonValue::object();
    if (WIFEXITED(status)) result.status = static_cast<ExitStatus>(WEXITSTATUS(status));
    if (WIFSIGNALED(status) && !interrupt_)
        result.err += fmt::format("modelhost: the work on it was ended by signal {}\n", WTERMSIG(status));
    finished_.emplace(child.place, std::move(result));
    for (auto next = finished_.find(taken_); next != finished_.end() && !interrupt_; next = finished_.find(taken_)) {
        plan_.take(taken_++, std::move(next->second));
        finished_.erase(next);
        progress_.show(taken_, plan_.count);
    }
}

}  // namespace

void runChildren(const ChildPlan& plan) {
    Runs(plan).run();
}

}  // namespace console
