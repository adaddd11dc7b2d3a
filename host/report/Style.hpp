#pragma once

namespace report {

/// How a report looks: light and dark, narrow and wide, on paper.
extern const char* const StyleSheet;

}  // namespace report
