#pragma once
// A file without a name, in the folder for temporary files, that the add-on opens by a path of this process.

#include "model/base/Result.hpp"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace importing {

/// Standard input is never closed.
struct CloseUnlessStandardInput {
    void operator()(std::FILE* open) const {
        if (open != stdin) std::fclose(open);
    }
};
using OpenFile = std::unique_ptr<std::FILE, CloseUnlessStandardInput>;

class KeptFile {
public:
    /// In the folder that TMPDIR names. ErrorKind::CannotWrite, with what to do.
    static model::Result<KeptFile> create();

    model::Status write(std::string_view bytes);
    /// To be called once all is written: from here on it can be read, by its path or from its beginning.
    model::Status finish();

    /// Valid as long as this object lives.
    std::string path() const;
    /// Hands the file over, at its beginning.
    OpenFile release() { return std::move(file_); }

private:
    explicit KeptFile(OpenFile file) : file_(std::move(file)) {}
    OpenFile file_;
};

}  // namespace importing
