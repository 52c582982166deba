#include "foundation/Text.h"

#include <QLocale>

#include <unicode/coll.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <memory>

namespace Quillstacks {
namespace {

bool isSpace(QChar character) {
    const char16_t unit = character.unicode();
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == u'\u0085' || unit == u'\u00A0' ||
           unit == u'\u1680' || (unit >= u'\u2000' && unit <= u'\u200A') || unit == u'\u2028' || unit == u'\u2029' ||
           unit == u'\u202F' || unit == u'\u205F' || unit == u'\u3000';
}

/// The collation of the user's locale. Without one (the C locale) the root's, since the C locale's own would be
/// the order of code points.
icu::Locale collationLocale() {
    const QLocale locale = QLocale::system().collation();
    if (locale.language() == QLocale::C)
        return icu::Locale::getRoot();
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale result = icu::Locale::forLanguageTag(locale.bcp47Name().toStdString(), status);
    return U_SUCCESS(status) ? result : icu::Locale::getRoot();
}

std::unique_ptr<const icu::Collator> makeCollator() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(collationLocale(), status));
    if (U_FAILURE(status) || !collator)
        return nullptr;
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    return collator;
}

} // namespace

QStringView Text::trimmed(QStringView text) {
    while (!text.isEmpty() && isSpace(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isSpace(text.back()))
        text.chop(1);
    return text;
}

bool Text::isBlank(QStringView text) {
    return std::all_of(text.begin(), text.end(), isSpace);
}

QString Text::lowercased(QStringView text) {
    QString result(text.size(), Qt::Uninitialized);
    while (true) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t length =
            u_strToLower(reinterpret_cast<char16_t*>(result.data()), static_cast<int32_t>(result.size()), text.utf16(),
                         static_cast<int32_t>(text.size()), "", &status);
        const bool fits = length <= result.size();
        result.resize(length);
        if (fits)
            return result;
    }
}

int Text::localizedStandardCompare(QStringView a, QStringView b) {
    static const std::unique_ptr<const icu::Collator> collator = makeCollator();
    UErrorCode status = U_ZERO_ERROR;
    const int order = collator ? collator->compare(a.utf16(), static_cast<int32_t>(a.size()), b.utf16(),
                                                   static_cast<int32_t>(b.size()), status)
                               : 0;
    // What collates as equal ("1" and "01") still gets an order of its own, so that sorting never depends on chance.
    return order != 0 ? order : a.compare(b);
}

} // namespace Quillstacks
