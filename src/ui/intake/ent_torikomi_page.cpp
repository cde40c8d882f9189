#include "ui/intake/ent_torikomi_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "platform/paths.h"
#include "ui/intake/column_table.h"
#include "ui/intake/preview_model.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableView>

namespace ui {

using namespace base;

namespace {

constexpr frame::Button post_button{1, u"登録", u"zen_tour.BMP", u"zen_tour_b.BMP"};
constexpr int most_heading_lines = 20;
constexpr int line_height = 24;
constexpr int word_width = 90;
constexpr std::array<int, PreviewModel::column_count - 1> widths{48, 56, 190, 104, 190, 84, 170};

void add_labelled(QHBoxLayout* row, const QString& caption, QWidget* box) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box);
}

} // namespace

ent_torikomi_page::ent_torikomi_page(frame::Session& session, frame::WorkLine& work, QWidget* parent)
    : Acting(parent), m_session(session), m_form(session, work), m_columns(new ColumnTable(m_form, this)),
      m_lines(new PreviewModel(m_form, this)), m_preview(new QTableView(this)), m_msglab(new QLabel(this)) {
    setWindowTitle(intake::ent_torikomi::caption.toString());
    m_form.Form_Load();
    const PageParts parts = lay_parts(*this);
    parts.head->addWidget(page_heading(intake::ent_torikomi::caption, this));
    for (QWidget* part : {make_file_row(), make_profile_row()})
        parts.body->addWidget(part);
    parts.body->addWidget(m_columns);
    parts.body->addWidget(make_filter_row());
    make_preview();
    parts.body->addWidget(m_preview, 1);
    parts.foot->addWidget(m_post = make_picture(post_button, [this] { press(1); }));
    parts.foot->addWidget(m_draft = make_button(u"下書きに入れる"_s, [this] { m_form.accept(intake::Into::Draft); }));
    parts.foot->addWidget(make_picture(frame::endbotan, [this] { press(0); }));
    parts.foot->addWidget(make_picture(
        frame::help_button, [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"ent_torikomi"_s); }));
    m_msglab->setObjectName("msglab");
    parts.foot->addWidget(m_msglab, 1);
    connect(m_columns, &ColumnTable::assigned, this,
        [this](int column, auto role) { act([&] { m_form.assign(column, role); }); });
    refresh();
}

QPushButton* ent_torikomi_page::make_button(const QString& caption, std::function<void()> on_press) {
    auto* button = new QPushButton(caption, this);
    connect(button, &QPushButton::clicked, this, [this, on_press = std::move(on_press)] { act(on_press); });
    return button;
}

PictureButton* ent_torikomi_page::make_picture(const frame::Button& button, std::function<void()> on_press) {
    auto* made = new PictureButton(frame::picture_folder(m_session.settings), button, this);
    connect(made, &PictureButton::clicked, this, std::move(on_press));
    return made;
}

QWidget* ent_torikomi_page::make_file_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    layout->addWidget(make_button(u"ファイルを選ぶ..."_s, [this] { m_form.open_file(); }));
    layout->addWidget(m_read_again = make_button(u"読み直す"_s, [this] { m_form.read_again(); }));
    layout->addWidget(m_file = new QLabel(row), 1);
    m_file->setTextFormat(Qt::PlainText);
    return row;
}

QWidget* ent_torikomi_page::make_profile_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    add_labelled(layout, u"列の割り当て"_s, m_names = new QComboBox(row));
    m_names->setMinimumWidth(220);
    connect(m_names, &QComboBox::activated, this,
        [this](int index) { act([&] { m_form.choose_profile(index == 0 ? QString() : m_names->itemText(index)); }); });
    layout->addWidget(m_keep = make_button(u"名前を付けて残す..."_s, [this] { keep_profile(); }));
    layout->addSpacing(2 * page_gap);
    add_labelled(layout, u"見出しの行数"_s, m_heading_lines = new QSpinBox(row));
    m_heading_lines->setRange(0, most_heading_lines);
    connect(m_heading_lines, &QSpinBox::valueChanged, this,
        [this](int lines) { act([&] { m_form.set_heading_lines(lines); }); });
    layout->addWidget(m_words = new QWidget(row));
    auto* words = row_in(m_words);
    add_labelled(words, u"出社の文字"_s, m_in_word = new QLineEdit(m_words));
    add_labelled(words, u"退社の文字"_s, m_out_word = new QLineEdit(m_words));
    for (QLineEdit* word : {m_in_word, m_out_word}) {
        word->setFixedWidth(word_width);
        word->setPlaceholderText(u"自動"_s);
        connect(word, &QLineEdit::editingFinished, this, [this] { take_words(); });
    }
    layout->addStretch(1);
    return row;
}

QWidget* ent_torikomi_page::make_filter_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    add_labelled(layout, u"表示"_s, m_states = new QComboBox(row));
    m_states->setMinimumWidth(150);
    connect(m_states, &QComboBox::activated, this, [this](int index) {
        m_lines->show_state(index == 0 ? std::nullopt : std::optional(intake::State(index - 1)));
    });
    layout->addWidget(m_replace = new QCheckBox(u"違う日も置きかえる"_s, row));
    connect(m_replace, &QCheckBox::clicked, this, [this](bool on) { act([&] { m_form.choose_different(on); }); });
    layout->addStretch(1);
    return row;
}

void ent_torikomi_page::make_preview() {
    m_preview->setObjectName("preview");
    m_preview->setAccessibleName(u"取り込みの内容"_s);
    m_preview->setModel(m_lines);
    m_preview->verticalHeader()->hide();
    m_preview->verticalHeader()->setDefaultSectionSize(line_height);
    m_preview->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_preview->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_preview->horizontalHeader()->setHighlightSections(false);
    m_preview->horizontalHeader()->setStretchLastSection(true);
    m_preview->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_preview->setWordWrap(false);
    m_preview->setTabKeyNavigation(false);
    for (int column = 0; column < int(widths.size()); ++column)
        m_preview->setColumnWidth(column, widths[size_t(column)]);
    connect(m_lines, &PreviewModel::chosen, this, [this](int day, bool accept) {
        m_form.choose(day, accept);
        show_states();
    });
}

void ent_torikomi_page::keep_profile() {
    if (const auto name = m_session.host.input(u"この割り当ての名前（例: 本社のタイムレコーダー）"_s))
        m_form.keep_profile(*name);
}

void ent_torikomi_page::take_words() {
    act([this] { m_form.set_words(m_in_word->text(), m_out_word->text()); });
}

void ent_torikomi_page::press(int element) {
    act([&] { m_form.botan_Click(element); });
    if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

void ent_torikomi_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous() && m_form.path.isEmpty())
        setFocus();
}

void ent_torikomi_page::refresh() {
    const intake::RecorderFile& file = m_form.file;
    m_file->setText(m_form.path.isEmpty() ? u"タイムレコーダーの CSV やテキストのファイルを選んでください"_s
                                          : u"%1　（%2、%3区切り、%4行）"_s.arg(QFileInfo(m_form.path).fileName(),
                                                file.encoding, file.separator, QString::number(file.lines.size())));
    m_file->setToolTip(platform::native(m_form.path));
    m_read_again->setEnabled(!m_form.path.isEmpty());
    m_columns->refresh();
    m_lines->refresh();
    m_msglab->setText(m_form.msglab);
    show_profile();
    show_states();
}

void ent_torikomi_page::show_profile() {
    const QSignalBlocker quiet_names(m_names);
    const QSignalBlocker quiet_lines(m_heading_lines);
    m_names->clear();
    m_names->addItem(u"（見出しから自動）"_s);
    m_names->addItems(m_form.names);
    m_names->setCurrentIndex(static_cast<int>(m_form.names.indexOf(m_form.profile.name)) + 1);
    m_keep->setEnabled(m_form.profile_changed());
    m_heading_lines->setValue(m_form.profile.heading_lines);
    m_words->setVisible(m_form.profile.has(intake::Role::Direction));
    m_in_word->setText(m_form.profile.in_word);
    m_out_word->setText(m_form.profile.out_word);
}

void ent_torikomi_page::show_states() {
    const int shown = std::max(0, m_states->currentIndex());
    m_states->clear();
    m_states->addItem(u"すべて（%1行）"_s.arg(m_form.preview.lines.size()));
    for (int i = 0; i < intake::state_count; ++i) {
        const auto state = intake::State(i);
        m_states->addItem(u"%1（%2行）"_s.arg(intake::state_words(state)).arg(m_form.preview.count(state)));
    }
    m_states->setCurrentIndex(shown);
    m_replace->setEnabled(m_form.preview.count(intake::State::Different) > 0 && m_form.taken.days.isEmpty());
    m_post->setEnabled(m_form.can_accept());
    m_draft->setEnabled(m_form.can_accept());
}

} // namespace ui
