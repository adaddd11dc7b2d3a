#include "GSException.hpp"

namespace GS {

GSException::GSException(const UniString& text) : message(text) {}
GSException::GSException(const GSException&) = default;
GSException& GSException::operator=(const GSException&) = default;
GSException::~GSException() = default;

}  // namespace GS
