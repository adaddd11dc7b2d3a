#pragma once

#include "model/step/index/Index.hpp"

namespace model::step {

/// Indexes instances of the usual form, 64 bytes at a time, as far as `limit`: nearly all of a file, several times as
/// fast as token by token. It must index exactly what the reader of tokens would.
/// @param from   between two instances of a DATA section of `index`.
/// @param limit  may be overstepped by less than SlackBytes.
/// @return the end of the last instance indexed, `from` where there was none. What follows may be the limit, or the end
///         of the section, or anything that wants a closer look: a comment, a line break in a string, something
///         malformed.
const char* sweep(const char* from, const char* limit, Index& index);

}  // namespace model::step
