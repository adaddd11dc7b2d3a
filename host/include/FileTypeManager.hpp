#pragma once
// FTM: the kinds of files that a file dialog offers.

#include "UniString.hpp"

namespace FTM {

/// Identifies a registered file type; 0 is none.
using TypeID = UInt32;

/// The group at the top of a manager's tree of types.
inline constexpr UInt32 RootGroup = 0;

/// A kind of file.
class HOST_API FileType {
public:
    /// Decides from a file's content whether it is of the type; null: by its extension alone.
    using ContentDetector = bool (*)(const char* path);

    /// @param description  as a file dialog shows it. @param extension  without the point.
    /// @param macType, macCreator  four-character codes, 0 = none. @param icon  icon resource, 0 = none.
    /// @param mime  MIME type, or null. @param visible  whether dialogs offer it.
    FileType(const char* description, const char* extension, UInt32 macType, UInt32 macCreator, Int32 icon,
             ContentDetector detector, const char* mime, bool visible);

    const GS::UniString& GetDescription() const { return description_; }
    const GS::UniString& GetExtension() const { return extension_; }

private:
    GS::UniString description_;
    GS::UniString extension_;
};

/// A named set of file types. Its types live until they are removed or the manager is destroyed.
class HOST_API FileTypeManager {
public:
    /// @param name  for the host's own use; any text.
    explicit FileTypeManager(const char* name);
    FileTypeManager(const FileTypeManager&) = delete;
    FileTypeManager& operator=(const FileTypeManager&) = delete;
    ~FileTypeManager();

    /// @return the new type's identifier, unique in the process; 0 for an unknown group.
    TypeID AddType(const FileType& type, UInt32 group = RootGroup);

    /// Only a type that this manager has added. @return 0, or ErrUnknownType.
    GSErrCode RemoveType(TypeID type);

    static constexpr GSErrCode ErrUnknownType = -1;

private:
    struct Types;
    Types* types_;
};

}  // namespace FTM
