#include "Location.hpp"

namespace IO {

GSErrCode Location::ToDisplayText(GS::UniString* text) const {
    if (text != nullptr) *text = path;
    return GetStatus();
}

}  // namespace IO
