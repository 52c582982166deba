#include "RelativeDate.h"

#include <QDateTime>

#include <unicode/calendar.h>
#include <unicode/reldatefmt.h>

#include <array>
#include <memory>
#include <utility>

namespace Quillstacks {
namespace {

struct Amount {
    int count = 0; ///< negative for the past
    URelativeDateTimeUnit unit = UDAT_REL_UNIT_SECOND;
};

constexpr std::array<std::pair<UCalendarDateFields, URelativeDateTimeUnit>, 7> unitsBySize{
    {{UCAL_YEAR, UDAT_REL_UNIT_YEAR},
     {UCAL_MONTH, UDAT_REL_UNIT_MONTH},
     {UCAL_WEEK_OF_YEAR, UDAT_REL_UNIT_WEEK},
     {UCAL_DAY_OF_MONTH, UDAT_REL_UNIT_DAY},
     {UCAL_HOUR_OF_DAY, UDAT_REL_UNIT_HOUR},
     {UCAL_MINUTE, UDAT_REL_UNIT_MINUTE},
     {UCAL_SECOND, UDAT_REL_UNIT_SECOND}}};

UDate milliseconds(Date date) {
    return static_cast<UDate>(microsecondsSinceEpoch(date)) / 1000;
}

Amount largestAmount(Date date, Date now, UErrorCode& status) {
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(icu::Locale::getUS(), status));
    if (U_FAILURE(status))
        return {};
    calendar->setTime(milliseconds(now), status);
    for (const auto& [field, unit] : unitsBySize) {
        // Goes on from where the larger unit has left it.
        const int count = calendar->fieldDifference(milliseconds(date), field, status);
        if (count != 0)
            return {count, unit};
    }
    return {};
}

QString formatted(const Amount& amount, RelativeDateUnits units, UErrorCode& status) {
    const auto style = units == RelativeDateUnits::full ? UDAT_STYLE_LONG : UDAT_STYLE_SHORT;
    const icu::RelativeDateTimeFormatter formatter(icu::Locale::getUS(), nullptr, style, UDISPCTX_CAPITALIZATION_NONE,
                                                   status);
    icu::UnicodeString text;
    if (U_FAILURE(status))
        return {};
    if (amount.count == 0)
        formatter.format(0, UDAT_REL_UNIT_SECOND, text, status);
    else
        formatter.formatNumeric(amount.count, amount.unit, text, status);
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

} // namespace

QString relativeDate(Date date, Date now, RelativeDateUnits units) {
    UErrorCode status = U_ZERO_ERROR;
    const Amount amount = largestAmount(date, now, status);
    const QString text = formatted(amount, units, status);
    if (U_SUCCESS(status))
        return text;
    return QDateTime::fromMSecsSinceEpoch(microsecondsSinceEpoch(date) / 1000).date().toString(Qt::ISODate);
}

} // namespace Quillstacks
