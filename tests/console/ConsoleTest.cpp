#include "ConsoleTest.hpp"

#include <algorithm>

namespace console_tests {

std::string house(const std::string& schema) {
    testing_support::IfcText ifc(schema);
    const auto wall = ifc.element("IfcWall", WallGuid, "Wall-01");
    ifc.property(wall, "Pset_WallCommon", "FireRating", "IFCLABEL('F 90')");
    ifc.property(wall, "Pset_WallCommon", "IsExternal", "IFCBOOLEAN(.T.)");
    ifc.property(wall, "Pset_WallCommon", "ThermalTransmittance", "IFCREAL(0.25)");
    ifc.classification(wall, "UniFormat Classification", "B2010", "Exterior Walls");
    ifc.element("IfcDoor", DoorGuid, "Door-01");
    ifc.element("IfcColumn", NamelessGuid, "");
    return ifc.text();
}

std::filesystem::path ConsoleTest::updates(const std::vector<Fields>& lines) {
    std::string text;
    for (const Fields& fields : lines) {
        for (std::size_t i = 0; i < fields.size(); ++i) text.append(i == 0 ? "" : "\t").append(fields[i]);
        text += "\n";
    }
    return write("updates.txt", text);
}

Json ConsoleTest::json(std::vector<std::string> arguments, int status) const {
    arguments.insert(arguments.end(), {"--format", "json"});
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    Json document = Json::parse(outcome.out, nullptr, false);
    EXPECT_FALSE(document.is_discarded()) << outcome.out;
    return document;
}

void expectError(const Outcome& outcome, const std::vector<std::string>& parts) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, testing::StartsWith("modelhost: "));
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    for (const std::string& part : parts) EXPECT_THAT(outcome.err, HasSubstr(part));
}

Fields column(const Json& rows, std::size_t index) {
    Fields texts;
    for (const Json& row : rows) texts.push_back(row.at("columns").at(index));
    return texts;
}

}  // namespace console_tests
