#pragma once
// A host with one add-on of the gallery, and a house with one wall that its faults try to change.

#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

#include <string>

namespace testing_support {

/// A wall, guidText(1), named "Wall-01", that stands on the higher of two storeys.
IfcText houseWithWall(const std::string& schema = "IFC4");

class Gallery : public HostFixture {
protected:
    static constexpr Int16 GalleryMenu = 100;
    static constexpr Int16 GalleryDialog = 200;

    static std::filesystem::path bundle(const std::string& name);
    /// What is wrong with the add-on, without the bundle's path; fails the test where it loads.
    std::string loadFailure(const std::filesystem::path& bundle);
    /// Opens the house and loads an add-on of the gallery.
    void use(const std::string& addOn);
    /// Picks the add-on's first menu item.
    GSErrCode pick() { return host_.pickMenuItem(GalleryMenu, 1); }

    /// The wall's name as the model has it now.
    std::string wallName();
};

}  // namespace testing_support
