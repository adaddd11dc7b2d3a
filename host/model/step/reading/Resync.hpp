#pragma once

namespace model::step {

/// Where something sound seems to begin behind the first character of `malformed`: "#12=", or the end of the section;
/// `end` where nothing does. Inside malformed text quotes and comments tell nothing, so this goes by layout: it must be
/// the first on its line, or follow a semicolon or a closing parenthesis.
const char* nextStatement(const char* malformed, const char* end);

}  // namespace model::step
