#pragma once
// What must hold for any bytes whatever. A check that fails throws, which a fuzzer takes for a crash.

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace fuzz {

/// Opens the bytes as a file, edits it and undoes the edits.
void checkStepFile(std::string_view bytes);
/// Finds the instances in the bytes with each kind of vectors, alone and with help, and by tokens.
void checkSweep(std::string_view bytes);
/// Decodes the bytes as a string of a file, and encodes what comes out.
void checkString(std::string_view bytes);
/// Reads the bytes as a table, whatever they are, finds what it asks for, and writes it as text and as update files.
void checkTable(std::string_view bytes);
/// Puts the bytes as the sheet into a workbook of each kind and reads these.
void checkSheet(std::string_view bytes);
/// Reads all of every element of the bytes as a model, makes one change of each kind, and takes it back.
void checkModel(std::string_view bytes);
/// Compares the bytes as a model with themselves, and with a changed copy.
void checkComparing(std::string_view bytes);
/// Chooses elements of a model: the selection is the first line, the model the rest.
void checkSelection(std::string_view bytes);
/// Stores what a line of an update asks for: its item is the first line, the value the second, the model the rest.
void checkReadBack(std::string_view bytes);
/// Unpacks the bytes as an archive and packs what comes out; packs the bytes as a model and unpacks that.
void checkArchive(std::string_view bytes);
/// Saves a model on a disk that fails, is slow to fail or is written by others, as the first bytes say.
void checkSaving(std::string_view bytes);
/// Opens a model from a file, plain or packed, and saves it, while links lead there and others have or write the file.
void checkFiles(std::string_view bytes);
/// Reads the bytes as resource definitions, and shows each dialog that they define.
void checkResources(std::string_view bytes);
/// Lets handler and user do with dialogs what the bytes say, number by number.
void checkDialogs(std::string_view bytes);
/// Looks for what a person should be told of the bytes as an update file.
void checkUpdateFile(std::string_view bytes);
/// Lets the scripted user do what the bytes say, as far as that reads and writes no file of their choice.
void checkScript(std::string_view bytes);

inline void require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

/// Decisions drawn from the bytes; zeros behind their end.
class Choices {
public:
    explicit Choices(std::string_view bytes) : left_(bytes) {}

    bool empty() const { return left_.empty(); }
    std::string_view rest() const { return left_; }
    std::uint8_t byte() {
        if (left_.empty()) return 0;
        const auto value = static_cast<std::uint8_t>(left_.front());
        left_.remove_prefix(1);
        return value;
    }
    std::int16_t number() {
        const std::uint8_t high = byte();
        return static_cast<std::int16_t>(high << 8 | byte());
    }
    std::size_t below(std::size_t end) { return end == 0 ? 0 : byte() % end; }
    std::string text() {
        const std::string_view taken = left_.substr(0, below(32));
        left_.remove_prefix(taken.size());
        return std::string(taken);
    }

private:
    std::string_view left_;
};

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
