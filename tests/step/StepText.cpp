#include "step/StepText.hpp"

#include <filesystem>
#include <stdexcept>

namespace step_tests {

namespace {

constexpr std::string_view Head =
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
    "FILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n";
constexpr std::string_view Tail = "ENDSEC;\nEND-ISO-10303-21;\n";

}  // namespace

std::string fileOf(std::string_view data) {
    return std::string(Head).append(data).append(Tail);
}

std::string dataOf(const std::string& bytes) {
    EXPECT_TRUE(bytes.starts_with(Head) && bytes.ends_with(Tail)) << bytes;
    return bytes.substr(Head.size(), bytes.size() - Head.size() - Tail.size());
}

std::unique_ptr<StepFile> opened(const std::string& bytes) {
    auto file = StepFile::fromBytes(bytes);
    if (!file) throw std::runtime_error(file.error().message);
    return std::move(*file);
}

std::string openingError(const std::string& bytes) {
    const auto file = StepFile::fromBytes(bytes);
    if (file) return "it was opened";
    EXPECT_EQ(file.error().kind, ErrorKind::CannotRead);
    return file.error().message;
}

std::vector<std::string> instances(const StepFile& file) {
    std::vector<std::string> texts;
    for (Slot slot = 0; slot < file.slotCount(); ++slot)
        if (file.present(slot)) texts.emplace_back(file.text(slot));
    return texts;
}

std::vector<std::string> remarks(const StepFile& file) {
    std::vector<std::string> texts;
    for (const Remark& remark : file.remarks()) texts.push_back(std::to_string(remark.line) + ": " + remark.message);
    return texts;
}

Value argument(const StepFile& file, InstanceId id, std::size_t number) {
    Instance instance;
    const Slot slot = file.find(id);
    if (slot == NoSlot || !file.read(slot, instance) || number >= instance.arguments.size()) {
        ADD_FAILURE() << "no argument " << number << " of #" << id;
        return {};
    }
    return instance.arguments[number];
}

template <class Edit>
auto Editing::command(Edit edit) {
    EXPECT_TRUE(file->begin());
    auto result = edit();
    file->commit("Edit");
    return result;
}

Status Editing::replace(InstanceId id, std::size_t number, std::string_view text) {
    return command([&] { return file->replaceValue(file->find(id), argument(*file, id, number), text); });
}

Status Editing::add(InstanceId id, std::size_t number, InstanceId member) {
    return command([&] { return file->addReference(file->find(id), number, member); });
}

Status Editing::erase(InstanceId id) {
    return command([&] { return file->erase(file->find(id)); });
}

Result<Slot> Editing::append(std::string_view body, InstanceId neighbour) {
    return command([&] { return file->append(body, file->find(neighbour)); });
}

Result<Slot> Editing::insertBehind(std::string_view body, InstanceId original) {
    return command([&] { return file->insertBehind(body, file->find(original)); });
}

}  // namespace step_tests
