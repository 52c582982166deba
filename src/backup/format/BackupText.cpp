#include "BackupText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

namespace Quillstacks::BackupText {
namespace {

using namespace std::chrono;

constexpr std::string_view datePattern = "0000-00-00T00:00:00Z"; // a digit for each 0
constexpr std::string_view uuidPattern = "00000000-0000-0000-0000-000000000000";
constexpr char upperDigits[] = "0123456789ABCDEF";

constexpr sys_seconds firstMoment = sys_days(year(0) / 1 / 1);
constexpr sys_seconds lastMoment = sys_days(year(9999) / 12 / 31) + hours(23) + minutes(59) + seconds(59);

void appendNumber(QByteArray& text, unsigned number, int digits) {
    for (unsigned place = digits == 4 ? 1000 : 10; place > 0; place /= 10)
        text.append(upperDigits[number / place % 10]);
}

void appendHex(QByteArray& text, unsigned number, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text.append(upperDigits[number >> shift & 15]);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

int hexValue(char character) {
    if (isDigit(character))
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The digits' places are digits, all others are those of the pattern.
template <typename IsDigit>
bool matches(std::string_view text, std::string_view pattern, IsDigit isOne) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), [&](char character, char wanted) {
        return wanted == '0' ? isOne(character) : character == wanted;
    });
}

int number(std::string_view text, std::size_t from, std::size_t digits) {
    int value = 0;
    std::from_chars(text.data() + from, text.data() + from + digits, value);
    return value;
}

} // namespace

void appendDate(QByteArray& text, Date date) {
    const sys_seconds moment = std::clamp(floor<seconds>(date), firstMoment, lastMoment);
    const sys_days day = floor<days>(moment);
    const year_month_day calendar(day);
    const hh_mm_ss<seconds> time(moment - day);
    appendNumber(text, static_cast<unsigned>(static_cast<int>(calendar.year())), 4);
    text.append('-');
    appendNumber(text, static_cast<unsigned>(calendar.month()), 2);
    text.append('-');
    appendNumber(text, static_cast<unsigned>(calendar.day()), 2);
    text.append('T');
    appendNumber(text, static_cast<unsigned>(time.hours().count()), 2);
    text.append(':');
    appendNumber(text, static_cast<unsigned>(time.minutes().count()), 2);
    text.append(':');
    appendNumber(text, static_cast<unsigned>(time.seconds().count()), 2);
    text.append('Z');
}

std::optional<Date> date(std::string_view text) {
    if (!matches(text, datePattern, isDigit))
        return std::nullopt;
    const year_month_day calendar(year(number(text, 0, 4)), month(static_cast<unsigned>(number(text, 5, 2))),
                                  day(static_cast<unsigned>(number(text, 8, 2))));
    const int hour = number(text, 11, 2);
    const int minute = number(text, 14, 2);
    const int second = number(text, 17, 2);
    if (!calendar.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return Date(sys_days(calendar) + hours(hour) + minutes(minute) + seconds(second));
}

void appendUuid(QByteArray& text, const Uuid& uuid) {
    appendHex(text, uuid.data1, 8);
    text.append('-');
    appendHex(text, uuid.data2, 4);
    text.append('-');
    appendHex(text, uuid.data3, 4);
    for (std::size_t at = 0; at < std::size(uuid.data4); ++at) {
        if (at == 0 || at == 2)
            text.append('-');
        appendHex(text, uuid.data4[at], 2);
    }
}

std::optional<Uuid> uuid(std::string_view text) {
    if (!matches(text, uuidPattern, [](char character) { return hexValue(character) >= 0; }))
        return std::nullopt;
    std::array<char, 16> bytes{};
    std::size_t digit = 0;
    for (const char character : text) {
        if (character == '-')
            continue;
        char& byte = bytes[digit++ / 2];
        byte = static_cast<char>(static_cast<uchar>(byte) << 4 | static_cast<uchar>(hexValue(character)));
    }
    return QUuid::fromRfc4122(QByteArrayView(bytes.data(), bytes.size()));
}

} // namespace Quillstacks::BackupText
