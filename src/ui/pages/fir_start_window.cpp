#include "ui/pages/fir_start_window.h"

#include "base/literals.h"
#include "frame/button.h"
#include "frame/help.h"
#include "ui/masters/day_line.h"
#include "ui/masters/master_page.h"
#include "ui/pages/printer_box.h"
#include "ui/parts/colours.h"
#include "ui/parts/moment_note.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/panel.h"
#include "ui/parts/picture_button.h"
#include "ui/parts/style.h"

#include <QGridLayout>
#include <QIcon>
#include <QScopeGuard>
#include <utility>

namespace ui {

using namespace base;
using setup::TimeBox;
using setup::TimePlace;
using Form = setup::fir_start;

namespace {

constexpr QRgb band_back = qRgb(200, 200, 255);
constexpr int margin = 20;
constexpr int air = 12;
constexpr int band_name_width = 90;
constexpr int time_width = 140;
constexpr int day_width = 72;
constexpr int half_width = 380; ///< of what stands in the two panels below
constexpr frame::Button register_button{1, u"登録", u"zen_tour.BMP", u"zen_tour_b.BMP"};

QLabel* lettered(QStringView text, Lettering as, QWidget* parent) {
    auto* label = new QLabel(text.toString(), parent);
    letter(*label, as);
    return label;
}

QLabel* note(QStringView text, QWidget* parent) {
    auto* label = master_note(parent);
    label->setText(text.toString());
    return label;
}

/// A note in one of the lower panels, in as many lines as it needs there.
QLabel* wrapped_note(QStringView text, QWidget* parent) {
    QLabel* label = note(text, parent);
    label->setWordWrap(true);
    label->setFixedSize(half_width, label->heightForWidth(half_width));
    return label;
}

QStringList band_names() {
    QStringList names;
    for (const QStringView heading : Form::band_headings)
        names << heading.toString();
    return names;
}

} // namespace

fir_start_window::fir_start_window(frame::Session& session, const QString& program_folder)
    : m_session(session), m_form(session, program_folder), m_said(long_note("said", this)),
      m_note(new MomentNote(*this)) {
    m_form.Form_Load();
    setWindowTitle(Form::caption.toString());
    setWindowIcon(QIcon(frame::program_icon_path(session.settings)));
    auto* work = new QVBoxLayout;
    work->setContentsMargins(margin, air, margin, air);
    work->setSpacing(air);
    work->addWidget(make_times()); // made in the order that Tab goes through them
    auto* below = new QHBoxLayout;
    below->setSpacing(margin);
    below->addWidget(make_first_day(), 1);
    below->addWidget(make_printer(), 1);
    work->addLayout(below);
    work->addLayout(make_foot());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(no_margins);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(make_band());
    column->addLayout(work, 1);
    refresh();
    time({TimeBox::st_time, 0})->setFocus();
}

QWidget* fir_start_window::make_band() {
    auto* band = new QWidget(this);
    band->setAutoFillBackground(true);
    band->setPalette(QPalette(QColor::fromRgb(band_back)));
    auto* lines = new QVBoxLayout(band);
    lines->setContentsMargins(margin, air, margin, air);
    lines->setSpacing(2);
    lines->addWidget(lettered(Form::caption, Lettering::Heading, band));
    lines->addWidget(
        lettered(u"次の三つを決めて「登録」を押すと、すぐに出勤を入力できます。", Lettering::Comment, band));
    return band;
}

QWidget* fir_start_window::make_times() {
    auto* panel = new Panel(u"１　ふだんの一日"_s, this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(6);
    grid->setColumnMinimumWidth(0, band_name_width);
    grid->setColumnStretch(setup::time_box_count + 1, 1);
    for (int box = 0; box < setup::time_box_count; ++box)
        grid->addWidget(lettered(Form::time_headings[box], Lettering::Comment, panel), 0, box + 1, Qt::AlignCenter);
    for (int band = 0; band < setup::seeded_band_count; ++band) {
        grid->addWidget(lettered(Form::band_headings[band], Lettering::Comment, panel), band + 1, 0);
        for (int box = 0; box < setup::time_box_count; ++box)
            grid->addWidget(make_time({TimeBox(box), band}, panel), band + 1, box + 1);
    }
    panel->body()->addLayout(grid);
    m_day = new DayLine(panel);
    panel->body()->addSpacing(4);
    panel->body()->addWidget(m_day);
    auto* notes = new QVBoxLayout;
    notes->setSpacing(3);
    notes->addWidget(note(u"時刻は数字だけで入力できます。８時は「800」、８時３０分は「830」です。", panel));
    for (const QStringView text : Form::time_notes)
        notes->addWidget(note(text, panel));
    panel->body()->addLayout(notes);
    return panel;
}

FieldBox* fir_start_window::make_time(TimePlace place, QWidget* parent) {
    auto* box = new FieldBox(FieldText::Time,
        {.Change = [this, place](const QString& typed) { act([&] { m_form.time_Change(place, typed); }); },
            .KeyDown = [this, place](int code) { return act([&] { return m_form.time_KeyDown(place, code); }); },
            .GotFocus = [this, place] { act([&] { m_form.time_GotFocus(place); }); },
            .LostFocus = [this, place] { act([&] { m_form.time_LostFocus(place); }); }},
        parent);
    box->setFixedWidth(time_width);
    box->setAlignment(Qt::AlignCenter);
    box->setAccessibleName(u"%1 %2"_s.arg(Form::band_headings[place.band], Form::time_headings[int(place.box)]));
    m_time[size_t(place.box)][size_t(place.band)] = box;
    return box;
}

QWidget* fir_start_window::make_first_day() {
    auto* panel = new Panel(u"２　集計開始日"_s, this);
    m_first_day = new FieldBox(FieldText::Number,
        {.Change = [this](const QString& typed) { act([&] { m_form.atai_Change(typed); }); }}, panel);
    m_first_day->setFixedWidth(day_width);
    m_first_day->setAlignment(Qt::AlignCenter);
    m_first_day->setAccessibleName(u"集計開始日"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_first_day);
    row->addWidget(lettered(u"日", Lettering::Comment, panel));
    row->addStretch();
    panel->body()->addLayout(row);
    panel->body()->addWidget(wrapped_note(Form::first_day_note, panel));
    panel->body()->addStretch();
    return panel;
}

QWidget* fir_start_window::make_printer() {
    auto* panel = new Panel(u"３　プリンター"_s, this);
    m_prconb = new PrinterBox([this](int item) { act([&] { m_form.prconb_Click(item); }); }, panel);
    m_prconb->setFixedWidth(half_width);
    panel->body()->addWidget(m_prconb);
    panel->body()->addWidget(wrapped_note(u"「PDF」を選ぶと、紙の代わりにPDFの書類を作ります。", panel));
    panel->body()->addStretch();
    return panel;
}

QLayout* fir_start_window::make_foot() {
    const QString pictures = frame::picture_folder(m_session.settings);
    m_botan = new PictureButton(pictures, register_button, this);
    auto* imghelp = new PictureButton(pictures, frame::help_button, this);
    connect(m_botan, &PictureButton::clicked, this, [this] { act([this] { m_form.botan_Click(); }); });
    connect(imghelp, &PictureButton::clicked, this,
        [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"fir_start"_s); });
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_botan);
    row->addWidget(imghelp);
    row->addSpacing(8);
    row->addWidget(lettered(Form::later_note, Lettering::Comment, this));
    row->addWidget(m_said, 1);
    return row;
}

void fir_start_window::refresh() {
    for (int box = 0; box < setup::time_box_count; ++box)
        for (int band = 0; band < setup::seeded_band_count; ++band)
            time({TimeBox(box), band})->show_text(m_form.text({TimeBox(box), band}));
    m_first_day->show_text(m_form.atai[Form::first_day]);
    m_prconb->show_list(m_form.prconb);
    m_day->show_day(m_form.picture(), band_names());
    show_notice();
    if (const auto wish = std::exchange(m_form.focus, std::nullopt))
        time(*wish)->setFocus(Qt::OtherFocusReason);
    if (m_form.close_wanted)
        close();
}

void fir_start_window::show_notice() {
    const auto& notice = m_form.notice;
    const QString words = notice ? notice->text : QString();
    m_said->setText(words);
    m_note->say(words, notice && notice->place ? *time(*notice->place) : *m_first_day);
}

} // namespace ui
