#include "tables/reading/Xml.hpp"

#include "text/Message.hpp"

#include <expat.h>

#include <exception>
#include <memory>
#include <utility>

namespace tables::xml {
namespace {

constexpr char SpaceEnd = '|';
/// A tag that is not whole yet is looked through again with each stretch that comes; without a limit one tag as long as
/// the file would cost the square of its length.
constexpr XML_Index LongestTag = XML_Index{1} << 20U;

struct FreeParser {
    void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
};

std::string_view withoutSpace(std::string_view name) {
    return name.substr(name.rfind(SpaceEnd) + 1);
}

/// Between the library, through whose C functions no exception may pass, and the handler.
class Reader {
public:
    explicit Reader(Handler& handler) : parser_(XML_ParserCreateNS(nullptr, SpaceEnd)), handler_(handler) {
        if (parser_ == nullptr) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), begin, end);
        XML_SetCharacterDataHandler(parser_.get(), text);
        XML_SetStartDoctypeDeclHandler(parser_.get(), doctype);
    }

    /// @return false where nothing more is wanted or possible.
    bool feed(std::string_view stretch, bool last) {
        const XML_Status status =
            XML_Parse(parser_.get(), stretch.data(), static_cast<int>(stretch.size()), last ? XML_TRUE : XML_FALSE);
        // Back in our own code, where it may go on.
        if (thrown_) std::rethrow_exception(thrown_);
        fed_ += static_cast<XML_Index>(stretch.size());
        if (handler_.stopped()) return false;
        if (status != XML_STATUS_OK && broken_.empty()) broken_ = XML_ErrorString(XML_GetErrorCode(parser_.get()));
        if (broken_.empty() && fed_ - XML_GetCurrentByteIndex(parser_.get()) > LongestTag)
            broken_ = text::message("tag too long");
        return broken_.empty();
    }

    /// What is wrong with the XML, with the place; empty where nothing is.
    std::string complaint() const {
        if (broken_.empty()) return {};
        return text::message("{} at line {}, column {}", broken_, XML_GetCurrentLineNumber(parser_.get()),
                             XML_GetCurrentColumnNumber(parser_.get()) + 1);
    }

private:
    template <class Call>
    static void guarded(void* self, Call call) {
        auto& reader = *static_cast<Reader*>(self);
        if (reader.handler_.stopped() || !reader.broken_.empty()) return;
        try {
            call(reader);
        } catch (...) {
            reader.thrown_ = std::current_exception();
        }
        if (reader.thrown_ || reader.handler_.stopped() || !reader.broken_.empty())
            XML_StopParser(reader.parser_.get(), XML_FALSE);
    }

    static void XMLCALL begin(void* self, const char* name, const char** attributes) {
        guarded(self, [&](Reader& reader) { reader.handler_.begin(withoutSpace(name), Attributes(attributes)); });
    }
    static void XMLCALL end(void* self, const char* name) {
        guarded(self, [&](Reader& reader) { reader.handler_.end(withoutSpace(name)); });
    }
    static void XMLCALL text(void* self, const char* part, int length) {
        guarded(self, [&](Reader& reader) { reader.handler_.text({part, static_cast<std::size_t>(length)}); });
    }
    /// No workbook has one; entities that unfold to gigabytes need one.
    static void XMLCALL doctype(void* self, const char*, const char*, const char*, int) {
        guarded(self, [](Reader& reader) { reader.broken_ = text::message("a document type"); });
    }

    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    Handler& handler_;
    std::exception_ptr thrown_;
    std::string broken_;
    XML_Index fed_ = 0;
};

}  // namespace

std::string_view Attributes::value(std::string_view name, std::string_view space) const {
    for (const char** at = list_; *at != nullptr; at += 2) {
        const std::string_view full = *at;
        if (withoutSpace(full) != name) continue;
        const std::string_view own = full.substr(0, full.size() - name.size());
        if (space.empty() || (own.size() > space.size() && own.substr(0, own.size() - 1).ends_with(space)))
            return at[1];
    }
    return {};
}

Status read(Package& package, const std::string& part, Handler& handler) {
    Reader reader(handler);
    bool going = true;
    Status status = package.read(part, [&](std::string_view stretch) { return going = reader.feed(stretch, false); });
    if (!status) return status;
    if (going) reader.feed({}, true);
    if (!handler.failure().empty()) return Error{handler.failure()};
    if (const std::string complaint = reader.complaint(); !complaint.empty()) {
        return Error{text::message(
            "the workbook is damaged: {} is no XML: {}; open and save it with its own program, or fetch it again", part,
            complaint)};
    }
    return {};
}

}  // namespace tables::xml
