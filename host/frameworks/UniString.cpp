#include "UniString.hpp"

#include "NarrowText.hpp"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace GS {

namespace {

icu::UnicodeString& text(unsigned char (&storage)[64]) {
    return *std::launder(reinterpret_cast<icu::UnicodeString*>(storage));
}

const icu::UnicodeString& text(const unsigned char (&storage)[64]) {
    return *std::launder(reinterpret_cast<const icu::UnicodeString*>(storage));
}

std::string_view narrowView(const char* narrow) {
    return narrow == nullptr ? std::string_view() : std::string_view(narrow);
}

/// ICU marks a text that it has no memory for as bogus instead of throwing.
void requireMemory(const icu::UnicodeString& result) {
    if (result.isBogus()) throw std::bad_alloc();
}

UIndex toIndex(std::size_t position) {
    return position == std::u16string_view::npos ? MaxUIndex : static_cast<UIndex>(position);
}

}  // namespace

UniString::UniString() {
    static_assert(sizeof(icu::UnicodeString) <= sizeof storage_ && alignof(icu::UnicodeString) <= 8);
    new (storage_) icu::UnicodeString();
}

UniString::UniString(const char* narrow) {
    new (storage_) icu::UnicodeString(frameworks::decodeNarrow(narrowView(narrow)));
}

UniString::UniString(const char* narrow, USize byteCount) {
    new (storage_) icu::UnicodeString(
        frameworks::decodeNarrow(narrow == nullptr ? std::string_view() : std::string_view(narrow, byteCount)));
}

UniString::UniString(const char16_t* units, USize count) {
    if (count > static_cast<USize>(std::numeric_limits<Int32>::max())) throw std::bad_alloc();
    if (units == nullptr) count = 0;
    // With room for just that: ICU gives a text that it copies room to grow, too, and lists keep texts by the thousand.
    new (storage_) icu::UnicodeString(static_cast<Int32>(count), UChar32{0}, 0);
    text(storage_).append(units, static_cast<Int32>(count));
    requireMemory(text(storage_));
}

UniString::UniString(const UniString& other) {
    new (storage_) icu::UnicodeString(text(other.storage_));
    requireMemory(text(storage_));
}

UniString::UniString(UniString&& other) noexcept {
    new (storage_) icu::UnicodeString(std::move(text(other.storage_)));
    text(other.storage_).remove();  // A text that was moved from is bogus to ICU; here it is an empty one.
}

UniString::~UniString() {
    std::destroy_at(&text(storage_));
}

UniString& UniString::operator=(const UniString& other) {
    if (this == &other) return *this;
    text(storage_) = text(other.storage_);
    requireMemory(text(storage_));
    return *this;
}

UniString& UniString::operator=(UniString&& other) noexcept {
    if (this == &other) return *this;
    text(storage_) = std::move(text(other.storage_));
    text(other.storage_).remove();
    return *this;
}

UniString& UniString::operator=(const char* narrow) {
    text(storage_) = frameworks::decodeNarrow(narrowView(narrow));
    return *this;
}

USize UniString::GetLength() const {
    return static_cast<USize>(text(storage_).length());
}

const char16_t* UniString::GetUnits() const {
    return text(storage_).getBuffer();
}

char16_t UniString::operator[](UIndex at) const {
    return at < GetLength() ? text(storage_).charAt(static_cast<Int32>(at)) : char16_t{0xFFFF};
}

void UniString::Clear() {
    text(storage_).remove();
}

UniString& UniString::Append(const UniString& tail) {
    return Insert(MaxUIndex, tail);
}

UniString& UniString::Insert(UIndex at, const UniString& inserted) {
    const Int32 position = static_cast<Int32>(std::min(at, GetLength()));
    text(storage_).insert(position, text(inserted.storage_));
    requireMemory(text(storage_));
    return *this;
}

UniString& UniString::Delete(UIndex from, Int64 count) {
    const USize length = GetLength();
    if (from >= length || count <= 0) return *this;
    const Int64 clipped = std::min<Int64>(count, length - from);
    text(storage_).remove(static_cast<Int32>(from), static_cast<Int32>(clipped));
    return *this;
}

UniString& UniString::DeleteFrom(UIndex from) {
    return Delete(from, std::numeric_limits<Int64>::max());
}

UniString& UniString::ReplaceAll(const UniString& pattern, const UniString& replacement) {
    const std::u16string_view source = View();
    const std::u16string_view searched = pattern.View();
    std::size_t found = searched.empty() ? source.npos : source.find(searched);
    if (found == source.npos) return *this;
    icu::UnicodeString result;
    const auto append = [&result](std::u16string_view part) {
        result.append(part.data(), static_cast<Int32>(part.size()));
    };
    std::size_t done = 0;
    for (; found != source.npos; found = source.find(searched, done)) {
        append(source.substr(done, found - done));
        append(replacement.View());
        done = found + searched.size();
    }
    append(source.substr(done));
    requireMemory(result);
    text(storage_) = std::move(result);
    return *this;
}

// The searches go through the view: ICU's own never find half a surrogate pair, but positions here count code units.

UIndex UniString::FindFirst(char16_t unit, UIndex from) const {
    return toIndex(View().find(unit, from));
}

UIndex UniString::FindFirst(const UniString& pattern, UIndex from) const {
    return toIndex(View().find(pattern.View(), from));
}

UIndex UniString::FindLast(char16_t unit) const {
    return toIndex(View().rfind(unit));
}

UniString UniString::GetSubstring(Int64 from, Int64 count) const {
    const Int64 length = GetLength();
    const Int64 begin = std::clamp<Int64>(from, 0, length);
    // A start before the text uses up some of the count; the subtraction cannot overflow, both being of one sign.
    const Int64 left = from < 0 && count > 0 ? std::max<Int64>(count + from, 0) : count;
    const Int64 clipped = std::clamp<Int64>(left, 0, length - begin);
    return UniString(View().substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(clipped)));
}

UniString::CStr::CStr(const UniString& source) : text_(inlineText_) {
    const std::size_t needed = frameworks::encodeNarrow(source.View(), inlineText_, sizeof inlineText_);
    if (needed < sizeof inlineText_) return;
    text_ = new char[needed + 1];
    frameworks::encodeNarrow(source.View(), text_, needed + 1);
}

UniString::CStr::~CStr() {
    if (text_ != inlineText_) delete[] text_;
}

}  // namespace GS
