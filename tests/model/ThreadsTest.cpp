// A model is opened and read on one thread, then used on another, as a window does to stay alive; and models that are
// open at the same time share nothing. The build with the thread sanitizer (./test --preset threads -k Threads) finds
// what these tests would pass over by luck.

#include "model/Model.hpp"
#include "support/Places.hpp"

#include <gtest/gtest.h>
#include <thread>

namespace model_tests {

namespace {

std::unique_ptr<model::Model> openHouse() {
    auto opened = model::Model::open(testing_support::projectFile("samples/house.ifc"));
    EXPECT_TRUE(opened) << opened.error().message;
    return opened ? std::move(*opened) : nullptr;
}

/// Fills every cache that reading fills. @return how much was there to read.
std::size_t readAll(const model::Model& model) {
    std::size_t count = 0;
    for (model::Element element = 0; element < model.elementCount(); ++element) {
        count += model.name(element).size() + model.storey(element).size() + model.outline(element).rings.size();
        count += model.attributes(element)->size() + model.properties(element)->size();
        count += model.classifications(element)->size() + (model.placement(element) ? 1 : 0);
    }
    return count;
}

}  // namespace

TEST(Threads, ModelReadByAWorkerIsReadAndChangedByWhoJoinedIt) {
    std::unique_ptr<model::Model> model;
    std::size_t before = 0;
    std::thread([&] {
        model = openHouse();
        before = readAll(*model);
    }).join();
    ASSERT_GT(before, 0U);
    EXPECT_EQ(readAll(*model), before);
    const auto changed = model->command("Rename", [&] {
        for (model::Element element = 0; element < model->elementCount(); ++element) {
            if (!model->setAttribute(element, "Name", u"Renamed")) return 1;
        }
        return 0;
    });
    ASSERT_TRUE(changed);
    EXPECT_EQ(*changed, 0);
    EXPECT_EQ(model->name(0), u"Renamed");
}

TEST(Threads, ModelsOpenAtTheSameTimeShareNothing) {
    std::size_t first = 0, second = 0;
    std::thread one([&] { first = readAll(*openHouse()); });
    std::thread other([&] { second = readAll(*openHouse()); });
    one.join();
    other.join();
    EXPECT_GT(first, 0U);
    EXPECT_EQ(first, second);
}

}  // namespace model_tests
