#include "tables/LibraryVersions.hpp"

#include <expat.h>
#include <xlsxwriter.h>
#include <zip.h>

namespace tables {

std::vector<std::pair<std::string, std::string>> libraryVersions() {
    const XML_Expat_Version expat = XML_ExpatVersionInfo();
    return {
        {"libzip", zip_libzip_version()},
        {"Expat", std::to_string(expat.major) + "." + std::to_string(expat.minor) + "." + std::to_string(expat.micro)},
        {"libxlsxwriter", lxw_version()}};
}

}  // namespace tables
