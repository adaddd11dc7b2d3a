#pragma once
// The words the tests of the STEP layer are written in.

#include "model/step/StepFile.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace step_tests {

using namespace model;
using namespace model::step;

/// A whole file with this text in its DATA section; the text ends its own last line.
std::string fileOf(std::string_view data);

/// The opened file; ends the test where it cannot be opened.
std::unique_ptr<StepFile> opened(const std::string& bytes);
/// Why it cannot be opened.
std::string openingError(const std::string& bytes);

/// The texts of all instances that are present.
std::vector<std::string> instances(const StepFile& file);
/// "LINE: MESSAGE" of each remark.
std::vector<std::string> remarks(const StepFile& file);

/// Argument `number`, from 0, of the instance as it is now.
Value argument(const StepFile& file, InstanceId id, std::size_t number);

/// Edits one file, each verb in a command of its own.
class Editing {
public:
    explicit Editing(const std::string& bytes) : file(opened(bytes)) {}

    Status replace(InstanceId id, std::size_t number, std::string_view text);
    Status add(InstanceId id, std::size_t number, InstanceId member);
    Status erase(InstanceId id);
    Result<Slot> append(std::string_view body, InstanceId neighbour);
    Result<Slot> insertBehind(std::string_view body, InstanceId original);

    std::unique_ptr<StepFile> file;

private:
    template <class Edit>
    auto command(Edit edit);
};

/// The data of `bytes`: what fileOf was given.
std::string dataOf(const std::string& bytes);

}  // namespace step_tests
