#include "importing/ReviewRows.hpp"

#include <gtest/gtest.h>

namespace importing {
namespace {

ListRow row(const std::string& property, const std::string& message) {
    return {{"[X]", "Wall-01", "Wall", "GUID", property, "", "new", message}, DG_IS_ENABLE, {}};
}

TEST(HintForUnknownItems, NamesTheRowsThatOnlyABracketCouldHelp) {
    const std::string notFound = " Property not found.";
    const std::vector<ListRow> review{row("Slope", notFound), row("Note[Custom]", notFound), row("Name", ""),
                                      row("Tilt", notFound), row("UniFormat Classification", notFound)};
    const std::vector<ListRow> failed(5, row("", "error!")), done(5, row("", "Done"));
    EXPECT_EQ(hintForUnknownItems(review, failed, {}),
              "Nothing on the element has the name in rows 1 and 4: to create a property, write a set behind it, as in "
              "Slope[Custom] for Pset_Custom");
    EXPECT_EQ(hintForUnknownItems(review, failed, {1}),
              "Nothing on the element has the name in row 4: to create a property, write a set behind it, as in "
              "Tilt[Custom] for Pset_Custom");
    EXPECT_EQ(hintForUnknownItems(review, failed, {1, 4}), std::nullopt);
    EXPECT_EQ(hintForUnknownItems(review, done, {}), std::nullopt);
}

TEST(HintForUnknownItems, SuggestsNoPropertyWhereAClassificationWasMeant) {
    const std::vector<ListRow> review{row("SpecSection Classification", " Property not found."),
                                      row("Omniclass classification", " Property not found.")};
    EXPECT_EQ(hintForUnknownItems(review, std::vector<ListRow>(2, row("", "error!")), {}), std::nullopt);
}

TEST(HintForUnknownItems, IsNoneForAClassificationThatTheHostRefused) {
    const std::vector<ListRow> review{row("SpecSection Classification", " Property not found.")};
    EXPECT_EQ(hintForUnknownItems(review, {row("", "error!")}, {}), std::nullopt);
}

}  // namespace
}  // namespace importing
