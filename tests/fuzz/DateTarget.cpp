#include "fuzz/Targets.h"

#include "data/Cells.h"

#include <algorithm>
#include <string>

namespace fuzz {

using namespace TradeForms;

namespace {

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

/// Whether a character can be part of a date or time.
bool mayStandInADate(char letter)
{
    return isDigit(letter) || std::string_view("-/: T.").find(letter) != std::string_view::npos;
}

std::string_view viewOf(const QByteArray& text)
{
    return {text.constData(), std::size_t(text.size())};
}

void requireWrittenBack(std::string_view text, const QDateTime& moment)
{
    const QByteArray written = StoredText(moment);
    if (!IsStoredDateTime(viewOf(written)) || DateTimeFromText(viewOf(written)) != moment)
        throw BrokenPromise("a date changes when it is written and read back");
    if (DateFromText(text) != moment.date())
        throw BrokenPromise("a text has one date with its time and another without");
    const QByteArray day = StoredText(moment.date());
    if (!IsStoredDate(viewOf(day)) || DateFromText(viewOf(day)) != moment.date())
        throw BrokenPromise("a day changes when it is written and read back");
}

void requireDigits(std::string text)
{
    if (!std::all_of(text.begin(), text.end(), mayStandInADate))
        throw BrokenPromise("a date holds a letter");
    for (char& letter : text) {
        if (!isDigit(letter))
            continue;
        const char digit = letter;
        for (const char other : {'A', '/', ':', '-', '\0'}) {
            letter = other;
            if (DateTimeFromText(text).isValid() || DateFromText(text).isValid())
                throw BrokenPromise("a date holds a letter in the place of a digit");
        }
        letter = digit;
    }
}

} // namespace

void Date(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const QDateTime moment = DateTimeFromText(text);
    if (moment.isValid()) {
        requireWrittenBack(text, moment);
        requireDigits(text);
    } else if (DateFromText(text).isValid() || IsStoredDate(text) || IsStoredDateTime(text)) {
        throw BrokenPromise("a text is a date and is none");
    }
    const QVariant value = ValueOf(Cell::FromText(text), ColumnKind::Expression);
    const bool isStored = IsStoredDate(text) || IsStoredDateTime(text);
    if (isStored != (value.typeId() != QMetaType::QString))
        throw BrokenPromise("a computed text is a date, or a date a text");
}

} // namespace fuzz
