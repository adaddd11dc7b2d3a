#pragma once
// The whole program under test without a screen: the host's services, a model, the real add-on, a scripted user.
//
//     class Importing : public HostFixture {};
//     TEST_F(Importing, TickedRowIsWritten) {
//         openText(house);
//         auto rows = importUpdates(guidText(1) + "\tName\t\tNew name\n", [](ImportDialog& dialog) {
//         dialog.tick(1).apply();
//         }); EXPECT_EQ(rows[0].remarks, "Done"); EXPECT_THAT(savedText(), HasSubstr("'New name'"));
//     }

#include "services/Host.hpp"
#include "support/AddOnFixture.hpp"

namespace testing_support {

class HostFixture : public AddOnFixture {
protected:
    void openText(std::string_view ifc);
    void openFile(const std::filesystem::path& file);
    /// Loads the real add-on. The verbs do it by themselves where it is not loaded yet.
    void loadAddOn();

    /// Saves to a new file. @return its bytes.
    std::string savedText();
    /// The report, a line each.
    std::string reportText() const;
    const std::string& debugOutput() const { return debug_.text; }

    host::Host host_;

private:
    void run(Int32 item) override;

    int saves_ = 0;
};

}  // namespace testing_support
