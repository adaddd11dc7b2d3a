#pragma once
// A program such as less, which shows a long text a page at a time.

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace console {

/// Started once there is more text than the terminal has lines: what fits is printed as ever. From then on Ctrl-C is
/// the pager's alone.
class Pager {
public:
    /// The program that PAGER names, else less; nothing where there is none, or PAGER asks for none ("" or "cat").
    static std::optional<std::string> command();

    /// @param wide  lines wider than the terminal are moved along rather than wrapped.
    Pager(std::string command, int height, bool wide);
    ~Pager();
    Pager(const Pager&) = delete;
    Pager& operator=(const Pager&) = delete;

    /// What comes after the user has left the pager goes nowhere.
    void print(std::string_view text);
    /// Waits until the user leaves the pager. @return what was printed where it was not needed.
    std::string finish();

private:
    void start();
    void hand(std::string_view text);
    void wait();

    std::string command_;
    bool wide_;
    std::size_t linesLeft_;  ///< Until the terminal is full.
    std::string kept_;
    pid_t process_ = -1;
    int pipe_ = -1;
};

}  // namespace console
