#pragma once
// An add-on's bundle and the image in it.

#include "HostTable.hpp"
#include "model/base/Result.hpp"
#include "services/CodeRange.hpp"

#include <filesystem>
#include <memory>
#include <string>

namespace host {

/// The image of a bundle: Contents/Linux/NAME, where NAME is CFBundleExecutable of the bundle's Info.plist, or the
/// bundle's own name without its extension where the Info.plist does not say.
std::filesystem::path imageOf(const std::filesystem::path& bundle);

/// A loaded image with both entry points. Its start hook has run.
class AddOnImage {
public:
    /// Fails with what is wrong with the bundle, without its path: the caller knows it.
    static model::Result<std::unique_ptr<AddOnImage>> load(const std::filesystem::path& bundle);
    /// Unloads the image; its end hook runs.
    ~AddOnImage();
    AddOnImage(const AddOnImage&) = delete;
    AddOnImage& operator=(const AddOnImage&) = delete;

    GetExportedFuncAddrsProc* getExported() const { return exportedProc_; }
    SetImportedFuncAddrsProc* setImported() const { return importedProc_; }
    const CodeRange& code() const { return codeRange_; }

    /// After a crash: nothing of the image runs any more, its end hook included. It stays in memory for good, since
    /// what points into it may still be around. Not while code of it is under way.
    void silence();

private:
    explicit AddOnImage(void* image);

    void* handle_;
    CodeRange codeRange_;
    GetExportedFuncAddrsProc* exportedProc_;
    SetImportedFuncAddrsProc* importedProc_;
};

}  // namespace host
