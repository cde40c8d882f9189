#include "ui/entry/why_panel.h"

#include "base/literals.h"
#include "ui/entry/stay_line.h"
#include "ui/parts/style.h"

#include <QLabel>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr int letters = 12; ///< pixels

QString shown(minutes time) {
    return time_to_text(minutes_to_time(time));
}

QString quiet(const QString& text) {
    return u"<span style='color:%1'>%2</span>"_s.arg(QColor::fromRgb(colours::quiet_text).name(), text);
}

QString section(const QString& title) {
    return u"<p style='margin-top:6px; margin-bottom:2px'><b>%1</b></p>"_s.arg(title);
}

QString line(const QString& text) {
    return u"<div>%1</div>"_s.arg(text);
}

QString row(const QString& left, const QString& right) {
    return u"<tr><td>%1</td><td align='right'>%2</td></tr>"_s.arg(left, right);
}

QString band_row(const entry::WhyBand& band) {
    const QString name = u"<span style='color:%1'>■</span> %2&nbsp; %3"_s.arg(colours::of_category(band.place).name(),
        band.name.toHtmlEscaped(), quiet(u"%1～%2"_s.arg(shown(band.start), shown(band.end))));
    if (band.remark.isEmpty())
        return row(name, shown(band.inside));
    return row(name, u"－"_s) + u"<tr><td colspan='2'>　%1</td></tr>"_s.arg(quiet(band.remark));
}

QString words_of(const entry::Why& why) {
    QString words = section(u"時間帯"_s) + u"<table width='100%' cellspacing='0' cellpadding='1'>"_s;
    for (const entry::WhyBand& band : why.bands)
        words += band_row(band);
    words += row(u"　どの時間帯にも入らない分"_s, shown(why.outside)) + u"</table>"_s;
    words += section(u"休憩の決まり"_s);
    for (const QString& rule : why.breaks)
        words += line(rule.toHtmlEscaped());
    if (why.breaks.isEmpty())
        words += line(quiet(u"あてはまる決まりはありません"_s));
    words += section(u"計算"_s);
    for (const entry::WhySum& sum : why.sums)
        words += line(entry::text_of(sum).toHtmlEscaped());
    if (why.to_be_calculated)
        words += line(quiet(u"この日はまだ計算されていません"_s));
    return words;
}

QString day_of(const entry::MonthSheet& sheet, int r) {
    const base::Sheet& hyou = sheet.hyou;
    const auto clock = [&](int column) { return hyou(r, column).isEmpty() ? u"－"_s : hyou(r, column); };
    const QString times = u"%1～%2"_s.arg(clock(entry::col::clock_in), clock(entry::col::clock_out));
    return u"%1日（%2）　%3"_s.arg(hyou(r, entry::col::day), hyou(r, entry::col::weekday), times);
}

QLabel* label(QWidget* parent) {
    auto* made = new QLabel(parent);
    QFont font = made->font();
    font.setPixelSize(letters);
    made->setFont(font);
    made->setWordWrap(true);
    made->setTextInteractionFlags(Qt::NoTextInteraction);
    return made;
}

} // namespace

WhyPanel::WhyPanel(QWidget* parent)
    : Card(parent), m_day(label(this)), m_line(new StayLine(this)), m_words(label(this)) {
    setObjectName("why");
    letter(*m_day, Lettering::Section);
    m_words->setTextFormat(Qt::RichText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(10, 8, 10, 8);
    column->setSpacing(4);
    column->addWidget(m_day);
    column->addWidget(m_line);
    column->addWidget(m_words);
    column->addStretch();
}

void WhyPanel::show_day(const entry::MonthSheet& sheet, int r) {
    const std::optional<entry::Why> why = entry::why_of(sheet, r);
    m_line->setVisible(why.has_value());
    m_day->setText(why ? day_of(sheet, r) : u"内訳"_s);
    m_words->setText(why ? words_of(*why) : quiet(u"この行には時刻がありません"_s));
    if (why)
        m_line->show_day(*why);
}

} // namespace ui
