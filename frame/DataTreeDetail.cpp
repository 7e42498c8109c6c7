#include "frame/DataTreeDetail.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <new>

namespace KvRefSystem::DataTreeDetail {

namespace {

/**
 * A count may exceed the rest of the text by this many values: a text that was cut just behind it still
 * reads.
 */
constexpr unsigned long CountSlack = 16;

template <class Integer>
void PutDecimal(TTextSink* sink, Integer value) {
    char digits[24];
    auto const result = std::to_chars(digits, digits + sizeof(digits), value);
    sink->Put({digits, static_cast<std::size_t>(result.ptr - digits)});
}

bool IsBlank(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

} // namespace

void TTextSink::Put(std::string_view text) {
    if (buffer) {
        std::copy(text.begin(), text.end(), buffer + offset);
    }
    offset += text.size();
}

void TTextSink::PutTabs(unsigned long level) {
    if (buffer) {
        std::fill_n(buffer + offset, level, '\t');
    }
    offset += level;
}

void TTextSink::PutNumber(int value) {
    PutDecimal(this, value);
}

void TTextSink::PutNumber(unsigned long value) {
    PutDecimal(this, value);
}

bool TNumberScan::Literal(char expected) {
    if (*at != expected) {
        return false;
    }
    ++at;
    return true;
}

bool TNumberScan::Digits(TDigits* digits) {
    while (IsBlank(*at)) {
        ++at;
    }
    digits->negative = *at == '-';
    if (*at == '-' || *at == '+') {
        ++at;
    }
    if (*at < '0' || *at > '9') {
        return false;
    }
    constexpr unsigned long Largest = std::numeric_limits<unsigned long>::max();
    for (; *at >= '0' && *at <= '9'; ++at) {
        auto const digit = static_cast<unsigned long>(*at - '0');
        digits->isClamped = digits->isClamped || digits->magnitude > (Largest - digit) / 10;
        digits->magnitude = digits->isClamped ? Largest : digits->magnitude * 10 + digit;
    }
    return true;
}

bool TNumberScan::Number(int* value) {
    TDigits digits = {};
    if (!Digits(&digits)) {
        return false;
    }
    constexpr long Smallest = std::numeric_limits<int>::min();
    constexpr long Largest = std::numeric_limits<int>::max();
    auto const magnitude =
        static_cast<long>(std::min(digits.magnitude, static_cast<unsigned long>(-Smallest)));
    long const number = digits.negative ? -magnitude : magnitude;
    *value = static_cast<int>(std::min(number, Largest));
    return true;
}

bool TNumberScan::Number(unsigned long* value) {
    TDigits digits = {};
    if (!Digits(&digits)) {
        return false;
    }
    *value = digits.negative && !digits.isClamped ? 0 - digits.magnitude : digits.magnitude;
    return true;
}

unsigned long FindByte(char const* text, unsigned long offset, char stop) {
    char const stops[] = {stop, '\0'};
    return offset + std::strcspn(text + offset, stops);
}

unsigned long PastByte(char const* text, unsigned long offset, char stop) {
    unsigned long const found = FindByte(text, offset, stop);
    return text[found] == '\0' ? found : found + 1;
}

thread_local TCountScope* TCountScope::current = nullptr;

TCountScope::TCountScope(char const* readText, unsigned long start)
    : text(readText),
      begin(start),
      seen(start),
      total(0),
      isJoined(current && current->text == readText),
      outer(current) {
    if (!isJoined) {
        current = this;
    }
}

TCountScope::~TCountScope() {
    if (!isJoined) {
        current = outer;
    }
}

void TCountScope::Require(char const* readText, unsigned long position, unsigned long count) {
    // Looks no further than the count asks for, so that all looking together stays within the bound, too.
    unsigned long const needed = count > CountSlack ? count - CountSlack : 0;
    if (strnlen(readText + position, needed) < needed) {
        throw std::bad_alloc();
    }
    TCountScope* const scope = current;
    if (!scope || scope->text != readText) {
        return;
    }
    scope->seen = std::max(scope->seen, position + needed);
    scope->total += count;
    if (scope->total > 2 * (scope->seen - scope->begin + CountSlack)) {
        throw std::bad_alloc();
    }
}

TWriterSection::~TWriterSection() {
    if (!isOpen) {
        return;
    }
    try {
        writer->EndSectionE(section);
    } catch (...) {
        // The failure that brings us here is the one that counts.
    }
}

void TWriterSection::End() {
    isOpen = false;
    writer->EndSectionE(section);
}

TAttributeMode::TAttributeMode(TKvXIniWriter* attributeWriter) : writer(attributeWriter) {
    writer->SetAttributeMode(true);
}

TAttributeMode::~TAttributeMode() {
    if (!isOn) {
        return;
    }
    try {
        writer->SetAttributeMode(false);
    } catch (...) {
        // The failure that brings us here is the one that counts.
    }
}

void TAttributeMode::End() {
    isOn = false;
    writer->SetAttributeMode(false);
}

TReaderSection::~TReaderSection() {
    if (!isOpen) {
        return;
    }
    try {
        reader->LeaveSectionE(section);
    } catch (...) {
        // The failure that brings us here is the one that counts.
    }
}

void TReaderSection::Leave() {
    isOpen = false;
    reader->LeaveSectionE(section);
}

} // namespace KvRefSystem::DataTreeDetail
