// What changes many cells of ent_rovena in one act, or takes acts back.

#include "base/literals.h"
#include "base/numbers.h"
#include "entry/ent_rovena.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

/// The numbers of the bands that end and begin a normal day, parted by a comma, under this key and the number of the
/// work type. The end alone: nobody was asked yet for the begin.
const QString normal_day_key = u"標準時間帯"_s;

bool has_choice(const QList<BandChoice>& choices, int number) {
    return std::ranges::find(choices, number, &BandChoice::number) != choices.end();
}

/// The numbers of the weekdays, 0 Sunday to 6 Saturday, as one text.
const QString weekdays_key = u"一括入力曜日"_s;

/// A single row is the day in hand.
QString no_day_words(const std::optional<RowRange>& rows) {
    return rows && rows->first == rows->last ? u"入れる時刻がないか、この日に時刻か区分が入っています"_s
                                             : u"入れる日がありません"_s;
}

} // namespace

bool ent_rovena::can_act() const {
    return !saving && !waiting && !syainsyscd.isEmpty();
}

/// A band that the work type has no longer counts as not marked.
NormalDay ent_rovena::normal_day() const {
    const QString kept = m_session.tables.設定読込(store::losystem, normal_day_key + kintypecd);
    const QList<BandChoice> choices = band_choices(sheet);
    const auto known = [&](int number) { return has_choice(choices, number) ? number : 0; };
    return {known(int_val(kept)), known(int_val(kept.section(u',', 1)))};
}

bool ent_rovena::needs_normal_day() const {
    const NormalDay normal = normal_day();
    const QString kept = m_session.tables.設定読込(store::losystem, normal_day_key + kintypecd);
    const bool begin_asked = kept.contains(u',') && int_val(kept.section(u',', 1)) == normal.first;
    return normal.last == 0 || (!begin_asked && normal.last != band_choices(sheet).first().number);
}

void ent_rovena::mark_normal_day(NormalDay normal) {
    m_session.tables.設定書込(
        store::losystem, normal_day_key + kintypecd, digits(normal.last) + u',' + digits(normal.first));
}

Weekdays ent_rovena::fill_weekdays() const {
    const QString set = m_session.tables.設定読込(store::losystem, weekdays_key);
    Weekdays weekdays;
    for (const QChar day : set.isEmpty() ? u"12345"_s : set)
        if (day >= u'0' && day <= u'6')
            weekdays.set(size_t(day.digitValue()));
    return weekdays;
}

void ent_rovena::set_fill_weekdays(Weekdays weekdays) {
    QString set;
    for (int day = 0; day < weekday_count; ++day)
        if (weekdays.test(size_t(day)))
            set += digits(day);
    m_session.tables.設定書込(store::losystem, weekdays_key, set);
}

int ent_rovena::fill(FillSource source, std::optional<RowRange> rows) {
    if (!can_act() || refuse_if_closed())
        return 0;
    atai_LostFocus();
    const int filled = entry::fill(sheet, source, normal_day(), rows, fill_weekdays());
    place_again(sheet, editors);
    say(filled == 0 ? no_day_words(rows) : u"%1日分の時刻を入れました"_s.arg(filled));
    keep_draft();
    return filled;
}

PastePreview ent_rovena::preview_paste(const QString& text) {
    if (!can_act())
        return {{}, u"社員を選択してから入力してください"_s};
    if (m_closed)
        return {{}, common::closed_words(sheet.month.month_key(), *m_closed)};
    atai_LostFocus();
    return entry::preview_paste(sheet, text);
}

int ent_rovena::paste(const PastePreview& preview) {
    if (!can_act() || refuse_if_closed())
        return 0;
    atai_LostFocus();
    const int changed = entry::paste(sheet, preview);
    place_again(sheet, editors);
    say(u"%1日分を貼り付けました"_s.arg(changed));
    keep_draft();
    return changed;
}

void ent_rovena::stand_as_before(BesideSheet (UndoHistory::*go)(MonthSheet&)) {
    editors.notice.reset();
    m_draft.bring_back((m_history.*go)(sheet));
    place_again(sheet, editors);
    keep_draft();
}

void ent_rovena::undo() {
    if (!can_act())
        return;
    atai_LostFocus();
    if (m_history.can_undo())
        stand_as_before(&UndoHistory::undo);
}

void ent_rovena::redo() {
    if (!can_act())
        return;
    atai_LostFocus();
    if (m_history.can_redo())
        stand_as_before(&UndoHistory::redo);
}

} // namespace entry
