#pragma once
// How a file is opened and saved.

#include "model/base/Progress.hpp"

namespace model::step {
class Disk;
}

namespace model {

struct OpenOptions {
    /// Null for none. Opening an archive, the total changes once, from the packed size to the unpacked.
    Progress progress;
    /// Takes the advisory lock on the file, so that other hosts learn that it is open for editing here. For reading
    /// alone it is not needed.
    bool lock = true;
};

struct SaveOptions {
    /// Null for none. Saving an archive, it runs twice: packing, then writing.
    Progress progress;
    /// Write even over a file that another program changed since it was opened: ErrorKind::ChangedSince otherwise.
    bool force = false;
    /// From here on the saved file is the one that is worked on: it is locked in place of the one opened.
    bool moveLock = false;
    /// Null for the real one. Tests put one here that fails. Not owned; outlives the call.
    step::Disk* disk = nullptr;
};

}  // namespace model
