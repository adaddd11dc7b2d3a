#pragma once
// Paths as the file system has them.
//
// On Linux a path is bytes; as a text it may look different: bytes that are not UTF-8 are read as Windows-1252, and a
// bundle's path is brought to normal form C. A file of such a name could not be opened by its text, so the bytes are
// kept where a path first becomes a text, and found again where the text becomes a path.

#include <string>

namespace frameworks {

/// Keeps the bytes of a path under the texts that it becomes.
void rememberPath(const std::string& bytes);

/// @return the path whose text this is: the bytes that were kept for it, or the text itself.
std::string nativePath(const char* text);

}  // namespace frameworks
