#pragma once

#include "model/base/Progress.hpp"
#include "model/base/Result.hpp"
#include "model/step/index/Index.hpp"

namespace model::step {

/// Reads a whole file into `index`, whose bytes are followed by slackBytes zeros. Faults inside become remarks.
/// @return an error, its message without the file's name, where it is no file in clear-text encoding, or where the
///         progress was cancelled.
Status indexFile(Index& index, const Progress& progress);

}  // namespace model::step
