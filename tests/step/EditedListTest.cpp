// Lists that are edited one reference at a time: the text is made when it is asked for, and is at every moment the one
// that editing a file anew gives, for texts that are written at once and for those whose edits are kept.

#include "step/StepText.hpp"

#include <random>
#include <utility>

namespace step_tests {
namespace {

/// Up to so many bytes an instance is written at once.
constexpr std::size_t ShortText = 512;

/// An instance of that many bytes whose second argument names #11, #12 and so on, spaced by `separator`.
std::string listOfBytes(std::size_t bytes, const std::string& separator = ",") {
    const std::string head = "#1=A('", behind = "',(", end = "),(#7,#8));";
    std::string list = "#11";
    for (InstanceId id = 12; id < 42; ++id) list += separator + "#" + std::to_string(id);
    const std::size_t others = head.size() + behind.size() + list.size() + end.size();
    EXPECT_GE(bytes, others);
    return head + std::string(bytes - others, 'x') + behind + list + end;
}

enum class Kind { Add, Remove, AddToOther, RemoveFromOther, Replace };

struct Edit {
    Kind kind;
    InstanceId member = 0;
};

bool apply(StepFile& file, const Edit& edit) {
    switch (edit.kind) {
        case Kind::Add:
            return bool(file.addReference(0, 1, edit.member));
        case Kind::Remove:
            return bool(file.removeReferences(0, 1, edit.member));
        case Kind::AddToOther:
            return bool(file.addReference(0, 2, edit.member));
        case Kind::RemoveFromOther:
            return bool(file.removeReferences(0, 2, edit.member));
        default:
            return bool(file.replaceValue(0, argument(file, 1, 0), "'" + std::to_string(edit.member) + "'"));
    }
}

/// What a file read anew becomes by one edit.
std::string edited(const std::string& bytes, const Edit& edit) {
    const auto file = opened(bytes);
    EXPECT_TRUE(file->begin());
    (void)apply(*file, edit);
    file->commit("Edit");
    return file->bytes();
}

class EditedLists : public ::testing::TestWithParam<std::size_t> {};

TEST_P(EditedLists, GrowWithOneStepForEachAddition) {
    const std::string before = fileOf(listOfBytes(GetParam(), ",\n ") + "\n");
    const auto file = opened(before);
    std::string expected = before;
    std::vector<std::string> states{before};
    for (InstanceId id = 50; id < 80; ++id) {
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(file->addReference(0, 1, id));
        ASSERT_TRUE(file->commit("Add"));
        expected.insert(expected.find("),(#7"), ",\n #" + std::to_string(id));
        states.push_back(expected);
    }
    EXPECT_EQ(file->bytes(), states.back());
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        EXPECT_TRUE(file->modified());
        ASSERT_TRUE(file->undo());
        ASSERT_EQ(file->bytes(), states[i]);
    }
    EXPECT_FALSE(file->modified());
    while (file->redo()) {
    }
    EXPECT_EQ(file->bytes(), states.back());
}

TEST_P(EditedLists, KeepWhatCanBeRedoneWhenACommandIsRolledBack) {
    const std::string before = fileOf(listOfBytes(GetParam()) + "\n");
    const auto file = opened(before);
    std::vector<std::string> states{before};
    for (const Edit& edit : {Edit{Kind::Remove, 15}, {Kind::Remove, 20}, {Kind::Remove, 12}}) {
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(apply(*file, edit));
        ASSERT_TRUE(file->commit("Remove"));
        states.push_back(edited(states.back(), edit));
    }
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(apply(*file, {Kind::Remove, 30}));
    EXPECT_EQ(file->bytes(), edited(states[1], {Kind::Remove, 30}));
    file->rollback();
    EXPECT_EQ(file->bytes(), states[1]);
    ASSERT_TRUE(file->redo());
    ASSERT_TRUE(file->redo());
    EXPECT_EQ(file->bytes(), states[3]);
}

TEST_P(EditedLists, AreUnchangedByWhatIsTakenBackInTheSameCommand) {
    const auto file = opened(fileOf(listOfBytes(GetParam()) + "\n"));
    for (int round = 0; round < 3; ++round) {
        const std::string before = file->bytes();
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(apply(*file, {Kind::Add, 60}));
        ASSERT_TRUE(apply(*file, {Kind::Add, 61}));
        ASSERT_TRUE(apply(*file, {Kind::Remove, 60}));
        ASSERT_TRUE(apply(*file, {Kind::Remove, 61}));
        EXPECT_FALSE(file->commit("Nothing"));
        EXPECT_EQ(file->bytes(), before);
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(apply(*file, {Kind::Remove, 12 + InstanceId(round)}));
        ASSERT_TRUE(file->commit("Remove"));
    }
}

TEST_P(EditedLists, AreNotModifiedWhenSeveralStepsLeadBack) {
    const auto file = opened(fileOf(listOfBytes(GetParam()) + "\n"));
    for (const Edit& edit : {Edit{Kind::Add, 60}, {Kind::Remove, 60}}) {
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(apply(*file, edit));
        ASSERT_TRUE(file->commit("Edit"));
        EXPECT_EQ(file->modified(), edit.kind == Kind::Add);
    }
}

/// A file under random edits, and the bytes that it must have.
class RandomEditing {
public:
    RandomEditing(std::size_t bytes, unsigned seed)
        : random_(seed), file_(opened(fileOf(listOfBytes(bytes) + "\n"))), states_{file_->bytes()} {}

    void step() {
        switch (random_() % 4) {
            case 0:
                return undoOrRedo();
            case 1:
                return look();
            default:
                return command();
        }
    }

private:
    Edit anyEdit() {
        const auto kind = static_cast<Kind>(random_() % 12 < 9 ? random_() % 2 : random_() % 5);
        return {kind, 7 + random_() % 50};
    }

    void command() {
        std::string expected = states_[at_];
        ASSERT_TRUE(file_->begin());
        for (auto left = random_() % 5; left > 0; --left) {
            const Edit edit = anyEdit();
            (void)apply(*file_, edit);
            expected = edited(expected, edit);
            if (random_() % 3 == 0) {
                ASSERT_EQ(file_->bytes(), expected);
            }
        }
        if (random_() % 3 == 0) return file_->rollback();
        const bool changed = expected != states_[at_];
        ASSERT_EQ(file_->commit("Edit"), changed);
        if (!changed) return;
        states_.resize(++at_);
        states_.push_back(expected);
    }

    void undoOrRedo() {
        if (random_() % 2 == 0) {
            ASSERT_EQ(file_->undo(), at_ > 0);
            at_ -= at_ > 0 ? 1U : 0U;
        } else {
            ASSERT_EQ(file_->redo(), at_ + 1 < states_.size());
            at_ += at_ + 1 < states_.size() ? 1U : 0U;
        }
    }

    void look() {
        ASSERT_EQ(file_->bytes(), states_[at_]);
        ASSERT_EQ(file_->modified(), states_[at_] != states_[0]);
    }

    std::mt19937 random_;
    std::unique_ptr<StepFile> file_;
    std::vector<std::string> states_;  ///< That undo and redo lead to.
    std::size_t at_ = 0;
};

TEST_P(EditedLists, ReadLikeAFileEditedAnewThroughAnySequence) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomEditing editing(GetParam(), seed);
        for (int i = 0; i < 40 && !HasFatalFailure(); ++i) editing.step();
        ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(Bytes, EditedLists,
                         ::testing::Values(ShortText - 100, ShortText - 1, ShortText, ShortText + 1, ShortText + 100),
                         ::testing::PrintToStringParamName());

/// Tells whether it was told of anything.
class Telltale : public ChangeListener {
public:
    void beforeChange(Slot) noexcept override { ++told; }
    void afterChange(Slot) noexcept override { ++told; }
    void afterRemovals(Slot, std::size_t attributeIndex, std::span<const InstanceId> members,
                       bool gone) noexcept override {
        removals.push_back(std::to_string(attributeIndex) + (gone ? " loses" : " gets"));
        for (const InstanceId member : members) removals.back() += " #" + std::to_string(member);
    }
    void afterManyChanges() noexcept override { ++told; }

    int told = 0;
    std::vector<std::string> removals;
};

TEST_P(EditedLists, TellTheListenerOfNoEditAndOfEachReturn) {
    const auto file = opened(fileOf(listOfBytes(GetParam()) + "\n"));
    Telltale listener;
    file->setListener(&listener);
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(apply(*file, {Kind::Add, 60}));
    ASSERT_TRUE(apply(*file, {Kind::Remove, 12}));
    EXPECT_EQ(listener.told, 0);
    ASSERT_TRUE(file->commit("Edit"));
    EXPECT_EQ(listener.told, 0);
    ASSERT_TRUE(file->undo());
    EXPECT_EQ(listener.told, 2);
    ASSERT_TRUE(file->redo());
    EXPECT_EQ(listener.told, 4);
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(apply(*file, {Kind::Add, 61}));
    file->rollback();
    EXPECT_EQ(listener.told, 6);
    file->setListener(nullptr);
}

TEST_P(EditedLists, TellTheListenerWhatComesBackOfALongListAlone) {
    const auto file = opened(fileOf(listOfBytes(GetParam()) + "\n"));
    Telltale listener;
    file->setListener(&listener);
    for (const InstanceId first : {15U, 20U}) {
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(apply(*file, {Kind::Remove, first}));
        ASSERT_TRUE(apply(*file, {Kind::Remove, first + 1}));
        ASSERT_TRUE(file->commit("Remove"));
    }
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->redo());
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(apply(*file, {Kind::Remove, 30}));
    file->rollback();
    if (GetParam() > ShortText) {
        // What is removed where something can be redone begins another list.
        EXPECT_EQ(testing::PrintToString(listener.removals),
                  R"({ "1 gets #20 #21", "1 gets #15 #16", "1 loses #15 #16" })");
        EXPECT_EQ(listener.told, 2);
    } else {
        EXPECT_TRUE(listener.removals.empty());
        EXPECT_EQ(listener.told, 8);
    }
    file->setListener(nullptr);
}

TEST_P(EditedLists, RaiseTheRevisionWithEachAddition) {
    const auto file = opened(fileOf(listOfBytes(GetParam()) + "\n"));
    ASSERT_TRUE(file->begin());
    const std::uint64_t before = file->revision();
    ASSERT_TRUE(apply(*file, {Kind::Add, 60}));
    ASSERT_TRUE(apply(*file, {Kind::Add, 61}));
    EXPECT_EQ(file->revision(), before + 2);
}

struct Addition {
    const char* name;
    std::string before;
    std::string after;  ///< With #5 and #6.
};

std::ostream& operator<<(std::ostream& out, const Addition& addition) {
    return out << addition.before;
}

class AddingReferences : public ::testing::TestWithParam<Addition> {};

TEST_P(AddingReferences, SpacesThemAsOneAfterTheOther) {
    // Behind a text that makes it long, so that both are added at once.
    for (const std::string& padding : {std::string(), "/*" + std::string(ShortText, 'c') + "*/"}) {
        const auto file = opened(fileOf("#1=A(" + padding + GetParam().before + ");\n"));
        ASSERT_TRUE(file->begin());
        ASSERT_TRUE(file->addReference(0, 0, 5));
        ASSERT_TRUE(file->addReference(0, 0, 6));
        EXPECT_EQ(file->text(0), "#1=A(" + padding + GetParam().after + ");");
    }
}

INSTANTIATE_TEST_SUITE_P(Lists, AddingReferences,
                         ::testing::Values(Addition{"ToNone", "()", "(#5,#6)"},
                                           Addition{"ToNoneWithBlanks", "(  )", "(  #5,#6)"},
                                           Addition{"ToOne", "( #2 )", "( #2,#5,#6 )"},
                                           Addition{"ToTwoOnLines", "(#2,\r\n #3)", "(#2,\r\n #3,\r\n #5,\r\n #6)"},
                                           Addition{"BehindAComment", "(#2,/*c*/ #3)", "(#2,/*c*/ #3,#5,#6)"},
                                           Addition{"BehindWhatIsNoReference", "(#2, 'x')", "(#2, 'x', #5, #6)"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace step_tests
