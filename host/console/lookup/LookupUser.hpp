#pragma once
// The user of the lookup dialog: types one GUID after the other and reads the rows that each lookup appends.

#include "console/output/ListRows.hpp"

#include <optional>
#include <string>
#include <vector>

namespace console {

struct LookupAnswer {
    std::string guid;  ///< As looked up.
    std::vector<ListRow> rows;

    /// "BADID" and the like; empty where the element was found; "?" where the add-on named no reason.
    std::string error() const;
};

class LookupUser : public frontend::View {
public:
    /// @param guids  none: the one that the dialog opens with.
    explicit LookupUser(std::vector<std::string> guids);
    ~LookupUser() override;

    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest& request) override;

    bool dialogSeen() const { return seen_; }
    const std::vector<std::string>& header() const { return headerTexts_; }
    const std::vector<LookupAnswer>& answers() const { return found_; }

private:
    void lookUp(frontend::Dialog& dialog);

    std::vector<std::string> guids_;
    bool seen_ = false;
    std::vector<std::string> headerTexts_;
    std::vector<LookupAnswer> found_;
};

}  // namespace console
