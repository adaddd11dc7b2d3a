#pragma once
// The host's memory manager: blocks behind a pointer (GSPtr) or behind a master pointer (GSHandle).
// What one side allocates with it the other may free with it.

#include "GSRoot.hpp"

extern "C" {

/// Flags of BMAllocateHandle and BMAllocatePtr.
enum BMAllocationFlags : Int32 { ALLOCATE_NORMAL = 0, ALLOCATE_CLEAR = 2 };

/// @param size   bytes, 0 allowed. @param flags  ALLOCATE_CLEAR zeroes the block.
/// @param reserved  0.
/// @return a new handle owned by the caller, or null; BMError() then says why.
HOST_API GSHandle BMAllocateHandle(Int64 size, Int32 flags, Int32 reserved);

/// Changes the size of a block; what was in it stays, up to the smaller size; new bytes are zero with ALLOCATE_CLEAR.
/// @return the handle, or null: then the block is unchanged and still the caller's, and BMError() says why.
HOST_API GSHandle BMReallocHandle(GSHandle handle, Int64 size, Int32 flags, Int32 reserved);

/// Frees the block and sets the caller's variable to null. A null variable or a null handle does nothing.
HOST_API void BMKillHandle(GSHandle* handle);

/// @return bytes; 0 for a null handle.
HOST_API Int64 BMGetHandleSize(GSHandle handle);

/// The same three for a block that stays where it is.
HOST_API GSPtr BMAllocatePtr(Int64 size, Int32 flags, Int32 reserved);
HOST_API void BMKillPtr(GSPtr* ptr);
HOST_API Int64 BMGetPtrSize(GSPtr ptr);

/// The verdict on the last allocation of this thread: 0, or BMErrMemoryFull.
HOST_API GSErrCode BMError();
}

inline constexpr GSErrCode BMErrMemoryFull = -108;
