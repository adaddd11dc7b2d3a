#include "UniString.hpp"

#include "NarrowText.hpp"
#include "text/FindUnit.hpp"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <limits>
#include <new>
#include <string>
#include <utility>

namespace GS {

namespace {

constexpr std::size_t LongestText = std::numeric_limits<Int32>::max();

/// What stands before the code units of a text that copies share.
struct Shared {
    std::atomic<UInt32> owners;
    USize capacity;
};

Shared& sharedOf(char16_t* units) {
    return *std::launder(reinterpret_cast<Shared*>(reinterpret_cast<unsigned char*>(units) - sizeof(Shared)));
}

/// With one owner.
char16_t* allocate(std::size_t capacity) {
    if (capacity > LongestText) throw std::bad_alloc();
    auto* const memory = static_cast<unsigned char*>(::operator new(sizeof(Shared) + capacity * sizeof(char16_t)));
    new (memory) Shared{{1}, static_cast<USize>(capacity)};
    return reinterpret_cast<char16_t*>(memory + sizeof(Shared));
}

/// @return behind what was copied.
char16_t* copy(std::u16string_view units, char16_t* target) {
    return std::copy(units.begin(), units.end(), target);
}

std::string_view narrowView(const char* narrow) {
    return narrow == nullptr ? std::string_view() : std::string_view(narrow);
}

UIndex toIndex(std::size_t position) {
    return position == std::u16string_view::npos ? MaxUIndex : static_cast<UIndex>(position);
}

}  // namespace

UniString::UniString(const char* narrow) {
    decode(narrowView(narrow));
}

UniString::UniString(const char* narrow, USize byteCount) {
    if (narrow != nullptr) decode({narrow, byteCount});
}

UniString::UniString(const char16_t* units, USize count) {
    if (units == nullptr) return;
    copy({units, count}, makeRoom(count));
    length_ = count;
}

/// Of a text without a unit. @return where the units go; the length is still to be set.
char16_t* UniString::makeRoom(USize count) {
    if (count <= MostOwn) return text_.own;
    return text_.shared = allocate(count);
}

/// Of a text without a unit.
void UniString::decode(std::string_view narrow) {
    if (narrow.size() <= MostOwn) {
        length_ = static_cast<USize>(frameworks::decodeNarrow(narrow, text_.own));
        return;
    }
    // No sequence has more code units than bytes.
    char16_t* const units = allocate(narrow.size());
    setShared(units, static_cast<USize>(frameworks::decodeNarrow(narrow, units)));
}

/// Takes over units that nobody else has, where there are too many of them to stand in the object.
void UniString::setShared(char16_t* units, USize length) noexcept {
    if (length > MostOwn) {
        text_.shared = units;
    } else {
        copy({units, length}, text_.own);
        ::operator delete(&sharedOf(units));
    }
    length_ = length;
}

void UniString::addOwner() const noexcept {
    sharedOf(text_.shared).owners.fetch_add(1, std::memory_order_relaxed);
}

void UniString::removeOwner() noexcept {
    Shared& shared = sharedOf(text_.shared);
    if (shared.owners.fetch_sub(1, std::memory_order_acq_rel) == 1) ::operator delete(&shared);
}

UniString& UniString::operator=(const UniString& other) noexcept {
    return *this = UniString(other);
}

UniString& UniString::operator=(UniString&& other) noexcept {
    if (this == &other) return *this;
    if (isShared()) removeOwner();
    text_ = other.text_;
    length_ = std::exchange(other.length_, 0);
    return *this;
}

UniString& UniString::operator=(const char* narrow) {
    return *this = UniString(narrow);
}

char16_t UniString::operator[](UIndex at) const {
    return at < length_ ? GetUnits()[at] : char16_t{0xFFFF};
}

void UniString::Clear() {
    *this = UniString();
}

/// Puts `inserted`, which may be a part of this text, in the place of `count` units from `from` on.
void UniString::replace(USize from, USize count, std::u16string_view inserted) {
    const std::u16string_view old = View();
    const std::u16string_view tail = old.substr(from + count);
    const std::size_t length = from + inserted.size() + tail.size();
    const bool fits = length <= MostOwn
                          ? !isShared()
                          : isShared() && sharedOf(text_.shared).owners.load(std::memory_order_acquire) == 1 &&
                                length <= sharedOf(text_.shared).capacity;
    const std::less<const char16_t*> before;
    const bool apart =
        inserted.empty() || before(inserted.data(), old.data()) || !before(inserted.data(), old.data() + old.size());
    if (fits && apart) {
        char16_t* const units = isShared() ? text_.shared : text_.own;
        std::memmove(units + from + inserted.size(), tail.data(), tail.size() * sizeof(char16_t));
        copy(inserted, units + from);
        length_ = static_cast<USize>(length);
        return;
    }
    // Room to grow, so that a text that is put together of many does not move with each of them; not much, since lists
    // keep texts by the thousand.
    UniString replaced;
    char16_t* units = replaced.text_.own;
    if (length > MostOwn) units = allocate(std::max(length, std::min(length + length / 8 + 32, LongestText)));
    copy(tail, copy(inserted, copy(old.substr(0, from), units)));
    if (length > MostOwn) replaced.text_.shared = units;
    replaced.length_ = static_cast<USize>(length);
    *this = std::move(replaced);
}

UniString& UniString::Append(const UniString& tail) {
    return Insert(MaxUIndex, tail);
}

UniString& UniString::Insert(UIndex at, const UniString& inserted) {
    replace(std::min(at, length_), 0, inserted.View());
    return *this;
}

UniString& UniString::Delete(UIndex from, Int64 count) {
    if (from >= length_ || count <= 0) return *this;
    replace(from, static_cast<USize>(std::min<Int64>(count, length_ - from)), {});
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
    std::u16string result;
    std::size_t done = 0;
    for (; found != source.npos; found = source.find(searched, done)) {
        result.append(source.substr(done, found - done)).append(replacement.View());
        done = found + searched.size();
    }
    *this = UniString(result.append(source.substr(done)));
    return *this;
}

UIndex UniString::FindFirst(char16_t unit, UIndex from) const {
    if (from >= length_) return MaxUIndex;
    const std::size_t found = text::findUnit(View().substr(from), unit);
    return found == std::u16string_view::npos ? MaxUIndex : static_cast<UIndex>(from + found);
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
