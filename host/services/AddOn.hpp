#pragma once
// A loaded add-on on its way through the load sequence of HostTable.hpp. Every call into its code goes through here.

#include "HostTable.hpp"
#include "ResourceManager.hpp"
#include "model/base/Result.hpp"
#include "services/AddOnImage.hpp"
#include "services/CallGuard.hpp"
#include "text/Message.hpp"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace host {

class AddOn {
public:
    /// Steps 1 and 2: loads the image, reads and checks its record, opens its resource file.
    static model::Result<std::unique_ptr<AddOn>> open(const std::filesystem::path& bundle);
    /// Step 8. After stop().
    ~AddOn();
    AddOn(const AddOn&) = delete;
    AddOn& operator=(const AddOn&) = delete;

    /// Steps 3 to 5. Fails with what went wrong; the add-on is then to be stopped and destroyed.
    model::Status start(const HostFunction* table);
    /// Step 7, where step 5 was reached. The host's operations still answer meanwhile. @return as call().
    std::optional<std::string> stop();

    const std::string& name() const { return addOnName_; }
    const std::string& description() const { return addOnDescription_; }
    GSResModule resources() const { return resourceModule_; }

    /// The add-on's handle: an address of the host's own, never used again while the program runs, so that a stale one
    /// is known as such.
    void* client() const { return clientHandle_; }
    bool registering() const { return stage_ == Stage::Registering; }
    /// Whether the load sequence has reached initialize: the client handle is valid.
    bool initialized() const { return stage_ == Stage::Initialized; }
    bool crashed() const { return hasCrashed_; }
    /// Whether a call into the add-on is under way.
    bool busy() const { return depth_ > 0; }

    /// Runs `body`, which calls the add-on's code. @param where  "a menu command", for the message.
    /// @return nothing, or a complete message where the code crashed or threw. After a crash nothing is run any more.
    template <class Body>
    std::optional<std::string> call(text::Phrase where, Body body) {
        if (hasCrashed_) return refusal(where);
        std::optional<CallFault> fault;
        {
            const Entered entered(*this);
            fault = guarded(image_->code(), body);
            if (fault) noteFault(*fault);
        }
        if (!fault) return std::nullopt;
        return faultMessage(where, *fault);
    }

    /// How many calls have ended in a fault so far.
    std::uint64_t faults() const { return faults_; }

private:
    enum class Stage { Opened, Registering, Registered, Initialized, Stopped };

    /// A call under way. Calls nest: a menu command opens a dialog, whose handler runs an undoable command. When the
    /// outermost one of an add-on that crashed has ended, its image is silenced: no sooner, for the outer ones return
    /// into it.
    class Entered {
    public:
        explicit Entered(AddOn& addOn) : addOn_(addOn) { ++addOn_.depth_; }
        Entered(const Entered&) = delete;
        Entered& operator=(const Entered&) = delete;
        ~Entered() {
            if (--addOn_.depth_ == 0 && addOn_.hasCrashed_) addOn_.image_->silence();
        }

    private:
        AddOn& addOn_;
    };

    explicit AddOn(const std::filesystem::path& bundle);
    model::Status readRecord();
    model::Status bind(const HostFunction* table);
    model::Status checkEnvironment();
    model::Status step(text::Phrase function, GSErrCode (*body)(AddOn&));
    std::string refusal(text::Phrase where) const;
    std::string faultMessage(text::Phrase where, const CallFault& fault) const;
    void noteFault(const CallFault& fault) {
        ++faults_;
        hasCrashed_ = hasCrashed_ || fault.crashed;
    }

    std::string bundleName_;
    std::unique_ptr<AddOnImage> image_;
    FaultWatch faultWatch_;
    ExportedFunctions exported_{};
    GSResModule resourceModule_ = InvalidResModule;
    void* clientHandle_ = nullptr;
    std::string addOnName_, addOnDescription_;
    Stage stage_ = Stage::Opened;
    bool hasCrashed_ = false;
    int depth_ = 0;
    std::uint64_t faults_ = 0;
};

}  // namespace host
