#pragma once
// Functions of the host's frameworks and of the system that this program takes the place of, in the eyes of the
// add-on's image too: to give answers that the test machine would not give, and to see calls that leave no trace.
// Without one of these objects every call goes on to the real one.

#include <cstddef>
#include <string>
#include <vector>

namespace testing_support {

/// A bundle path as another system would give it, which no file of this one has. While one lives, the image that is
/// loaded is told this path in place of its own.
class ScriptedBundlePath {
public:
    explicit ScriptedBundlePath(std::string path);
    ~ScriptedBundlePath();
    ScriptedBundlePath(const ScriptedBundlePath&) = delete;
    ScriptedBundlePath& operator=(const ScriptedBundlePath&) = delete;
};

/// What the add-on asks for while one lives.
class HostCalls {
public:
    HostCalls();
    ~HostCalls();
    HostCalls(const HostCalls&) = delete;
    HostCalls& operator=(const HostCalls&) = delete;

    /// The dialog items that were to be drawn anew, in order.
    const std::vector<int>& invalidatedItems() const { return items_; }
    /// A help location is cleared by its registration: the host may do with it what it likes.
    bool clearHelpLocations = false;

private:
    friend struct StandIns;
    std::vector<int> items_;
};

/// While one lives, this function of Core Foundation makes nothing: it returns null.
class NoCoreFoundation {
public:
    explicit NoCoreFoundation(std::string function);
    ~NoCoreFoundation();
    NoCoreFoundation(const NoCoreFoundation&) = delete;
    NoCoreFoundation& operator=(const NoCoreFoundation&) = delete;
};

/// A disk that fails: of each file opened for it, reads give the file's bytes, and the read behind them fails.
class FailingReads {
public:
    FailingReads();
    ~FailingReads();
    FailingReads(const FailingReads&) = delete;
    FailingReads& operator=(const FailingReads&) = delete;
};

}  // namespace testing_support
