#include "importing/KeptFile.hpp"

#include "text/Message.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace importing {
namespace {

model::Error cannotKeep() {
    return {model::ErrorKind::CannotWrite,
            text::message("cannot keep a copy of the updates in {}: {}; make room there, or set TMPDIR",
                          std::filesystem::temp_directory_path().string(), std::strerror(errno))};
}

}  // namespace

model::Result<KeptFile> KeptFile::create() {
    // Not std::tmpfile, which takes no notice of TMPDIR.
    std::string name = (std::filesystem::temp_directory_path() / "modelhost.XXXXXX").string();
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) return cannotKeep();
    // Without a name it is gone when it is closed, however the program ends.
    unlink(name.c_str());
    OpenFile file(fdopen(descriptor, "w+b"));
    if (!file) return cannotKeep();
    return KeptFile(std::move(file));
}

model::Status KeptFile::write(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) return cannotKeep();
    return {};
}

model::Status KeptFile::finish() {
    if (std::fflush(file_.get()) != 0) return cannotKeep();
    std::rewind(file_.get());
    return {};
}

/// Leads to the file though it has no name. Opened by it, it is read from its beginning, wherever others are in it.
std::string KeptFile::path() const {
    return fmt::format("/proc/self/fd/{}", fileno(file_.get()));
}

}  // namespace importing
