#pragma once
// The zip archive that a workbook is. Parts are unpacked in stretches and never kept whole.

#include "tables/Result.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct zip;

namespace tables {

class Package {
public:
    /// @param bytes  the archive; must outlive this object.
    static Result<Package> open(std::string_view bytes);

    bool has(const std::string& part) const;

    /// @return false to stop: the rest is not unpacked.
    using Sink = std::function<bool(std::string_view stretch)>;
    /// Fails where there is no such part, where it is damaged or encrypted, and where all that was unpacked so far is
    /// far more than an archive of its size honestly holds, whatever the sizes that it states.
    Status read(const std::string& part, const Sink& sink);
    /// The first bytes of a part, as many as there are; none where it cannot be read.
    std::string beginning(const std::string& part, std::size_t most);

private:
    struct Close {
        void operator()(zip* archive) const;
    };

    Package(zip* archive, std::uint64_t mostUnpacked) : archive_(archive), mostUnpacked_(mostUnpacked) {}

    std::unique_ptr<zip, Close> archive_;
    std::uint64_t mostUnpacked_;
    std::uint64_t unpacked_ = 0;
};

}  // namespace tables
