// What modelhost export writes of models full of hard names and texts, all of it comes back from the import as the
// same.

#include "ConsoleTest.hpp"

#include "model/step/syntax/StringEncoder.hpp"
#include "text/Unicode.hpp"

#include <random>
#include <set>

namespace console_tests {
namespace {

const Fields Fragments = {" ",
                          "  ",
                          "a",
                          "B",
                          "[",
                          "]",
                          "{",
                          "}",
                          "\t",
                          "\n",
                          "\r",
                          "'",
                          "\"",
                          ",",
                          ";",
                          "\\",
                          ".",
                          "0",
                          "-1",
                          "1e5",
                          ".T.",
                          ".U.",
                          "true",
                          "\xC3\xA9",
                          "e\xCC\x81",
                          "\xE6\xBC\xA2",
                          "\xF0\x9F\x8F\xA0",
                          "\xC2\xA0",
                          "\xE2\x80\x8B",
                          "\xE2\x80\xA8",
                          "\xEF\xBB\xBF",
                          "#1",
                          "$",
                          "*",
                          "%s%n",
                          "Pset_",
                          "Name",
                          "Classification",
                          "\x7F",
                          "\xC4\xB0",
                          "\xC7\x84"};
const Fields Numbers = {"IFCREAL(0.1)",
                        "IFCREAL(1.E-320)",
                        "IFCREAL(1.7976931348623157E+308)",
                        "IFCREAL(-0.)",
                        "IFCREAL(123456789012345678.)",
                        "IFCINTEGER(-9223372036854775808)",
                        "IFCINTEGER(9223372036854775807)",
                        "IFCBOOLEAN(.T.)",
                        "IFCLOGICAL(.U.)",
                        "$",
                        "IFCBINARY(\"0F\")",
                        "IFCFUTURE(1)",
                        "IFCLABEL('\\X2\\00')"};

class RandomRoundTrip : public ConsoleTest, public testing::WithParamInterface<unsigned> {
protected:
    std::string text(std::size_t longest, const std::string& otherwise = "") {
        std::string result;
        for (std::size_t i = below(longest); i > 0; --i) result += pick(Fragments);
        return result.empty() ? otherwise : result;
    }
    std::string quoted(const std::string& text) { return model::step::encodeString(text::fromUtf8(text)); }
    std::size_t below(std::size_t end) { return random_() % end; }
    const std::string& pick(const Fields& fields) { return fields[below(fields.size())]; }

    std::string value() {
        switch (below(4)) {
            case 0:
                return pick(Numbers);
            case 1:
                return "IFCTEXT(" + quoted(std::string(below(1100), 'x') + text(8)) + ")";
            default:
                return "IFCLABEL(" + quoted(text(8)) + ")";
        }
    }

    /// Fills the folder's model. @return the items that its lines can be about.
    std::set<std::string> writeModel() {
        testing_support::IfcText ifc(pick({"IFC2X3", "IFC4", "IFC4X3"}));
        std::set<std::string> items = {"Name", "Description", "ObjectType", "Tag"};
        for (unsigned i = 1; i <= 4; ++i) {
            const auto wall = ifc.element("IfcWall", testing_support::guidText(i), "Wall",
                                          {{"Name", quoted(text(4, "W"))}, {"Description", quoted(text(6))}});
            for (int property = 0; property < 6; ++property) {
                const std::string set = pick({"S", "Pset_", ""}) + text(3, "T"), name = text(4, "P");
                ifc.addProperty(wall, set,
                                ifc.add("IfcPropertySingleValue", {{"Name", quoted(name)}, {"NominalValue", value()}}));
                items.insert({name, name + "[" + set + "]"});
            }
            ifc.classification(wall, "UniFormat Classification", "B2010", "Walls");
        }
        items.insert("UniFormat Classification");
        write("house.ifc", ifc.text());
        return items;
    }

    std::mt19937 random_{GetParam()};
};

/// An item that export refuses: a line has no room for it, or it is no name at all.
bool isNoItem(const std::string& item) {
    return item.front() == '[' || item.find_first_of("\t\r\n") != std::string::npos;
}

TEST_P(RandomRoundTrip, ComesBackAsTheSame) {
    std::vector<std::string> command = {"export", "house.ifc", "-o", "updates.txt"};
    for (const std::string& item : writeModel())
        if (!isNoItem(item)) command.push_back("--item=" + item);
    const Outcome exported = run(command);
    ASSERT_EQ(exported.status, 0) << exported.err;
    const Json document = json({"import", "house.ifc", "updates.txt"});
    EXPECT_GT(document["summary"]["lines"], 10);
    EXPECT_EQ(document["summary"]["rows"], document["summary"]["lines"]);
    EXPECT_EQ(document["summary"]["tickable"], 0);
    for (const auto& row : document["review"])
        EXPECT_EQ(row["columns"][7], " Old and new values are the same.") << row["columns"];
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRoundTrip, testing::Range(0U, 25U));

}  // namespace
}  // namespace console_tests
