#include "intake/ent_torikomi.h"

#include "base/literals.h"
#include "intake/profile_store.h"
#include "intake/report.h"
#include "platform/paths.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <algorithm>

namespace intake {

using namespace base;

namespace {

const QString settings_table = u"losystem"_s;
const QString profile_key = u"出勤取込割り当て"_s; ///< the name of the one used last
const QString folder_key = u"出勤取込フォルダ"_s;  ///< of the file opened last

const QString filter = u"タイムレコーダーのファイル(*.csv *.txt *.tsv *.dat)|*.csv *.txt *.tsv *.dat|すべて(*)|*"_s;

} // namespace

void ent_torikomi::Form_Load() {
    for (const Profile& kept : kept_profiles(m_session.tables))
        names << kept.name;
    choose_profile(m_session.tables.設定読込(settings_table, profile_key));
}

void ent_torikomi::open_file() {
    const QString folder = m_session.tables.設定読込(settings_table, folder_key);
    const auto chosen_path = m_session.host.open_path({caption.toString(), folder, filter});
    if (!chosen_path)
        return;
    path = platform::portable(*chosen_path);
    m_session.tables.設定書込(settings_table, folder_key, platform::native(QFileInfo(path).path()));
    read_again();
}

void ent_torikomi::read_again() {
    if (path.isEmpty() || busy)
        return;
    read_file();
    if (profile == Profile())
        profile = guessed_profile(file);
    look();
}

void ent_torikomi::read_file() {
    const auto [lines, trouble] = open_recorder_file(path);
    file = lines;
    if (!trouble.isEmpty())
        m_session.host.tell(u"%1\n%2"_s.arg(trouble, platform::native(path)), caption.toString());
}

/// What is shown stays as it is until the file is read: the interface may be given time meanwhile.
Preview ent_torikomi::seen() {
    if (path.isEmpty())
        return {};
    const QScopedValueRollback<bool> at_work(busy, true);
    const frame::WorkLine::Running line(m_work, u"ファイルを読んでいます"_s);
    return intake::look(m_session, file, profile);
}

void ent_torikomi::look() {
    preview = seen();
    taken = {};
    const QList<int> fresh = days_to_accept(preview, false);
    chosen = QSet<int>(fresh.begin(), fresh.end());
    msglab = preview.lines.isEmpty() ? preview.refused : summary(preview);
}

void ent_torikomi::choose_profile(const QString& name) {
    const auto kept = kept_profile(m_session.tables, name);
    m_kept = profile = kept.value_or(Profile());
    if (kept)
        m_session.tables.設定書込(settings_table, profile_key, name);
    else
        profile = guessed_profile(file);
    look();
}

void ent_torikomi::keep_profile(const QString& name) {
    profile.name = profile_name(name);
    if (profile.name.isEmpty())
        return;
    intake::keep_profile(m_session.tables, profile);
    m_session.tables.設定書込(settings_table, profile_key, profile.name);
    m_kept = profile;
    if (!names.contains(profile.name))
        names << profile.name;
}

std::optional<Role> ent_torikomi::role_of(int column) const {
    const auto found = std::ranges::find(profile.columns, column);
    return found == profile.columns.end() ? std::nullopt : std::optional(Role(found - profile.columns.begin()));
}

void ent_torikomi::assign(int column, std::optional<Role> role) {
    if (role_of(column) == role)
        return;
    std::ranges::replace(profile.columns, column, 0);
    if (role)
        profile.column(*role) = column;
    look();
}

void ent_torikomi::set_heading_lines(int lines) {
    if (profile.heading_lines == lines)
        return;
    profile.heading_lines = lines;
    look();
}

void ent_torikomi::set_words(const QString& in_word, const QString& out_word) {
    if (profile.in_word == in_word && profile.out_word == out_word)
        return;
    profile.in_word = in_word;
    profile.out_word = out_word;
    look();
}

bool ent_torikomi::may_choose(int day) const {
    if (day < 0 || !taken.days.isEmpty())
        return false;
    const State state = preview.days[day].state;
    return state == State::New || state == State::Different;
}

void ent_torikomi::choose(int day, bool accept) {
    if (accept && may_choose(day))
        chosen.insert(day);
    else
        chosen.remove(day);
}

void ent_torikomi::choose_different(bool accept) {
    for (int day = 0; day < preview.days.size(); ++day)
        if (preview.days[day].state == State::Different)
            choose(day, accept);
}

void ent_torikomi::accept(Into into) {
    if (!can_accept())
        return;
    const QScopedValueRollback<bool> at_work(busy, true);
    const frame::WorkLine::Running line(m_work, into == Into::Draft ? u"下書きに入れています"_s : u"登録しています"_s);
    taken = intake::accept(
        m_session, preview, chosen.values(), into, [this](int done, int total) { return m_work.advance(done, total); });
    msglab = taken.words();
}

void ent_torikomi::botan_Click(int element) {
    if (busy)
        return;
    if (element == 0)
        close_wanted = true;
    else
        accept(Into::Tables);
}

} // namespace intake
