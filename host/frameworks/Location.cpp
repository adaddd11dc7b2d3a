#include "Location.hpp"

namespace IO {

GSErrCode Location::ToDisplayText(GS::UniString* text) const {
    if (text != nullptr) *text = path_;
    return GetStatus();
}

}  // namespace IO
