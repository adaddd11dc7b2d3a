#pragma once
// A folder with a small model in it, and modelhost at work there.

#include "ModelHostRun.hpp"
#include "support/IfcText.hpp"
#include "support/TempFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace console_tests {

using Json = nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Fields = std::vector<std::string>;

/// The GUIDs of house().
inline const std::string WallGuid = testing_support::guidText(1);
inline const std::string DoorGuid = testing_support::guidText(2);
inline const std::string NamelessGuid = testing_support::guidText(3);
inline const std::string UnknownGuid = testing_support::guidText(99);

/// A wall with properties and a classification, a door with a quarter of a real, a column without a name.
std::string house(const std::string& schema = "IFC4");

class ConsoleTest : public testing::Test {
protected:
    ConsoleTest() { write("house.ifc", house()); }

    std::filesystem::path write(const std::string& name, const std::string& bytes) {
        return folder_.write(name, bytes);
    }
    /// An update file of these lines, ended by LF.
    std::filesystem::path updates(const std::vector<Fields>& lines);
    std::string bytes(const std::string& name) const { return testing_support::bytesOf(folder_.path() / name); }
    bool exists(const std::string& name) const { return std::filesystem::exists(folder_.path() / name); }

    ModelHostRun modelhost() const { return ModelHostRun(folder_.path()); }
    Outcome run(const std::vector<std::string>& arguments) const { return modelhost().run(arguments); }
    /// Runs it with --format json; fails the test where the output is no JSON document.
    Json json(std::vector<std::string> arguments, int status = 0) const;

    testing_support::TempFolder folder_;
};

/// One line on standard error, with all of `parts`, exit status 1 and nothing on standard output.
void expectError(const Outcome& outcome, const std::vector<std::string>& parts);

/// One column of a list of rows.
Fields column(const Json& rows, std::size_t index);

}  // namespace console_tests
