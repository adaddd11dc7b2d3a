#pragma once

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/index/Index.hpp"
#include "model/step/reading/SweepAhead.hpp"

namespace model::step {

/// Reads a whole file into `index`, whose bytes are followed by SlackBytes zeros. Faults inside become remarks. Time
/// grows with the number of bytes, whatever they are.
/// @return an error, its message without the file's name, where it is no file in clear-text encoding, or where the
///         progress was cancelled.
Status indexFile(Index& index, const Progress& progress, const Sharing& sharing = {});

}  // namespace model::step
