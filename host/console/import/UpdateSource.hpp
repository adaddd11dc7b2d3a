#pragma once
// Where the updates of an import come from: an update file, handed to the add-on byte for byte, or a table of people's,
// turned into update files that the add-on reads like any other.

#include "console/import/UpdateFile.hpp"
#include "model/Model.hpp"
#include "readback/ReadBack.hpp"
#include "tables/ReadReport.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace console {

/// How a table is to be read; nothing of it concerns an update file.
struct TableOptions {
    std::string as;         ///< txt, csv, tsv, xlsx or ods in place of the ending.
    std::string delimiter;  ///< One character, or "tab".
    std::string encoding;
    std::string sheet;
    bool clearEmpty = false;
    bool any() const { return !delimiter.empty() || !encoding.empty() || !sheet.empty() || clearEmpty; }
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
    /// Opens it. @param path  "-" is standard input. Throws Failure where it cannot be read or is neither an update
    /// file nor a table.
    UpdateSource(std::filesystem::path path, const TableOptions& options);
    ~UpdateSource();
    UpdateSource(const UpdateSource&) = delete;
    UpdateSource& operator=(const UpdateSource&) = delete;

    /// For messages.
    std::string name() const { return path_.string(); }
    bool isTable() const { return read_.has_value(); }

    /// Reads it whole against the model. Throws Failure.
    void read(model::Model& model);

    /// Valid after read(), as long as this object lives.
    const std::vector<UpdatePart>& parts() const { return parts_; }
    const updatefile::UpdateFileFindings& findings() const { return findings_; }
    /// Of a table.
    const std::optional<tables::ReadReport>& table() const { return table_; }
    /// What is to be said of a table, its report line first.
    const std::vector<std::string>& notes() const { return notes_; }

private:
    struct Close {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };
    using File = std::unique_ptr<std::FILE, Close>;

    void openTable(const TableOptions& options);
    void readUpdateFile(model::Model& model);
    void readTable(model::Model& model);
    std::string keepPart(const std::string& text);

    std::filesystem::path path_;
    bool clearEmpty_ = false;
    UpdateFile file_;
    std::optional<tables::ReadTable> read_;
    std::vector<File> partFiles_;
    std::vector<UpdatePart> parts_;
    updatefile::UpdateFileFindings findings_;
    std::optional<tables::ReadReport> table_;
    std::vector<std::string> notes_;
};

}  // namespace console
