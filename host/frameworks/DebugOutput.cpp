// DBPrintf: formats are parsed here, never handed to the C library as they came, since an add-on passes texts of the
// model as formats.

#include "FrontEnd.hpp"
#include "GSRoot.hpp"
#include "NeverDestroyed.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

namespace {

// A width or precision beyond this comes from a text that is no format; and would only print a megabyte of blanks.
constexpr int MostDigits = 255;

frontend::DebugSink& debugSink() {
    static auto& sink = frameworks::neverDestroyed<frontend::DebugSink>();
    return sink;
}

/// One conversion of a format: "%", flags, width, precision, length, letter.
struct Conversion {
    std::string_view source;  ///< As it stands in the format.
    std::string flags;
    int width = -1;
    int precision = -1;
    bool isLong = false;
    char letter = '\0';  ///< '\0' where it is none.
};

bool isOneOf(char letter, std::string_view letters) {
    return letters.find(letter) != letters.npos;
}

class ConversionParser {
public:
    explicit ConversionParser(std::string_view text) : source_(text) {}

    Conversion parse() {
        Conversion result;
        at_ = 1;
        for (; peekedIn("-+ #0"); ++at_)
            if (!peekedIn(result.flags)) result.flags += peek();
        result.width = parseNumber();
        if (peek() == '.') {
            ++at_;
            result.precision = std::max(parseNumber(), 0);
        }
        for (; peekedIn("hljztLq"); ++at_) result.isLong = result.isLong || peek() != 'h';
        if (peekedIn("diuxXocsfFeEgGaAp")) result.letter = source_[at_++];
        result.source = source_.substr(0, at_);
        return result;
    }

private:
    char peek() const { return at_ < source_.size() ? source_[at_] : '\0'; }
    bool peekedIn(std::string_view letters) const { return isOneOf(peek(), letters); }

    /// @return -1 where no digit stands.
    int parseNumber() {
        int number = -1;
        for (; peek() >= '0' && peek() <= '9'; ++at_)
            number = std::min(std::max(number, 0) * 10 + (peek() - '0'), 1 << 20);
        return number;
    }

    std::string_view source_;
    std::size_t at_ = 0;
};

/// Whether the C library defines what a flag does to a conversion.
bool flagApplies(char flag, char letter) {
    if (flag == '#') return isOneOf(letter, "xXofFeEgGaA");
    return flag == '-' || !isOneOf(letter, "csp");
}

/// The C format of one value, made of checked pieces only.
std::string rebuilt(const Conversion& conversion, const char* lengthModifier, int mostPrecision) {
    std::string format = "%";
    for (const char flag : conversion.flags)
        if (flagApplies(flag, conversion.letter)) format += flag;
    if (conversion.width >= 0) format += std::to_string(std::min(conversion.width, MostDigits));
    if (conversion.precision >= 0 && !isOneOf(conversion.letter, "cp"))
        format += '.' + std::to_string(std::min(conversion.precision, mostPrecision));
    return format + lengthModifier + conversion.letter;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
template <class Value>
void appendFormatted(std::string& output, const std::string& format, Value value) {
    std::array<char, 1024> room;
    const int needed = std::snprintf(room.data(), room.size(), format.c_str(), value);
    if (needed < 0) return;
    const auto length = static_cast<std::size_t>(needed);
    if (length < room.size()) {
        output.append(room.data(), length);
        return;
    }
    const std::size_t before = output.size();
    output.resize(before + length + 1);
    std::snprintf(output.data() + before, length + 1, format.c_str(), value);
    output.pop_back();
}
#pragma GCC diagnostic pop

void appendInteger(std::string& output, const Conversion& conversion, Int64 value) {
    // An int is handed over in 64 bits; its unsigned forms show the 32 that it was.
    const bool isSigned = conversion.letter == 'd' || conversion.letter == 'i';
    if (!isSigned && !conversion.isLong && value < 0 && value >= INT32_MIN) value = static_cast<UInt32>(value);
    appendFormatted(output, rebuilt(conversion, "ll", MostDigits), static_cast<long long>(value));
}

/// @return false where the argument's kind does not match the conversion.
bool appendArgument(std::string& output, const Conversion& conversion, const DBArgument& argument) {
    switch (argument.kind) {
        case DBArgument::Kind::Integer:
            if (conversion.letter == 'c') {
                if ((argument.integer & 0xFF) == 0) return false;  // It would end the text that the sink gets.
                appendFormatted(output, rebuilt(conversion, "", MostDigits), static_cast<int>(argument.integer & 0xFF));
                return true;
            }
            if (!isOneOf(conversion.letter, "diuxXo")) return false;
            appendInteger(output, conversion, argument.integer);
            return true;
        case DBArgument::Kind::Real:
            if (!isOneOf(conversion.letter, "fFeEgGaA")) return false;
            appendFormatted(output, rebuilt(conversion, "", MostDigits), argument.real);
            return true;
        case DBArgument::Kind::Text:
            if (conversion.letter != 's') return false;
            // A precision only shortens a text, so it is taken as it is.
            appendFormatted(output, rebuilt(conversion, "", INT32_MAX),
                            argument.text == nullptr ? "(null)" : argument.text);
            return true;
        case DBArgument::Kind::Address:
            if (conversion.letter != 'p') return false;
            appendFormatted(output, rebuilt(conversion, "", MostDigits), argument.address);
            return true;
    }
    return false;
}

std::string formatted(std::string_view format, const DBArgument* arguments, USize count) {
    std::string output;
    USize used = 0;
    while (!format.empty()) {
        const std::size_t plain = std::min(format.find('%'), format.size());
        output.append(format.substr(0, plain));
        format.remove_prefix(plain);
        if (format.empty()) break;
        if (format.starts_with("%%")) {
            output += '%';
            format.remove_prefix(2);
            continue;
        }
        const Conversion conversion = ConversionParser(format).parse();
        const bool matched = conversion.letter != '\0' && used < count;
        // A conversion uses up its argument even where the two do not match: the next ones keep theirs.
        if (!matched || !appendArgument(output, conversion, arguments[used])) output.append(conversion.source);
        if (matched) ++used;
        format.remove_prefix(conversion.source.size());
    }
    return output;
}

}  // namespace

void DBPrintfArguments(const char* format, const DBArgument* arguments, USize count) {
    if (format == nullptr || !debugSink()) return;
    debugSink()(formatted(format, arguments, count).c_str());
}

frontend::DebugSink frontend::setDebugSink(DebugSink sink) {
    return std::exchange(debugSink(), std::move(sink));
}
