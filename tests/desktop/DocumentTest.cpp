// Which thread may touch the model that is open.

#include "desktop/window/Document.hpp"
#include "support/Places.hpp"

#include <gtest/gtest.h>
#include <thread>

namespace desktop_tests {

TEST(DocumentDeathTest, ModelIsRefusedToAnyThreadButTheUsers) {
    host::Host host;
    desktop::Document document(host);
    auto opened = model::Model::open(testing_support::projectFile("samples/house.ifc"));
    ASSERT_TRUE(opened) << opened.error().message;
    auto index = std::make_unique<desktop::ElementIndex>(**opened);
    document.adopt({std::move(*opened), std::move(index)}, QStringLiteral("house.ifc"));
    EXPECT_NE(document.model(), nullptr);
    EXPECT_DEATH(std::thread([&] { document.model(); }).join(), "belongs to the user's thread");
}

}  // namespace desktop_tests
