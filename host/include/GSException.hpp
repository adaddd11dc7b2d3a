#pragma once
// GS::GSException: what the support frameworks throw.

#include "UniString.hpp"

namespace GS {

/// The base of everything that the host's frameworks throw. No host operation lets one out through the function table
/// or a dialog message; an add-on that throws one catches it itself.
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
