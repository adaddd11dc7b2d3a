#include "FileTypeManager.hpp"

#include "FileTypes.hpp"
#include "NeverDestroyed.hpp"

#include <map>
#include <set>

namespace FTM {

namespace {

std::map<TypeID, FileType>& registry() {
    static auto& types = frameworks::neverDestroyed<std::map<TypeID, FileType>>();
    return types;
}

}  // namespace

struct FileTypeManager::Types {
    std::set<TypeID> owned;
};

// Of a type the front ends need its description and its extension; the rest is for systems with other means to tell
// files apart.
FileType::FileType(const char* text, const char* fileExtension, UInt32, UInt32, Int32, ContentDetector, const char*,
                   bool)
    : description_(text), extension_(fileExtension) {}

FileTypeManager::FileTypeManager(const char*) : types_(new Types) {}

FileTypeManager::~FileTypeManager() {
    for (const TypeID type : types_->owned) registry().erase(type);
    delete types_;
}

TypeID FileTypeManager::AddType(const FileType& type, UInt32 group) {
    if (group != RootGroup) return 0;
    static TypeID last = 0;
    ++last;
    registry().emplace(last, type);
    types_->owned.insert(last);
    return last;
}

GSErrCode FileTypeManager::RemoveType(TypeID type) {
    if (types_->owned.erase(type) == 0) return ErrUnknownType;
    registry().erase(type);
    return NoError;
}

}  // namespace FTM

const FTM::FileType* frameworks::registeredFileType(FTM::TypeID type) {
    const auto found = FTM::registry().find(type);
    return found == FTM::registry().end() ? nullptr : &found->second;
}
