// How elements are ordered and found.

#include "Desk.hpp"
#include "desktop/elements/ElementIndex.hpp"
#include "support/Places.hpp"

namespace desktop_tests {

TEST(NaturalOrder, RunsOfDigitsCountAsNumbers) {
    struct Pair {
        const char *first, *second;
    };
    constexpr Pair ordered[] = {
        {"wall 9", "wall 10"}, {"wall", "wall 1"}, {"", "a"},  {"a1b2", "a1b10"},
        {"a-1", "b"},          {"a01b", "a1c"},    {"1", "a"}, {"99999999999999999998", "99999999999999999999"}};
    for (const auto& [first, second] : ordered) {
        EXPECT_TRUE(desktop::naturalLess(first, second)) << first << " | " << second;
        EXPECT_FALSE(desktop::naturalLess(second, first)) << second << " | " << first;
    }
}

TEST(NaturalOrder, EqualTextsAreNotLess) {
    for (const char* text : {"", "a", "wall 10", "007"}) EXPECT_FALSE(desktop::naturalLess(text, text)) << text;
}

class Elements : public ::testing::Test {
protected:
    void SetUp() override {
        auto read = model::Model::open(testing_support::projectFile("samples/house.ifc"));
        ASSERT_TRUE(read) << read.error().message;
        model_ = std::move(*read);
        index_ = std::make_unique<desktop::ElementIndex>(*model_);
    }
    std::size_t found(const char* words) {
        return index_->filtered(index_->sorted(desktop::ElementColumn::Guid, false), QString::fromUtf8(words)).size();
    }
    std::unique_ptr<model::Model> model_;
    std::unique_ptr<desktop::ElementIndex> index_;
};

TEST_F(Elements, StoreysAreListedFromTheLowestUp) {
    std::optional<double> below;
    for (const desktop::StoreyInfo& storey : index_->storeys()) {
        if (!storey.elevation) continue;
        EXPECT_GE(*storey.elevation, below.value_or(*storey.elevation)) << storey.name.toStdString();
        below = storey.elevation;
    }
    EXPECT_TRUE(below.has_value());
}

TEST_F(Elements, EachOrderHasEveryElementOnceAndDescendingIsTheReverseOfDistinctKeys) {
    using desktop::ElementColumn;
    for (const auto column : {ElementColumn::Storey, ElementColumn::Type, ElementColumn::Name, ElementColumn::Room,
                              ElementColumn::Guid, ElementColumn::Class}) {
        auto order = index_->sorted(column, true);
        std::sort(order.begin(), order.end());
        ASSERT_EQ(order.size(), index_->size());
        for (model::Element i = 0; i < index_->size(); ++i) EXPECT_EQ(order[i], i);
    }
    auto up = index_->sorted(ElementColumn::Guid, false);
    std::reverse(up.begin(), up.end());
    EXPECT_EQ(up, index_->sorted(ElementColumn::Guid, true));
}

TEST_F(Elements, EveryWordOfTheFilterMustBeSomewhere) {
    EXPECT_EQ(found(""), index_->size());
    EXPECT_EQ(found("   "), index_->size());
    EXPECT_GT(found("wall"), 0U);
    EXPECT_EQ(found("WALL"), found("wall"));
    EXPECT_EQ(found("wall nosuchthing"), 0U);
    EXPECT_EQ(found("4b77f0f7-86aa"), 1U);
    EXPECT_EQ(found("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9"), 1U);
}

TEST_F(Elements, LetterThatIsAlsoAHexDigitFindsNoGuids) {
    for (model::Element it = 0; it < index_->size(); ++it) ASSERT_FALSE(index_->type(it).contains(u'7'));
    EXPECT_LT(found("7"), index_->size());
}

}  // namespace desktop_tests
