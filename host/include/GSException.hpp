#pragma once
// GS::GSException: what the support frameworks throw.

#include "UniString.hpp"

namespace GS {

/// The base of what the host's frameworks throw; beside it only std::bad_alloc, where memory is used up. An add-on may
/// throw it, too. One that it lets out of a call of the host ends that call, and what the call was to do counts as
/// failed.
class HOST_API GSException {
public:
    explicit GSException(const UniString& message = UniString());
    GSException(const GSException&);
    GSException& operator=(const GSException&);
    virtual ~GSException();

    /// What went wrong, for the debug output. Owned by the exception.
    const UniString& GetMessage() const { return message_; }

private:
    UniString message_;
};

}  // namespace GS
