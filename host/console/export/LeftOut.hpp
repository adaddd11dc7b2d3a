#pragma once
// The values that an export had to leave out, by reason and item.

#include "console/export/UpdateLine.hpp"

#include <map>
#include <string>
#include <vector>

namespace console {

class LeftOut {
public:
    struct Group {
        Obstacle obstacle;
        std::string item;
        std::uint64_t count = 0;
        std::vector<std::string> examples;  ///< The first few elements' GUIDs.
    };

    void add(Obstacle obstacle, const std::string& item, const std::string& guid);

    std::vector<Group> groups() const;
    /// "12 values of FireRating[WallCommon] left out: REASON (GUID, GUID, GUID and 9 more)"
    static std::string text(const Group& group);

private:
    std::map<std::pair<Obstacle, std::string>, Group> byReason_;
};

}  // namespace console
