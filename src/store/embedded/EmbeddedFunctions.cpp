#include "store/embedded/EmbeddedConnection.h"

#include "runtime/Clock.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/embedded/KoreanCollation.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <optional>
#include <string_view>

namespace tsms {

namespace {

using Arguments = sqlite3_value**;

std::string_view TextOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                : std::string_view();
}

void Answer(sqlite3_context* context, std::string_view text)
{
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

bool IsNull(sqlite3_value* value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

bool IsCharacterStart(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
}

void Left(sqlite3_context* context, int, Arguments values)
{
    if (IsNull(values[0]) || IsNull(values[1]))
        return sqlite3_result_null(context);
    const std::string_view text = TextOf(values[0]);
    const sqlite3_int64 wanted = sqlite3_value_int64(values[1]);
    if (wanted < 0)
        return sqlite3_result_error(context, "Invalid length parameter passed to the left function.", -1);
    std::size_t end = 0;
    for (sqlite3_int64 taken = 0; end < text.size(); ++end)
        if (IsCharacterStart(text[end]) && taken++ == wanted)
            break;
    Answer(context, text.substr(0, end));
}

void Right(sqlite3_context* context, int, Arguments values)
{
    if (IsNull(values[0]) || IsNull(values[1]))
        return sqlite3_result_null(context);
    const std::string_view text = TextOf(values[0]);
    const sqlite3_int64 wanted = sqlite3_value_int64(values[1]);
    if (wanted < 0)
        return sqlite3_result_error(context, "Invalid length parameter passed to the right function.", -1);
    std::size_t begin = text.size();
    for (sqlite3_int64 taken = 0; begin > 0 && taken < wanted;)
        if (IsCharacterStart(text[--begin]))
            ++taken;
    Answer(context, text.substr(begin));
}

/// A date with a time of day. As text it is "YYYY/MM/DD", with the time behind it unless that is midnight, so
/// that texts of it compare as the dates do.
struct Moment
{
    QDate day;
    int second = 0;
};

int TakeNumber(std::string_view& text, std::size_t digits)
{
    int number = 0;
    std::size_t taken = 0;
    for (; taken < digits && taken < text.size() && text[taken] >= '0' && text[taken] <= '9'; ++taken)
        number = number * 10 + (text[taken] - '0');
    text.remove_prefix(taken);
    return taken == 0 ? -1 : number;
}

bool TakeSign(std::string_view& text, std::string_view signs)
{
    if (text.empty() || signs.find(text.front()) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

std::optional<Moment> ReadMoment(std::string_view text)
{
    while (TakeSign(text, " ")) {
    }
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    const int year = TakeNumber(text, 4);
    const bool dayParted = TakeSign(text, "-/.");
    const int month = TakeNumber(text, 2);
    if (TakeSign(text, "-/.") != dayParted)
        return {};
    Moment moment{QDate(year, month, TakeNumber(text, 2))};
    if (!moment.day.isValid())
        return {};
    if (text.empty())
        return moment;
    if (!TakeSign(text, " T"))
        return {};
    const int hour = TakeNumber(text, 2);
    const int minute = TakeSign(text, ":") ? TakeNumber(text, 2) : -1;
    const int second = TakeSign(text, ":") ? TakeNumber(text, 2) : 0;
    if (!text.empty() || !QTime::isValid(hour, minute, second))
        return {};
    moment.second = hour * 3600 + minute * 60 + second;
    return moment;
}

void Answer(sqlite3_context* context, const Moment& moment)
{
    std::array<char, 48> text{};
    int size = std::snprintf(text.data(), text.size(), "%04d/%02d/%02d", moment.day.year(),
                             moment.day.month(), moment.day.day());
    if (moment.second != 0)
        size +=
            std::snprintf(text.data() + size, text.size() - static_cast<std::size_t>(size), " %02d:%02d:%02d",
                          moment.second / 3600, moment.second / 60 % 60, moment.second % 60);
    Answer(context, std::string_view(text.data(), static_cast<std::size_t>(size)));
}

/// The argument as a date; nothing when it is NULL or none, which has been answered then.
std::optional<Moment> MomentOf(sqlite3_context* context, sqlite3_value* value)
{
    if (IsNull(value)) {
        sqlite3_result_null(context);
        return {};
    }
    const std::optional<Moment> moment = ReadMoment(TextOf(value));
    if (!moment)
        sqlite3_result_error(context,
                             "Conversion failed when converting date and/or time from character string.", -1);
    return moment;
}

void DateAddDay(sqlite3_context* context, int, Arguments values)
{
    if (IsNull(values[0]))
        return sqlite3_result_null(context);
    if (std::optional<Moment> moment = MomentOf(context, values[1])) {
        moment->day = moment->day.addDays(sqlite3_value_int64(values[0]));
        Answer(context, *moment);
    }
}

void DateTime(sqlite3_context* context, int, Arguments values)
{
    if (const std::optional<Moment> moment = MomentOf(context, values[0]))
        Answer(context, *moment);
}

/// CONVERT(varchar(width), value, 111): "yyyy/mm/dd".
void Convert(sqlite3_context* context, int, Arguments values)
{
    const int style = sqlite3_value_int(values[2]);
    if (style != 111) {
        const QByteArray words =
            QByteArray::number(style) + " is not a valid style number when converting to a character string.";
        return sqlite3_result_error(context, words.constData(), -1);
    }
    if (std::optional<Moment> moment = MomentOf(context, values[1])) {
        const QByteArray text =
            moment->day.toString(QStringLiteral("yyyy/MM/dd")).toLatin1().left(sqlite3_value_int(values[0]));
        Answer(context, std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
    }
}

void GetDate(sqlite3_context* context, int, Arguments)
{
    const auto& clock = *static_cast<const Clock*>(sqlite3_user_data(context));
    const QByteArray now = MomentText(clock.Now()).toLatin1();
    Answer(context, std::string_view(now.constData(), static_cast<std::size_t>(now.size())));
}

void Like(sqlite3_context* context, int, Arguments values)
{
    if (IsNull(values[0]) || IsNull(values[1]))
        return sqlite3_result_null(context);
    sqlite3_result_int(context, LikeKorean(TextOf(values[1]), TextOf(values[0])) ? 1 : 0);
}

int Collate(void*, int sizeA, const void* a, int sizeB, const void* b)
{
    return CompareKorean({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                         {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

} // namespace

void PrepareEmbeddedHandle(sqlite3* handle, const Clock& clock)
{
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const auto add = [handle](const char* name, int arguments, int flags, auto routine,
                              void* data = nullptr) {
        sqlite3_create_function_v2(handle, name, arguments, flags, data, routine, nullptr, nullptr, nullptr);
    };
    sqlite3_create_collation_v2(handle, KoreanCollationName, SQLITE_UTF8, nullptr, Collate, nullptr);
    add("server_left", 2, pure, Left);
    add("server_right", 2, pure, Right);
    add("server_dateadd_day", 2, pure, DateAddDay);
    add("server_datetime", 1, pure, DateTime);
    add("server_convert", 3, pure, Convert);
    add("like", 2, pure, Like);
    // Called pure although it is not: so it gives one moment for a whole statement, as on the server.
    add("getdate", 0, pure, GetDate, const_cast<Clock*>(&clock));
}

} // namespace tsms
