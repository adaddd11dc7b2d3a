#pragma once
// A bundle path as another system would give it, which no file of this one has. While one lives, the image that is
// loaded is told this path in place of its own.

#include <string>

namespace testing_support {

class ScriptedBundlePath {
public:
    explicit ScriptedBundlePath(std::string path);
    ~ScriptedBundlePath();
    ScriptedBundlePath(const ScriptedBundlePath&) = delete;
    ScriptedBundlePath& operator=(const ScriptedBundlePath&) = delete;
};

}  // namespace testing_support
