// Thousands of rows about one element. What is done for each of them must not take the time of all of them.

#include "readback/ReadBack.hpp"
#include "support/IfcText.hpp"
#include "support/Stopwatch.hpp"
#include "text/Guid.hpp"

#include <gtest/gtest.h>

namespace readback {
namespace {

using testing_support::guidText;

/// Two walls that share a set.
class Walls {
public:
    Walls() : first_(ifc_.element("IfcWall", guidText(1), "A")), second_(ifc_.element("IfcWall", guidText(2), "B")) {}

    void property(std::string_view ifcClass, const testing_support::AttributeValues& values) {
        members_ += (members_.empty() ? "#" : ",#") + std::to_string(ifc_.add(ifcClass, values));
    }
    void classification(int number) {
        const std::string text = std::to_string(number);
        ifc_.classification(first_, "System " + text, "Code " + text, "Title");
    }

    std::unique_ptr<model::Model> open() {
        if (!members_.empty()) giveSet();
        return std::move(*model::Model::fromBytes(ifc_.text()));
    }

private:
    void giveSet() {
        const auto quoted = [](unsigned number) { return "'" + testing_support::globalId(guidText(number)) + "'"; };
        const auto set = ifc_.add(
            "IfcPropertySet", {{"GlobalId", quoted(3)}, {"Name", "'Set'"}, {"HasProperties", "(" + members_ + ")"}});
        ifc_.add("IfcRelDefinesByProperties",
                 {{"GlobalId", quoted(4)},
                  {"RelatedObjects", "(#" + std::to_string(first_) + ",#" + std::to_string(second_) + ")"},
                  {"RelatingPropertyDefinition", "#" + std::to_string(set)}});
    }

    testing_support::IfcText ifc_{"IFC4"};
    testing_support::IfcText::Id first_, second_;
    std::string members_;
};

/// Rows about the first wall, "PREFIX0" and so on.
std::vector<AskedRow> rowsAbout(const std::string& prefix, int count, const std::string& asked) {
    std::vector<AskedRow> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({*text::parseGuid(guidText(1)), prefix + std::to_string(i), asked, std::nullopt});
    return rows;
}

/// Each property gets a copy, since another wall has it, too. To read the whole set anew for each would take minutes:
/// its values are written in a form that is slow to read.
TEST(ManyRows, AreStoredInASetThatIsNotReadAnewForEach) {
    constexpr int Many = 4000;
    std::string value = "IFCLABEL('";
    for (int i = 0; i < 500; ++i) value += "\\X\\E4";
    value += "')";
    Walls walls;
    for (int i = 0; i < Many; ++i)
        walls.property("IfcPropertySingleValue", {{"Name", "'P" + std::to_string(i) + "'"}, {"NominalValue", value}});
    const auto model = walls.open();
    ReadBack readBack(*model, rowsAbout("P", Many, "x"));
    readBack.read(std::vector<RowState>(Many, RowState::Done));
    const testing_support::Stopwatch watch;
    const auto stored = readBack.storeExactly();
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    ASSERT_TRUE(stored);
    EXPECT_EQ(*stored, std::size_t{Many});
    const auto copy = model::Model::fromBytes(model->bytes());
    ASSERT_TRUE(copy);
    for (const auto& [guid, expected] : {std::pair{guidText(1), Many}, std::pair{guidText(2), 0}}) {
        int found = 0, all = 0;
        (*copy)->visitProperties(*(*copy)->find(*text::parseGuid(guid)), [&](const model::PropertyView& property) {
            found += property.string == u"x";
            ++all;
        });
        EXPECT_EQ(found, expected) << guid;
        EXPECT_EQ(all, Many) << guid;
    }
}

TEST(ManyRows, OfEnumeratedPropertiesAreReadFast) {
    constexpr int Many = 60'000;
    Walls walls;
    for (int i = 0; i < Many; ++i) {
        walls.property("IfcPropertyEnumeratedValue",
                       {{"Name", "'P" + std::to_string(i) + "'"}, {"EnumerationValues", "(IFCLABEL('a'))"}});
    }
    const auto model = walls.open();
    const testing_support::Stopwatch watch;
    ReadBack readBack(*model, rowsAbout("P", Many, "A"));
    readBack.read(std::vector<RowState>(Many, RowState::Done));
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    int asAsked = 0;
    for (int i = 0; i < Many; ++i) asAsked += readBack.outcome(static_cast<std::size_t>(i)).asAsked == true;
    EXPECT_EQ(asAsked, Many);
}

/// As the add-on asks: for all classifications of the element with each row.
TEST(ManyRows, OfClassificationsAreAskedForFast) {
    constexpr int Many = 4000, Times = 16000;
    Walls walls;
    for (int i = 0; i < Many; ++i) walls.classification(i);
    const auto model = walls.open();
    const auto element = model->find(*text::parseGuid(guidText(1)));
    ASSERT_TRUE(element);
    const testing_support::Stopwatch watch;
    std::size_t right = 0;
    for (int i = 0; i < Times; ++i) {
        model->visitClassifications(*element, [&](const model::ClassificationReference& reference) {
            right += reference.itemReference->size() > 5 && reference.classificationName == u"UniFormat";
        });
    }
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    EXPECT_EQ(right, std::size_t{Many} * Times);
}

TEST(ManyRows, OfClassificationsAreStoredFast) {
    constexpr int Many = 4000;
    Walls walls;
    for (int i = 0; i < Many; ++i) walls.classification(i);
    const auto model = walls.open();
    const testing_support::Stopwatch watch;
    ReadBack readBack(*model, rowsAbout("System ", Many, "New{Name}"));
    readBack.read(std::vector<RowState>(Many, RowState::Done));
    const auto stored = readBack.storeExactly();
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    ASSERT_TRUE(stored);
    EXPECT_EQ(*stored, std::size_t{Many});
    const auto copy = model::Model::fromBytes(model->bytes());
    ASSERT_TRUE(copy);
    int right = 0;
    (*copy)->visitClassifications(*(*copy)->find(*text::parseGuid(guidText(1))),
                                  [&](const model::ClassificationReference& reference) {
                                      right += reference.itemReference == u"New" && reference.name == u"Name";
                                  });
    EXPECT_EQ(right, Many);
}

}  // namespace
}  // namespace readback
