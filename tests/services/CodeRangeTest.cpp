// Where an add-on's code lies, asked for while memory runs out.

#include "Gallery.hpp"
#include "model/FailingMemory.hpp"

#include "services/CodeRange.hpp"

#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <new>

namespace testing_support {
namespace {

class CodeRange : public Gallery {
protected:
    CodeRange() {
        const auto image = bundle("Sound") / "Contents" / "Linux" / "Sound";
        image_ = dlopen(image.c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    ~CodeRange() override {
        if (image_ != nullptr) dlclose(image_);
    }

    void* image_ = nullptr;
};

TEST_F(CodeRange, HoldsTheImagesFunctionsAndNoOthers) {
    ASSERT_NE(image_, nullptr) << dlerror();
    const host::CodeRange range = host::codeRangeOf(image_);
    const auto addressOf = [](void* handle, const char* name) {
        return reinterpret_cast<std::uintptr_t>(dlsym(handle, name));
    };
    const std::uintptr_t entry = addressOf(image_, "GetExportedFuncAddrs");
    ASSERT_NE(entry, 0U) << dlerror();
    EXPECT_TRUE(range.contains(entry));
    EXPECT_FALSE(range.contains(addressOf(RTLD_DEFAULT, "malloc")));
    EXPECT_FALSE(range.contains(range.end));
}

TEST_F(CodeRange, IsAskedForInVainWhereMemoryRunsOutAndFoundTheNextTime) {
    ASSERT_NE(image_, nullptr) << dlerror();
    const host::CodeRange expected = host::codeRangeOf(image_);
    const auto tryAt = [&](long place, bool fromThenOn) {
        const auto outcome = failing_memory::withFailure(place, fromThenOn, [&] { (void)host::codeRangeOf(image_); });
        EXPECT_NE(outcome, failing_memory::Outcome::Done) << "less memory, and another answer";
        const host::CodeRange again = host::codeRangeOf(image_);
        EXPECT_TRUE(again.begin == expected.begin && again.end == expected.end) << place;
        return outcome;
    };
    failing_memory::atEachAllocation(tryAt, 1);
}

void exhaustMemory() {
    const rlimit none{1, 1};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &none), 0);
    void* volatile taken = nullptr;  // Or the compiler leaves the whole loop out.
    for (std::size_t size = std::size_t{1} << 20U; size >= 16; size /= 2) {
        do taken = std::malloc(size);
        while (taken != nullptr);
    }
}

/// The C library loads its unwinder when an exception comes through it for the first time, and ends the program where
/// it cannot: none must come through its walk over the images.
TEST_F(CodeRange, IsAskedForInVainWhereTheSystemHasNoMemoryLeft) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "with AddressSanitizer a program without memory ends by itself";
#endif
    ASSERT_NE(image_, nullptr) << dlerror();
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto ask = [this] {
        exhaustMemory();
        try {
            (void)host::codeRangeOf(image_);
        } catch (const std::bad_alloc&) {
            _exit(7);
        }
        _exit(0);
    };
    EXPECT_EXIT(ask(), testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace testing_support
