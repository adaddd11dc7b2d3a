#pragma once

#include "model/step/index/Index.hpp"
#include "model/step/reading/SweepAhead.hpp"

namespace model::step {

/// Finds instances of the usual form, 64 bytes at a time: nearly all of a file, many times as fast as token by token.
/// It must find exactly what the reader of tokens would.
/// @param from   between two instances of a DATA section.
/// @param limit  no instance that ends behind it is found. Up to SlackBytes behind it are read.
/// @return the end of the last instance found, `from` where there was none. What follows may be the limit, or the end
///         of the section, or anything that wants a closer look: a comment, a line break in a string, something
///         malformed.
const char* sweep(const char* from, const char* limit, Index& index);
const char* sweep(const char* from, const char* limit, SweptStretch& stretch);

}  // namespace model::step
