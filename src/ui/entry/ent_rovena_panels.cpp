// The panels over attendance entry from which days are filled and pasted.

#include "ui/entry/ent_rovena_page.h"
#include "ui/entry/fill_panel.h"
#include "ui/entry/paste_panel.h"

namespace ui {

void ent_rovena_page::fill_days() {
    if (m_form.syainsyscd.isEmpty())
        return;
    const bool ask = m_form.needs_normal_day();
    const entry::NormalDay marked = m_form.normal_day();
    FillPanel panel(m_form.sheet, ask ? band_choices(m_form.sheet) : QList<entry::BandChoice>(),
        marked.last == 0 ? proposed_day(m_form.sheet) : marked, m_form.fill_weekdays(), this);
    if (panel.exec() != QDialog::Accepted)
        return;
    if (const auto normal = panel.normal_day(); normal && panel.source() == entry::FillSource::StandardTimes)
        m_form.mark_normal_day(*normal);
    m_form.set_fill_weekdays(panel.weekdays());
    act([&] { m_form.fill(panel.source(), panel.rows()); });
}

/// A text of several cells; one of a single cell is the box's own.
bool ent_rovena_page::paste_cells(const QString& text) {
    if (!text.trimmed().contains(u'\n') && !text.contains(u'\t'))
        return false;
    const base::Cell in_hand{m_form.sheet.hyou.Row(), m_form.sheet.hyou.Col()};
    const entry::PastePreview preview = act([&] { return m_form.preview_paste(text); });
    PastePanel panel(m_form.sheet, preview, this);
    if (panel.exec() == QDialog::Accepted)
        act([&] { m_form.paste(preview); });
    else
        act([&] { m_form.hyou_Click(in_hand); });
    return true;
}

} // namespace ui
