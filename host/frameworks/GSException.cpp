#include "GSException.hpp"

namespace GS {

GSException::GSException(const UniString& text) : message_(text) {}
GSException::GSException(const GSException&) = default;
GSException& GSException::operator=(const GSException&) = default;
GSException::~GSException() = default;

}  // namespace GS
