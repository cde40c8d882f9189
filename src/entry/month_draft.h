#pragma once

// The draft of the month on the sheet: kept on this PC from the first typed key until what was saved is in the tables.
// The form says when a month was read, when something may have been typed, and when it was saved.

#include "entry/hand_sums.h"
#include "entry/merge.h"
#include "frame/session.h"

#include <QTime>

namespace entry {

class MonthDraft {
public:
    /// The session must outlive it.
    explicit MonthDraft(frame::Session& session) : m_session(session) {}

    /// A month was read into the sheet: lays the draft that is kept for it, and what it changes is the draft from now
    /// on. Days that were saved and have come into the tables leave it.
    void begin(MonthSheet& sheet, base::EmployeeKey employee);

    /// No month is on the sheet. What is kept stays kept.
    void end();

    /// Something may have been typed: writes the draft if it isn't the one that is kept. A draft that can't be written
    /// is told in standing() and tried again with the next call; it throws nothing.
    void keep(const MonthSheet& sheet);

    /// A count was typed into the strip by hand; it is kept until the next calculation takes it away.
    void count_typed(const MonthSheet& sheet, int column);

    /// The days of the sheet were posted over what the tables held then: all that the draft holds but for undecided
    /// days. Hours whose column is gone wait on in it.
    void posted(const MonthSheet& sheet, const MonthSheet& in_tables);

    /// Whether saved days are on their way, and those that have come into the tables since leave the draft. Looks into
    /// the exchange files and the tables, so that it isn't asked with every key; nothing where they aren't reached.
    std::optional<bool> on_their_way(const MonthSheet& sheet);

    /// Whether it is worth asking: there are saved days, and it isn't known that they got lost.
    bool waits_for_days() const;

    /// What a save goes by. It refers to this and to the sheet.
    MonthInHand in_hand(const MonthSheet& sheet) const;

    /// These rows of the sheet stand as they are stored now, and so do its sums and counts: that is what was read of
    /// them.
    void taken_over(const MonthSheet& sheet, const QList<int>& rows);

    enum class Choice { Typed, Stored };

    /// The days that a save found changed by somebody else as well are decided, a choice each: the sheet stands over
    /// what is stored.
    void settle(MonthSheet& sheet, const MergedMonth& unsaved, const QList<Choice>& choices);

    /// The person gives up what was typed and isn't saved; the month is to be read anew.
    void give_up();

    /// Days that somebody else changed as well, in order; they stand as they were read until they are decided.
    const QList<Clash>& clashes() const { return m_clashes; }
    void decide(MonthSheet& sheet, int clash, Choice choice);

    /// What belongs beside the sheet as it stands, and the same brought back with an earlier sheet; to be kept then.
    BesideSheet beside_sheet() const { return {m_clashes, m_sums.typed()}; }
    void bring_back(const BesideSheet& beside);

    bool isEmpty() const { return m_kept.isEmpty(); }
    /// Whether nothing but counts and sums is unsaved: they are saved together with days.
    bool waits_for_a_day() const { return m_kept.unsaved_days() == 0 && !m_kept.counts.isEmpty(); }
    bool is_unsaved() const { return m_kept.unsaved_days() > 0 || !m_kept.counts.isEmpty(); }
    const QString& trouble() const { return m_trouble; } ///< why it can't be kept, in words; empty if it is

    /// How things stand, in words: "未登録 3日", "反映待ち 14:05", "登録しました 14:05", or that saved days
    /// didn't come into the tables; empty for an untouched month.
    QString standing() const;

private:
    void read_figures_of(const MonthSheet& stored, int r);
    void note_read(const MonthSheet& stored, int r);
    void note_sums_read(const MonthSheet& sheet);
    Draft draft_of(const MonthSheet& sheet);
    void write(Draft draft);
    void write_if_other(Draft draft);
    void note_posted(MonthSheet& sheet, const DraftDay& day);
    std::optional<MonthSheet> month_coming(const MonthSheet& sheet) const;
    void lay_kept(MonthSheet& sheet);
    bool take_sums(MonthSheet& sheet, const MonthSheet& stored);
    void keep_without_column(const MonthSheet& sheet, const DraftDay& day);
    void add_without_column(QList<DraftDay>& days, const MonthSheet& sheet) const;
    QMap<QString, QString> counts_by_hand() const; ///< also those that were posted
    bool has_posted() const;
    void day_posted(const MonthSheet& sheet, const DraftDay& day, const MonthSheet& in_tables);
    void let_arrived_go(const MonthSheet& stored);
    void settled(const Clash& clash, const MonthSheet& stored);
    bool stands_otherwise(Clash& clash, const MonthSheet& stored) const;

    frame::Session& m_session;
    base::EmployeeKey m_employee;
    base::CompanyMonth m_month{2000, 1, 1};
    MonthAsRead m_read;
    MonthSheet m_as_read; ///< the sheet as it was read, or posted last
    PostedDays m_posted;
    Draft m_kept; ///< as it lies in the file
    QList<Clash> m_clashes;
    HandSums m_sums;
    QMap<QDate, std::pair<TypedDay, Hours>>
        m_without_column;    ///< hours typed into columns that the sheet hasn't got now
    QTime m_saved;           ///< when it was posted; invalid if it wasn't since it was read
    bool m_are_lost = false; ///< the saved days that are left
    QString m_trouble;       ///< why the draft can't be written
};

} // namespace entry
