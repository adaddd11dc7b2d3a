#include "importing/UpdateSource.hpp"
#include "support/IfcText.hpp"
#include "support/Stopwatch.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

namespace importing {
namespace {

using testing_support::guidText;

/// Two walls that share a set of so many properties, each of value "a".
std::unique_ptr<model::Model> twoWalls(int properties) {
    testing_support::IfcText ifc("IFC4");
    const auto first = ifc.element("IfcWall", guidText(1), "A"), second = ifc.element("IfcWall", guidText(2), "B");
    std::string members;
    for (int i = 0; i < properties; ++i) {
        const auto property = ifc.add("IfcPropertySingleValue",
                                      {{"Name", "'P" + std::to_string(i) + "'"}, {"NominalValue", "IFCLABEL('a')"}});
        members += (i > 0 ? ",#" : "#") + std::to_string(property);
    }
    const auto set = ifc.add("IfcPropertySet", {{"GlobalId", "'" + testing_support::globalId(guidText(3)) + "'"},
                                                {"Name", "'Set'"},
                                                {"HasProperties", "(" + members + ")"}});
    ifc.add("IfcRelDefinesByProperties",
            {{"GlobalId", "'" + testing_support::globalId(guidText(4)) + "'"},
             {"RelatedObjects", "(#" + std::to_string(first) + ",#" + std::to_string(second) + ")"},
             {"RelatingPropertyDefinition", "#" + std::to_string(set)}});
    return std::move(*model::Model::fromBytes(ifc.text()));
}

/// Reading an element anew with each line about it would take minutes.
TEST(TableSource, ReadsLinesThatAlternateBetweenElementsFast) {
    constexpr int Many = 30'000;
    const auto model = twoWalls(Many);
    std::string table = "GUID;Item;New\n";
    for (int i = 0; i < Many; ++i) {
        const char* value = i == 7 ? "b" : "a";
        table += guidText(1 + static_cast<unsigned>(i) % 2) + ";P" + std::to_string(i) + ";" + value + "\n";
    }
    const testing_support::TempFolder folder;
    const auto source = UpdateSource::open(folder.write("a.csv", table), {});
    ASSERT_TRUE(source);
    const testing_support::Stopwatch watch;
    ASSERT_TRUE((*source)->read(*model));
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    ASSERT_EQ((*source)->parts().size(), 1U);
    ASSERT_EQ((*source)->parts().front().asked.size(), 1U);
    EXPECT_EQ((*source)->parts().front().asked.front().asked.item, "P7");
    EXPECT_EQ((*source)->parts().front().asked.front().line, 9U);
}

}  // namespace
}  // namespace importing
