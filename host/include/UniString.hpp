#pragma once
// GS::UniString: the host's text, a sequence of UTF-16 code units. Positions and lengths count code units from 0.

#include "GSRoot.hpp"

#include <cstring>
#include <string_view>

namespace GS {

/// A Unicode text with value semantics; copies are cheap. The only exception is std::bad_alloc, where memory is used
/// up.
///
/// Narrow text in: UTF-8; every byte that is not part of a well-formed UTF-8 sequence is read as Windows-1252 (its
/// five unassigned bytes as the C1 control of the same number). One fixed rule for every call. A byte-order mark is
/// an ordinary character. Narrow text out: UTF-8; an unpaired surrogate becomes U+FFFD.
class HOST_API UniString {
public:
    /// A narrow copy, owned by this object; valid as long as it lives.
    class HOST_API CStr {
    public:
        CStr(const CStr&) = delete;
        CStr& operator=(const CStr&) = delete;
        ~CStr();
        operator const char*() const { return text_; }
        const char* Get() const { return text_; }

    private:
        friend class UniString;
        explicit CStr(const UniString& source);
        char inlineText_[120];
        char* text_;
    };

    UniString() = default;
    /// Implicit as the host's is: a C string is a text. Null gives an empty text.
    UniString(const char* narrow);
    /// @param narrow  bytes that need no terminator; zero bytes are characters.
    UniString(const char* narrow, USize byteCount);
    UniString(const char16_t* units, USize count);
    explicit UniString(std::u16string_view units) : UniString(units.data(), static_cast<USize>(units.size())) {}
    UniString(const UniString& other) noexcept : text_(other.text_), length_(other.length_) {
        if (isShared()) addOwner();
    }
    UniString(UniString&& other) noexcept : text_(other.text_), length_(other.length_) { other.length_ = 0; }
    ~UniString() {
        if (isShared()) removeOwner();
    }

    UniString& operator=(const UniString& other) noexcept;
    UniString& operator=(UniString&& other) noexcept;
    UniString& operator=(const char* narrow);

    USize GetLength() const { return length_; }
    bool IsEmpty() const { return GetLength() == 0; }
    /// The code units; not terminated; valid until the text is changed.
    const char16_t* GetUnits() const { return isShared() ? text_.shared : text_.own; }
    std::u16string_view View() const { return {GetUnits(), GetLength()}; }
    char16_t operator[](UIndex at) const;  ///< 0xFFFF past the end.

    void Clear();
    UniString& Append(const UniString& tail);
    UniString& operator+=(const UniString& tail) { return Append(tail); }
    friend UniString operator+(UniString head, const UniString& tail) {
        return static_cast<UniString&&>(head.Append(tail));
    }

    /// Inserts before position `at`; a position past the end appends.
    UniString& Insert(UIndex at, const UniString& text);
    /// Deletes `count` units from `from` on, clipped to the text.
    UniString& Delete(UIndex from, Int64 count);
    /// Deletes from `from` to the end.
    UniString& DeleteFrom(UIndex from);
    /// Replaces every occurrence, from left to right; what was put in is not looked at again. An empty `pattern`
    /// changes nothing.
    UniString& ReplaceAll(const UniString& pattern, const UniString& replacement);

    /// @return the position of the first (last) occurrence at or after `from`, or MaxUIndex.
    UIndex FindFirst(char16_t unit, UIndex from = 0) const;
    UIndex FindFirst(const UniString& pattern, UIndex from = 0) const;
    UIndex FindLast(char16_t unit) const;

    /// `count` units from `from` on. A negative count gives an empty text, an oversized one is clipped to the text, a
    /// start past the end gives an empty text.
    UniString GetSubstring(Int64 from, Int64 count) const;

    /// Exact, code unit by code unit: no case folding, no normal forms.
    friend bool operator==(const UniString& a, const UniString& b) { return a.View() == b.View(); }
    friend bool operator!=(const UniString& a, const UniString& b) { return !(a == b); }
    friend bool operator<(const UniString& a, const UniString& b) { return a.View() < b.View(); }

    /// The text as UTF-8. A zero unit inside ends the C string for its reader.
    CStr ToCStr() const { return CStr(*this); }

    /// Reads one number at the beginning of the text. The format is "%i" into an Int64 or "%f" into a double:
    ///  "%i"  optional blanks and sign, then decimal, 0-octal or 0x-hexadecimal digits; a number that 64 bits do not
    ///        hold is read as the nearest one that they do;
    ///  "%f"  optional blanks and sign, decimal digits with at most one point and an optional exponent. The words inf
    ///        and nan and hexadecimal reals are no numbers here: *Infill* and *Nano coating* are text.
    /// What follows the number is not looked at.
    /// @return the number of items converted: 1, or 0 (and the target is left as it was). Any other format gives 0.
    int SScanf(const char* format, Int64* target) const;
    int SScanf(const char* format, double* target) const;

private:
    // A list of properties holds hundreds of texts for a moment, nearly all of them short: these stand in the object. A
    // longer one stands in memory that copies share; whoever changes his copy takes memory of his own.
    static constexpr USize MostOwn = 20;
    union Text {
        char16_t own[MostOwn];
        char16_t* shared;
    };

    bool isShared() const { return length_ > MostOwn; }
    void addOwner() const noexcept;
    void removeOwner() noexcept;
    char16_t* makeRoom(USize count);
    void decode(std::string_view narrow);
    void setShared(char16_t* units, USize length) noexcept;
    void replace(USize from, USize count, std::u16string_view inserted);

    Text text_{};
    USize length_ = 0;
};

}  // namespace GS
