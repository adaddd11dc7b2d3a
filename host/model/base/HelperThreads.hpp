#pragma once
// Threads that help with one piece of work.

#include <functional>
#include <thread>
#include <vector>

namespace model {

/// The cores that this process may use beside its own one, and no more than help.
unsigned spareCores();

/// Each runs the function once; joined at the end. They get no signals: those are for the threads that were there
/// before, where what they interrupt is prepared for it.
class HelperThreads {
public:
    /// @param work  throws nothing. Where the system gives fewer threads, fewer run it, perhaps none.
    void start(unsigned count, const std::function<void()>& work);
    HelperThreads() = default;
    HelperThreads(const HelperThreads&) = delete;
    HelperThreads& operator=(const HelperThreads&) = delete;
    ~HelperThreads() { join(); }
    void join();

private:
    std::vector<std::thread> threads_;
};

}  // namespace model
