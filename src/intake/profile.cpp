#include "intake/profile.h"

#include "base/literals.h"
#include "base/numbers.h"

#include <QMap>
#include <algorithm>

namespace intake {

using namespace base;

namespace {

constexpr std::array<QStringView, role_count> captions{
    u"社員番号", u"日付", u"出社時間", u"退社時間", u"打刻時刻", u"出退区分"};

const QString heading_key = u"見出し行"_s;
const QString in_word_key = u"出社の文字"_s;
const QString out_word_key = u"退社の文字"_s;
constexpr int longest_word = 20;

/// Words that a heading holds, the most telling first.
const std::array<QStringList, role_count> heading_words{
    QStringList{u"社員番号"_s, u"社員コード"_s, u"社員no"_s, u"従業員番号"_s, u"従業員コード"_s, u"個人コード"_s,
        u"個人番号"_s, u"カード番号"_s, u"コード"_s, u"番号"_s, u"id"_s},
    QStringList{u"日付"_s, u"年月日"_s, u"勤務日"_s, u"出勤日"_s, u"date"_s},
    QStringList{u"出社"_s, u"出勤"_s, u"始業"_s, u"in"_s},
    QStringList{u"退社"_s, u"退勤"_s, u"終業"_s, u"out"_s},
    QStringList{u"打刻"_s, u"時刻"_s, u"日時"_s, u"time"_s},
    QStringList{u"区分"_s, u"種別"_s, u"in/out"_s},
};

const QStringList in_words{u"出"_s, u"出社"_s, u"出勤"_s, u"始業"_s, u"入"_s, u"in"_s};
const QStringList out_words{u"退"_s, u"退社"_s, u"退勤"_s, u"終業"_s, u"out"_s};

QString even_word(const QString& text) {
    return text.normalized(QString::NormalizationForm_KC).toLower().trimmed();
}

bool holds_figure(const QString& cell) {
    return std::ranges::any_of(cell, [](QChar c) { return c.isDigit(); });
}

bool is_heading(const RecorderLine& line) {
    return std::ranges::none_of(line.cells, holds_figure);
}

/// Nothing where no heading holds a word of the role that isn't taken by another column.
int column_of(const QStringList& headings, Role role, const Profile& taken) {
    for (const QString& word : heading_words[size_t(role)])
        for (int column = 1; column <= headings.size(); ++column) {
            const QString heading = even_word(headings[column - 1]);
            const bool found = word.size() > 2 || !word[0].isLower() ? heading.contains(word) : heading == word;
            if (found && std::ranges::find(taken.columns, column) == taken.columns.end())
                return column;
        }
    return 0;
}

QString plain_word(QString word) {
    return word.remove(u',').remove(u'=').trimmed().left(longest_word);
}

} // namespace

std::span<const QStringView> role_captions() {
    return captions;
}

QString Profile::problem() const {
    if (!has(Role::Employee))
        return u"社員番号の列を決めてください"_s;
    if (has_stamps() && (has(Role::In) || has(Role::Out)))
        return u"打刻時刻の列と出社・退社の列は、どちらか一方にしてください"_s;
    if (!has_stamps() && !(has(Role::In) && has(Role::Out)))
        return u"出社時間と退社時間の列、または打刻時刻の列を決めてください"_s;
    return {};
}

Direction Profile::direction(const QString& mark) const {
    const QString word = even_word(mark);
    const auto is = [&](const QString& own, const QStringList& known) {
        return own.isEmpty() ? known.contains(word) : even_word(own) == word;
    };
    if (word.isEmpty())
        return Direction::Unknown;
    if (is(in_word, in_words))
        return Direction::In;
    return is(out_word, out_words) ? Direction::Out : Direction::Other;
}

Profile guessed_profile(const RecorderFile& file) {
    Profile profile;
    while (profile.heading_lines < file.lines.size() && is_heading(file.lines[profile.heading_lines]))
        ++profile.heading_lines;
    if (profile.heading_lines == 0)
        return profile;
    const QStringList& headings = file.lines[profile.heading_lines - 1].cells;
    for (const Role role : {Role::Employee, Role::Date, Role::In, Role::Out})
        profile.column(role) = column_of(headings, role, profile);
    if (profile.has(Role::In) && profile.has(Role::Out))
        return profile;
    profile.column(Role::In) = profile.column(Role::Out) = 0;
    for (const Role role : {Role::Stamp, Role::Direction})
        profile.column(role) = column_of(headings, role, profile);
    return profile;
}

QString profile_text(const Profile& profile) {
    QStringList parts;
    for (int role = 0; role < role_count; ++role)
        parts << u"%1=%2"_s.arg(captions[role]).arg(profile.columns[role]);
    parts << u"%1=%2"_s.arg(heading_key).arg(profile.heading_lines);
    parts << u"%1=%2"_s.arg(in_word_key, plain_word(profile.in_word));
    parts << u"%1=%2"_s.arg(out_word_key, plain_word(profile.out_word));
    return parts.join(u',');
}

Profile profile_of_text(const QString& name, const QString& text) {
    QMap<QString, QString> values;
    for (const QString& part : text.split(u','))
        values.insert(part.section(u'=', 0, 0), part.section(u'=', 1));
    Profile profile{.name = name};
    for (int role = 0; role < role_count; ++role)
        profile.columns[role] = std::max(0, int_val(values.value(captions[role].toString())));
    profile.heading_lines = std::max(0, int_val(values.value(heading_key)));
    profile.in_word = values.value(in_word_key);
    profile.out_word = values.value(out_word_key);
    return profile;
}

} // namespace intake
