#pragma once
// Where the project, its programs and the real models are. Only Places.cpp is compiled with these paths, so that
// another clone finds everything else in the compiler's cache.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace testing_support {

/// A file of the project's, "samples/house.ifc".
std::filesystem::path projectFile(const std::filesystem::path& name);

/// A program or bundle that the build made, "modelhost".
std::filesystem::path builtFile(const std::filesystem::path& name);

/// An add-on of the gallery, "Probe.bundle".
std::filesystem::path galleryAddOn(const std::filesystem::path& bundle);

/// The models that whatever must hold for any model is tested on: the sample, those that scripts/make_models.py makes,
/// and the .ifc files of the folder that the environment variable REAL_MODELS names (../shared/models beside the
/// project where it is not set). The last add to the tests, nothing depends on them.
std::vector<std::string> models();

/// What such a test is called: the file's name in letters and digits.
std::string nameOfModel(const ::testing::TestParamInfo<std::string>& model);

}  // namespace testing_support
