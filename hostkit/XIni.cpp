#include "frame/imported/XIni.h"

#include "frame/NumberText.h"

#include <optional>
#include <stdexcept>

namespace {

using KvRefSystem::FormatText;

/** The text of one kind of value, in both directions. */
template <class T>
struct ValueText;

template <>
struct ValueText<int> {
    static constexpr char const* Kind = "a whole number";

    static std::string Format(int value) { return FormatText("%d", value); }

    static bool Parse(std::string const& text, int* value) { return KvRefSystem::ParseWholeInt(text, value); }
};

template <>
struct ValueText<double> {
    static constexpr char const* Kind = "a number";

    /** The shortest of the three precisions that may be needed which reads back the same. */
    static std::string Format(double value) {
        std::string text;
        for (int digits = 15; digits <= 17; ++digits) {
            text = FormatText("%.*g", digits, value);
            double back = 0.0;
            if (Parse(text, &back) && back == value) {
                break;
            }
        }
        return text;
    }

    static bool Parse(std::string const& text, double* value) {
        return KvRefSystem::ParseWholeDouble(text, value);
    }
};

template <>
struct ValueText<bool> {
    static constexpr char const* Kind = "true or false";

    static std::string Format(bool value) { return value ? "true" : "false"; }

    static bool Parse(std::string const& text, bool* value) {
        if (text != "true" && text != "false") {
            return false;
        }
        *value = text == "true";
        return true;
    }
};

template <>
struct ValueText<std::string> {
    static constexpr char const* Kind = "a text";

    static std::string const& Format(std::string const& value) { return value; }

    static bool Parse(std::string const& text, std::string* value) {
        *value = text;
        return true;
    }
};

std::string Quoted(char const* name) {
    return "\"" + std::string(name ? name : "") + "\"";
}

} // namespace

TKvXIniReader::~TKvXIniReader() = default;

std::string TKvXIniReader::Where() const {
    return std::string();
}

unsigned long TKvXIniReader::FindF(char const* key, unsigned long from) {
    return FindItem(key, from);
}

unsigned long TKvXIniReader::FindFE(char const* key, unsigned long from) {
    unsigned long const item = FindItem(key, from);
    if (item == NotFound) {
        throw std::runtime_error("there is no item " + Quoted(key) + Where());
    }
    return item;
}

template <class T>
T TKvXIniReader::Read(unsigned long item, T fallback) {
    std::string text;
    T value = fallback;
    if (item == NotFound || !ReadText(item, &text) || !ValueText<T>::Parse(text, &value)) {
        return fallback;
    }
    return value;
}

template <class T>
T TKvXIniReader::ReadE(unsigned long item) {
    if (item == NotFound) {
        throw std::runtime_error("there is no such item" + Where());
    }
    std::string text;
    if (!ReadText(item, &text)) {
        throw std::runtime_error(FormatText("item %lu holds no value", item) + Where());
    }
    T value{};
    if (!ValueText<T>::Parse(text, &value)) {
        throw std::runtime_error(FormatText("item %lu is ", item) + Quoted(text.c_str()) + " instead of " +
                                 ValueText<T>::Kind + Where());
    }
    return value;
}

unsigned long TKvXIniReader::EnterSectionSE(char const* name) {
    for (unsigned long item = FindItem(name, 0); item != NotFound; item = FindItem(name, item + 1)) {
        if (IsSection(item)) {
            return EnterSectionE(item);
        }
    }
    throw std::runtime_error("there is no section " + Quoted(name) + Where());
}

TKvXIniWriter::~TKvXIniWriter() = default;

template <class T>
bool TKvXIniWriter::WriteS(std::string const& key, T const& value) {
    return WriteText(key, ValueText<T>::Format(value));
}

unsigned long TKvXIniWriter::BeginSectionSE(std::string const& name) {
    unsigned long const handle = BeginSection(name);
    if (!handle) {
        throw std::runtime_error("the section " + Quoted(name.c_str()) + " can't be opened");
    }
    return handle;
}

unsigned long TKvXIniWriter::BeginSectionCompactSE(std::string const& name) {
    unsigned long const handle = BeginSectionCompact(name);
    if (!handle) {
        throw std::runtime_error("the compact section " + Quoted(name.c_str()) + " can't be opened");
    }
    return handle;
}

template int TKvXIniReader::Read<int>(unsigned long, int);
template bool TKvXIniReader::Read<bool>(unsigned long, bool);
template double TKvXIniReader::Read<double>(unsigned long, double);
template std::string TKvXIniReader::Read<std::string>(unsigned long, std::string);
template int TKvXIniReader::ReadE<int>(unsigned long);
template bool TKvXIniReader::ReadE<bool>(unsigned long);
template double TKvXIniReader::ReadE<double>(unsigned long);
template std::string TKvXIniReader::ReadE<std::string>(unsigned long);
template bool TKvXIniWriter::WriteS<int>(std::string const&, int const&);
template bool TKvXIniWriter::WriteS<bool>(std::string const&, bool const&);
template bool TKvXIniWriter::WriteS<double>(std::string const&, double const&);
template bool TKvXIniWriter::WriteS<std::string>(std::string const&, std::string const&);

namespace LumCommonUtils {

bool WriteNonZeroInt(TKvXIniWriter* writer, std::string key, int value) {
    return value == 0 || writer->WriteS<int>(key, value);
}

bool WriteNonNegativeInt(TKvXIniWriter* writer, std::string key, int value) {
    return value < 0 || writer->WriteS<int>(key, value);
}

bool WriteNotEmptyString(TKvXIniWriter* writer, std::string key, std::string value) {
    return value.empty() || writer->WriteS<std::string>(key, value);
}

} // namespace LumCommonUtils
