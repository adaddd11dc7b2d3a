// The examples of the documentation are run, and print what the documentation says.
//
// In a fence of the kind "console", a line that begins with "$ " is a command for the shell; the lines up to the next
// one are all that it prints, standard error first. A fence of the kind "jsonl" is the content of the file named before
// it, steps.jsonl.

#include "ConsoleTest.hpp"
#include "support/Places.hpp"

#include <cstdio>
#include <fstream>

namespace console_tests {
namespace {

struct Example {
    std::string command;
    std::string output;
};

struct Page {
    std::vector<Example> examples;
    std::string steps;
};

Page read(const std::string& file) {
    Page page;
    std::istringstream text(testing_support::bytesOf(testing_support::projectFile("docs") / file));
    std::string fence;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("```"))
            fence = fence.empty() ? line.substr(3) + " " : "";
        else if (fence == "jsonl ")
            page.steps += line + "\n";
        else if (fence == "console " && line.starts_with("$ "))
            page.examples.push_back({line.substr(2), ""});
        else if (fence == "console " && !page.examples.empty())
            page.examples.back().output += line + "\n";
    }
    return page;
}

class Documentation : public ConsoleTest, public testing::WithParamInterface<const char*> {
protected:
    Documentation() {
        for (const char* sample : {"house.ifc", "updates.txt", "doors.csv"})
            std::filesystem::copy_file(testing_support::projectFile("samples") / sample, folder_.path() / sample,
                                       std::filesystem::copy_options::overwrite_existing);
    }

    std::string outputOf(const std::string& command) {
        write("command.sh", "cd '" + folder_.path().string() +
                                "'\nexport COLUMNS=110 LANG=C PATH=" + testing_support::builtFile("").string() +
                                ":$PATH\n{ " + command + "\n} 2> messages > output\ncat messages output\n");
        std::FILE* pipe = popen(("sh '" + (folder_.path() / "command.sh").string() + "'").c_str(), "r");
        std::string text;
        char block[4096];
        for (std::size_t count = 0; (count = std::fread(block, 1, sizeof block, pipe)) > 0;) text.append(block, count);
        pclose(pipe);
        return text;
    }
};

TEST_P(Documentation, ExamplesPrintWhatItSays) {
    const Page page = read(GetParam());
    ASSERT_THAT(page.examples, Not(IsEmpty()));
    write("steps.jsonl", page.steps);
    for (const Example& example : page.examples)
        EXPECT_EQ(outputOf(example.command), example.output) << example.command;
}

INSTANTIATE_TEST_SUITE_P(Pages, Documentation, testing::Values("../README.md", "command-line.md", "scripting.md"));

}  // namespace
}  // namespace console_tests
