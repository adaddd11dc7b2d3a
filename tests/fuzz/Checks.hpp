#pragma once
// What must hold for any bytes whatever. A check that fails throws, which a fuzzer takes for a crash.

#include <stdexcept>
#include <string>
#include <string_view>

namespace fuzz {

/// Opens the bytes as a file, edits it and undoes the edits.
void checkStepFile(std::string_view bytes);
/// Decodes the bytes as a string of a file, and encodes what comes out.
void checkString(std::string_view bytes);
/// Reads the bytes as a table, whatever they are, finds what it asks for, and writes it as text and as update files.
void checkTable(std::string_view bytes);
/// Puts the bytes as the sheet into a workbook of each kind and reads these.
void checkSheet(std::string_view bytes);

inline void require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

}  // namespace fuzz

#ifdef FUZZ_ENTRY
#define FUZZ_WITH(check)                                                                 \
    extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) { \
        check(std::string(data, data + size));                                           \
        return 0;                                                                        \
    }
#else
#define FUZZ_WITH(check)
#endif
