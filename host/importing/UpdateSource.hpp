#pragma once
// Where the updates of an import come from: an update file, handed to the add-on byte for byte, or a table of people's,
// turned into update files that the add-on reads like any other.

#include "importing/UpdateFile.hpp"
#include "model/Model.hpp"
#include "readback/ReadBack.hpp"
#include "tables/ReadReport.hpp"
#include "tables/Reading.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace importing {

/// How a file is to be read; nothing of a table's concerns an update file.
struct SourceOptions {
    bool asUpdateFile = false;  ///< Whatever its ending.
    tables::ReadOptions table;  ///< `as` makes it a table whatever its ending.
    bool clearEmpty = false;    ///< Empty cells ask for the empty text.
};

/// What one line of an update file asks for, and where it stands in the file that people know.
struct AskedLine {
    std::uint64_t line = 0;
    std::string column;  ///< Of a table.
    readback::AskedRow asked;
};

/// One file for the add-on, which becomes one review list.
struct UpdatePart {
    std::string path;              ///< By which the add-on opens it.
    std::uint64_t lines = 0;       ///< That the add-on takes.
    std::vector<AskedLine> asked;  ///< Those that give a row: their element is in the model.
};

class UpdateSource {
public:
    /// @param path  "-" is standard input. Fails where it cannot be read, or is no table though it should be one.
    static model::Result<std::unique_ptr<UpdateSource>> open(const std::filesystem::path& path,
                                                             const SourceOptions& options);
    UpdateSource(const UpdateSource&) = delete;
    UpdateSource& operator=(const UpdateSource&) = delete;

    /// For messages.
    std::string name() const { return path_.string(); }
    bool isTable() const { return read_.has_value(); }

    /// Reads it whole against the model. An update file of which the add-on can make nothing is no failure: see
    /// updatefile::uselessBecause.
    model::Status read(const model::Model& model);

    /// Valid after read(), as long as this object lives.
    const std::vector<UpdatePart>& parts() const { return parts_; }
    const updatefile::UpdateFileFindings& findings() const { return findings_; }
    /// The lines whose element the model has not got, in order.
    const std::vector<std::uint64_t>& linesOfUnknownElements() const { return linesOfUnknownElements_; }
    /// Of a table.
    const std::optional<tables::ReadReport>& table() const { return table_; }
    /// What is to be said of a table, its report line first.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    UpdateSource(std::filesystem::path path, bool clearEmpty, UpdateFile file);
    model::Status openTable(const tables::ReadOptions& options);
    model::Status readUpdateFile(const model::Model& model);
    model::Status readTable(const model::Model& model);
    model::Result<std::string> keepPart(const std::string& text);

    std::filesystem::path path_;
    bool clearEmpty_;
    UpdateFile file_;
    std::optional<tables::ReadTable> read_;
    std::vector<KeptFile> partFiles_;
    std::vector<UpdatePart> parts_;
    updatefile::UpdateFileFindings findings_;
    std::vector<std::uint64_t> linesOfUnknownElements_;
    std::optional<tables::ReadReport> table_;
    std::vector<std::string> notes_;
};

}  // namespace importing
