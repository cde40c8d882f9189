#include "exchange/posted_row.h"

#include "base/literals.h"
#include "base/text.h"

#include <QDate>
#include <algorithm>
#include <charconv>
#include <optional>

namespace exchange {

using namespace base;

namespace {

constexpr int kind_ordinal = 1;

constexpr PostedField rovmei_numbers[]{
    {6, u"社員システム番号"},
    {9, u"出社日", Meaning::Date},
    {10, u"出社時間"},
    {12, u"退社時間"},
    {13, u"休憩時間"},
    {14, u"勤務時間"},
};
constexpr PostedField rovmei_texts[]{{15, u"備考"}};

constexpr PostedField kinjisyu_numbers[]{
    {3, u"社員システム番号"}, {2, u"年月日", Meaning::Date}, {4, u"勤務種類"}, {5, u"時間"}};

constexpr PostedField kinnisu_numbers[]{
    {3, u"社員システム番号"},
    {2, u"年月", Meaning::Month},
    {4, u"システム番号"},
    {5, u"休暇残業"},
    {6, u"日数１"},
};

constexpr PostedField kyumei_numbers[]{{3, u"社員システム番号"}, {2, u"年月日", Meaning::Date}, {4, u"システム番号"}};
constexpr PostedField kyumei_texts[]{{5, u"休暇名"}, {6, u"休出"}};

const Target* target_of(QByteArrayView kind) {
    const auto found = std::ranges::find(targets, kind, &Target::kind);
    return found == targets.end() ? nullptr : found;
}

/// What of a bad value is shown: short, and on one line.
QString shown(QByteArrayView value) {
    constexpr int most = 20;
    return QString::fromUtf8(value).left(most).simplified();
}

/// Nothing for text that isn't a number, or a number too large to count.
std::optional<qint64> number_of(QByteArrayView text) {
    qint64 number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    return error == std::errc() && end == text.end() ? std::optional(number) : std::nullopt;
}

bool is_month(qint64 number) {
    return number >= 1000'01 && number <= 9999'12 && number % 100 >= 1 && number % 100 <= 12;
}

bool is_date(qint64 number) {
    if (number >= 8801 && number <= 8831)
        return true;
    constexpr int day_of_total = 32;
    const int month = int(number / 100 % 100), day = int(number % 100);
    return is_month(number / 100) && (day == day_of_total || QDate::isValid(int(number / 10'000), month, day));
}

/// Why a number doesn't mean what it should; empty for a good one.
QString reason_of(const PostedField& field, qint64 number) {
    if (field.meaning == Meaning::Date && !is_date(number))
        return u"%1「%2」という日はありません"_s.arg(field.name).arg(number);
    if (field.meaning == Meaning::Month && !is_month(number))
        return u"%1「%2」という月はありません"_s.arg(field.name).arg(number);
    return {};
}

QString reason_of(const PostedField& field, QByteArrayView value) {
    return value.isEmpty() ? u"%1がありません"_s.arg(field.name)
                           : u"%1「%2」は数字ではありません"_s.arg(field.name, shown(value));
}

/// Why the text doesn't fit its field; empty for one that does. No text is longer in characters than in bytes.
QString reason_of_text(const PostedField& field, QByteArrayView value) {
    const bool fits = value.size() <= field_room || QString::fromUtf8(value).size() <= field_room;
    return fits ? QString() : u"%1が%2文字を超えています"_s.arg(field.name).arg(field_room);
}

QString reason_of_kind(QByteArrayView kind) {
    return kind.isEmpty() ? u"種別がありません"_s : u"種別「%1」はわかりません"_s.arg(shown(kind));
}

} // namespace

constexpr std::array<Target, target_count> targets{{
    {"51", rovmei_numbers, rovmei_texts, -1, false, "delete from rovmei where 社員システム番号=? and 出社日=?",
        "insert into rovmei (社員システム番号, 出社日, 出社時間, 退社時間, 休憩時間, 勤務時間, 備考) values "
        "(?,?,?,?,?,?,?)"},
    {"52", kinjisyu_numbers, {}, 3, true, "delete from kinjisyu where 社員システム番号=? and 年月日=?",
        "insert into kinjisyu (社員システム番号, 年月日, 勤務種類, 時間) values (?,?,?,?)"},
    {"53", kinnisu_numbers, {}, 4, true, "delete from kinnisu where 社員システム番号=? and 年月=?",
        "insert into kinnisu (社員システム番号, 年月, システム番号, 休暇残業, 日数１) values (?,?,?,?,?)"},
    {"54", kyumei_numbers, kyumei_texts, 2, false, "delete from kyumei where 社員システム番号=? and 年月日=?",
        "insert into kyumei (社員システム番号, 年月日, システム番号, 休暇名, 休出) values (?,?,?,?,?)"},
}};

PostedRow read_row(const store::Row& row) {
    PostedRow posted;
    const QByteArrayView kind = row.utf8(kind_ordinal).trimmed();
    posted.target = target_of(kind);
    if (!posted.target) {
        posted.reason = reason_of_kind(kind);
        return posted;
    }
    const auto refuse = [&posted](const QString& reason) {
        if (posted.reason.isEmpty())
            posted.reason = reason;
    };
    for (size_t i = 0; i < posted.target->numbers.size(); ++i) {
        const PostedField& field = posted.target->numbers[i];
        const QByteArrayView value = row.utf8(field.ordinal).trimmed();
        const auto number = number_of(value);
        refuse(number ? reason_of(field, *number) : reason_of(field, value));
        posted.numbers[i] = number.value_or(0);
    }
    for (size_t i = 0; i < posted.target->texts.size(); ++i) {
        posted.texts[i] = row.utf8(posted.target->texts[i].ordinal);
        refuse(reason_of_text(posted.target->texts[i], posted.texts[i]));
    }
    return posted;
}

} // namespace exchange
