#pragma once
// XML as it comes, element by element: a sheet is never in memory as a tree.

#include "tables/Result.hpp"
#include "tables/reading/Package.hpp"

#include <string>
#include <string_view>

namespace tables::xml {

/// Of the element that begins. Valid only during the call.
class Attributes {
public:
    explicit Attributes(const char** list) : list_(list) {}

    /// @param space  the end of the namespace, for names that several have: "xmlns:office:1.0"; empty: any or none.
    /// @return the value, empty where there is none.
    std::string_view value(std::string_view name, std::string_view space = {}) const;

private:
    const char** list_;  ///< "namespace|name", value, ..., null.
};

/// Who wants to know. Names come without their namespace: workbooks differ in prefixes, and in namespaces where they
/// are "strict", but no two elements that are looked for have one name.
class Handler {
public:
    virtual ~Handler() = default;
    virtual void begin(std::string_view name, const Attributes& attributes) = 0;
    virtual void end(std::string_view name) = 0;
    virtual void text(std::string_view part) = 0;

    /// True: enough was read, or something was wrong; nothing more is passed on.
    bool stopped() const { return stopped_; }
    /// Why it stopped, where that is an error; otherwise empty.
    const std::string& failure() const { return failure_; }

protected:
    void stop() { stopped_ = true; }
    void fail(std::string message) {
        failure_ = std::move(message);
        stopped_ = true;
    }

private:
    bool stopped_ = false;
    std::string failure_;
};

/// Passes a part of the package to the handler.
Status read(Package& package, const std::string& part, Handler& handler);

}  // namespace tables::xml
