// The add-on's texts and dialogs, in each language that it has.

#include "FakeHost.hpp"
#include "support/HostFixture.hpp"

#include <gmock/gmock.h>

#include <cstdlib>

using namespace testing_support;

namespace {

struct Language {
    const char* locale;
    const char* name;
    std::vector<std::string> menu;
    const char* apply;
};

void PrintTo(const Language& language, std::ostream* stream) {
    *stream << language.locale;
}

/// The user's language, for as long as it lives.
class UserLanguage {
public:
    explicit UserLanguage(const char* locale) {
        if (const char* value = std::getenv("LC_ALL")) before_ = value;
        setenv("LC_ALL", locale, 1);
    }
    ~UserLanguage() { before_ ? setenv("LC_ALL", before_->c_str(), 1) : unsetenv("LC_ALL"); }
    UserLanguage(const UserLanguage&) = delete;
    UserLanguage& operator=(const UserLanguage&) = delete;

private:
    std::optional<std::string> before_;
};

class Resources : public HostFixture, public ::testing::WithParamInterface<Language> {
protected:
    void SetUp() override {
        const UserLanguage language(GetParam().locale);
        loadAddOn();
    }

    void inDialog(Int32 menuItem, const std::function<void(frontend::Dialog&)>& user) {
        if (menuItem == ImportItem) view_.pickNextFile(folder_.write("updates.txt", "").string());
        view_.inNextDialog(user);
        EXPECT_EQ(host_.pickMenuItem(AddOnMenu, menuItem), NoError);
    }
};

TEST_P(Resources, AddOnAndMenuHaveTheirTexts) {
    EXPECT_EQ(host_.addOnName(), GetParam().name);
    EXPECT_NE(host_.addOnDescription(), "");
    ASSERT_EQ(host_.menus().size(), 1U);
    std::vector<std::string> items;
    for (const host::MenuItem& item : host_.menus()[0].items) {
        items.push_back(narrow(item.text));
        EXPECT_FALSE(item.prompt.IsEmpty());
    }
    EXPECT_EQ(items, GetParam().menu);
}

TEST_P(Resources, ImportDialogHasItsItems) {
    inDialog(ImportItem, [](frontend::Dialog& dialog) {
        EXPECT_EQ(dialog.items().size(), 5U);
        EXPECT_TRUE(dialog.growable());
        EXPECT_EQ(narrow(dialog.item(ImportDialog::Apply)->text), GetParam().apply);
        for (const frontend::HeaderItem& column : dialog.list(ImportDialog::Review)->header())
            EXPECT_FALSE(column.text.IsEmpty());
    });
}

bool overlap(const frontend::Rect& a, const frontend::Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

void expectTidy(const frontend::Dialog& dialog) {
    for (const frontend::Item& item : dialog.items()) {
        EXPECT_TRUE(item.rect.left >= 0 && item.rect.top >= 0 && item.rect.right <= dialog.width() &&
                    item.rect.bottom <= dialog.height())
            << "item " << item.number << " leaves the dialog";
        for (const frontend::Item& other : dialog.items())
            EXPECT_TRUE(item.number == other.number || !overlap(item.rect, other.rect))
                << "items " << item.number << " and " << other.number;
    }
}

TEST_P(Resources, ItemsStayInsideTheDialogsAndApartAtEverySize) {
    for (const Int32 menuItem : {ImportItem, LookupItem}) {
        inDialog(menuItem, [](frontend::Dialog& dialog) {
            expectTidy(dialog);
            EXPECT_TRUE(dialog.resize(-20000, -20000));
            expectTidy(dialog);
            EXPECT_TRUE(dialog.resize(3001, 999));
            expectTidy(dialog);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(
    Languages, Resources,
    ::testing::Values(
        Language{"C", "Quillmarsh Updates", {"Import Updates...", "Look Up Element..."}, "Apply"},
        Language{"en_GB.UTF-8", "Quillmarsh Updates", {"Import Updates...", "Look Up Element..."}, "Apply"},
        Language{"de_DE.UTF-8",
                 "Quillmarsh-Aktualisierungen",
                 {"Aktualisierungen importieren...", "Element nachschlagen..."},
                 "Übernehmen"},
        Language{"fr_FR.UTF-8", "Quillmarsh Updates", {"Import Updates...", "Look Up Element..."}, "Apply"}));

}  // namespace
