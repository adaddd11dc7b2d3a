#pragma once
// A memory manager that runs dry, in the eyes of the add-on's image: while one lives, only so many more blocks are
// allocated or grown.

namespace testing_support {

class FailingMemory {
public:
    explicit FailingMemory(int allocationsLeft);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
};

/// How many handles were allocated and not killed yet.
int liveHandles();

}  // namespace testing_support
