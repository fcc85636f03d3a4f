#include "platform/linux/settings/linux_regional.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cstring>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

// The conversions of a pattern ("dmY" of "%d.%m.%Y") and the text after the first of them.
struct Pattern {
    std::string conversions;
    std::string separator;
};

Pattern patternOf(std::string_view format) {
    Pattern pattern;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            if (pattern.conversions.size() == 1) pattern.separator += format[i];
            continue;
        }
        i = format.find_first_not_of("-_0^#EO", i + 1);
        if (i == std::string_view::npos) break;
        if (format[i] == 'D') return {"mdy", "/"};
        if (format[i] == 'F') return {"Ymd", "-"};
        if (format[i] == 'T' || format[i] == 'R') return {"HM", ":"};
        if (format[i] == 'r') return {"IMp", ":"};
        pattern.conversions += format[i];
    }
    return pattern;
}

DateOrder orderOf(const std::string& conversions) {
    const auto year = conversions.find_first_of("yYGg");
    const auto month = conversions.find_first_of("mbBh");
    const auto day = conversions.find_first_of("de");
    if (year < month && year < day) return DateOrder::yearMonthDay;
    return day < month ? DateOrder::dayMonthYear : DateOrder::monthDayYear;
}

std::string firstAmong(const std::string& text, const char* wanted, const char* otherwise) {
    const auto found = text.find_first_of(wanted);
    return found == std::string::npos ? otherwise : text.substr(found, 1);
}

std::string toUtf8(std::string text, const std::string& codeset) {
    if (isValidUtf8(text)) return text;
    const iconv_t converter = iconv_open("UTF-8", codeset.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return {};
    std::string converted(text.size() * 4, '\0');
    char* from = text.data();
    char* to = converted.data();
    std::size_t fromLeft = text.size();
    std::size_t toLeft = converted.size();
    const bool isDone = iconv(converter, &from, &fromLeft, &to, &toLeft) == 0;
    iconv_close(converter);
    converted.resize(isDone ? converted.size() - toLeft : 0);
    return converted;
}

// The name of a category's locale, as the environment gives it.
bool isOfNoRegion(locale_t locale) {
    const char* name = nl_langinfo_l(_NL_LOCALE_NAME(LC_NUMERIC), locale);
    return std::strcmp(name, "C") == 0 || std::strcmp(name, "POSIX") == 0 ||
           std::strncmp(name, "C.", 2) == 0;
}

}  // namespace

Regional regionalOf(const LocaleForms& forms) {
    Regional regional;
    regional.digitGroup = toUtf8(forms.group, forms.codeset);
    regional.decimalPoint = toUtf8(forms.radix, forms.codeset);
    if (regional.decimalPoint.empty()) regional.decimalPoint = std::string(1, '.');
    const Pattern date = patternOf(forms.date);
    regional.dateOrder = orderOf(date.conversions);
    regional.dateSeparator = firstAmong(date.separator, "/-.", "/");
    const Pattern time = patternOf(forms.time);
    regional.timeSeparator = firstAmong(time.separator, ":.", ":");
    regional.twelveHourClock = time.conversions.find_first_of("IlpP") != std::string::npos;
    return regional;
}

Regional userRegional() {
    const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
    if (locale == static_cast<locale_t>(nullptr)) return {};
    Regional regional;
    if (!isOfNoRegion(locale)) {
        regional = regionalOf({.radix = nl_langinfo_l(RADIXCHAR, locale),
                               .group = nl_langinfo_l(THOUSEP, locale),
                               .date = nl_langinfo_l(D_FMT, locale),
                               .time = nl_langinfo_l(T_FMT, locale),
                               .codeset = nl_langinfo_l(CODESET, locale)});
    }
    freelocale(locale);
    return regional;
}

}  // namespace velmora::linuxhost
