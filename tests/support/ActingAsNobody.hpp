#pragma once
// Root may read and write everything, so that a test of rights acts as somebody else meanwhile. A folder of the test
// is its owner's alone: open it first, else everything in it is refused.

#include <unistd.h>

#include <exception>
#include <stdexcept>

namespace testing_support {

class ActingAsNobody {
public:
    ActingAsNobody() : user_(geteuid()) {
        constexpr uid_t Nobody = 65534;
        if (user_ == 0 && seteuid(Nobody) != 0) throw std::runtime_error("cannot become somebody else");
    }
    ~ActingAsNobody() {
        if (seteuid(user_) != 0) std::terminate();
    }
    ActingAsNobody(const ActingAsNobody&) = delete;
    ActingAsNobody& operator=(const ActingAsNobody&) = delete;

private:
    uid_t user_;
};

}  // namespace testing_support
