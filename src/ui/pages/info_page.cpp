#include "ui/pages/info_page.h"

#include "base/literals.h"
#include "frame/button.h"
#include "ui/pages/news_list.h"
#include "ui/pages/news_picture.h"
#include "ui/parts/card.h"
#include "ui/parts/colours.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr int card_margin = 18;
constexpr QSize beside_words(24, 6); ///< in a push button, both sides together
constexpr QSize picture_room(800, 320);
constexpr QSize icon_room(112, 112);

struct GuideEntry {
    QStringView button;
    QStringView what_for;
};
constexpr GuideEntry guide[]{
    {u"出勤入力", u"毎日の出社・退社の時刻を入力します。"},
    {u"集計表", u"各種の一覧表を印刷します。"},
    {u"マスター", u"社員や勤務タイプなどを登録します。"},
    {u"ヘルプ", u"画面の使い方と入力例を見られます。"},
};

QLabel* label(const QString& text, Lettering as, QWidget* parent) {
    auto* made = new QLabel(parent);
    made->setTextFormat(Qt::PlainText);
    made->setText(text);
    letter(*made, as);
    return made;
}

QPushButton* push_button(const QString& text, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setFocusPolicy(Qt::TabFocus);
    button->setFixedSize(button->sizeHint() + beside_words);
    return button;
}

} // namespace

info_page::info_page(frame::Session& session, std::function<void()> show_errors, QWidget* parent)
    : QWidget(parent), m_session(session), m_show_errors(std::move(show_errors)), m_form(session, m_fetch),
      m_content(new QWidget(this)) {
    setWindowTitle(frame::info::Caption.toString());
    m_form.Form_Load();
    auto* column = new QVBoxLayout(m_content);
    column->setContentsMargins(no_margins);
    column->setSpacing(14);
    for (QWidget* part : {make_head(), make_notice(), make_guide()})
        column->addWidget(part);
    column->addWidget(make_news(), 1);
    column->addWidget(m_page_picture = new QLabel(m_content), 1, Qt::AlignCenter);
    column->addWidget(make_foot());
    m_form.changed = [this] { refresh(); };
    refresh();
}

QWidget* info_page::make_head() {
    auto* head = new QWidget(m_content);
    auto* line = new QHBoxLayout;
    line->addWidget(label(frame::info::Caption.toString(), Lettering::Heading, head));
    line->addStretch(1);
    line->addWidget(label(u"バージョン"_s, Lettering::Quiet, head));
    line->addWidget(label(m_form.seihin_no, Lettering::Section, head));
    auto* column = new QVBoxLayout(head);
    column->setContentsMargins(no_margins);
    column->setSpacing(20);
    column->addLayout(line);
    column->addWidget(page_rule(head));
    return head;
}

QWidget* info_page::make_notice() {
    auto* band = new Card(m_content, {.ground = colours::notice, .line = colours::notice_line});
    m_notice = new QPushButton(band);
    m_notice->setFlat(true);
    m_notice->setFocusPolicy(Qt::TabFocus);
    m_notice->setCursor(Qt::PointingHandCursor);
    connect(m_notice, &QPushButton::clicked, this, [this] { m_show_errors(); });
    auto* line = new QHBoxLayout(band);
    line->setContentsMargins(card_margin / 2, 4, card_margin, 4);
    line->addWidget(m_notice);
    line->addStretch(1);
    return m_notice_band = band;
}

QWidget* info_page::make_guide() {
    auto* card = new Card(m_content);
    auto* line = new QHBoxLayout(card);
    line->setContentsMargins(card_margin, card_margin, card_margin, card_margin);
    line->setSpacing(2 * card_margin);
    for (const GuideEntry& entry : guide) {
        auto* column = new QVBoxLayout;
        column->setSpacing(6);
        column->addWidget(label(entry.button.toString(), Lettering::Section, card));
        QLabel* text = label(entry.what_for.toString(), Lettering::Comment, card);
        text->setWordWrap(true);
        column->addWidget(text, 1, Qt::AlignTop);
        line->addLayout(column, 1);
    }
    return card;
}

QWidget* info_page::make_news() {
    m_pic_info = new Card(m_content);
    m_osirase = push_button(u"お知らせを表示"_s, m_pic_info);
    connect(m_osirase, &QPushButton::clicked, this, [this] { m_form.osirase_Click(); });
    m_no_news = label(u"新しいお知らせはありません。"_s, Lettering::Quiet, m_pic_info);
    m_no_news->setAlignment(Qt::AlignCenter);
    m_hyou = new NewsList(m_form.hyou,
        {[this](int row) { return m_form.is_link(row); }, [this](int row) { m_form.hyou_Click(row); },
            [this](int row) { m_form.drop_picture(row); }},
        m_pic_info);
    auto* head = new QHBoxLayout;
    head->addWidget(label(u"お知らせ"_s, Lettering::Section, m_pic_info));
    head->addStretch(1);
    head->addWidget(m_osirase);
    auto* column = new QVBoxLayout(m_pic_info);
    column->setContentsMargins(card_margin, card_margin - 4, card_margin, card_margin);
    column->setSpacing(10);
    column->addLayout(head);
    column->addWidget(m_no_news, 1);
    column->addWidget(m_hyou, 1);
    return m_pic_info;
}

QWidget* info_page::make_foot() {
    auto* foot = new QWidget(m_content);
    m_intjyuflg = new QCheckBox(u"インターネットから情報を受信する"_s, foot);
    connect(m_intjyuflg, &QCheckBox::toggled, this, [this](bool ticked) { m_form.intjyuflg_Click(ticked); });
    m_down = push_button(u"メーカーのページを開く"_s, foot);
    connect(m_down, &QPushButton::clicked, this, [this] { m_form.down_Click(); });
    auto* line = new QHBoxLayout(foot);
    line->setContentsMargins(no_margins);
    line->addWidget(m_intjyuflg);
    line->addStretch(1);
    line->addWidget(m_down);
    return foot;
}

void info_page::refresh() {
    const bool errors = m_show_errors && m_form.import_errors > 0;
    m_notice->setText(u"取込エラーがあります（%1件）"_s.arg(m_form.import_errors));
    m_notice_band->setVisible(errors);
    m_pic_info->setVisible(m_form.pic_info);
    m_osirase->setVisible(m_form.osirase);
    m_down->setVisible(m_form.down);
    const bool news = m_form.hyou.Rows() > 0;
    m_no_news->setVisible(!news);
    m_hyou->setVisible(news);
    m_hyou->refresh();
    m_page_picture->setVisible(!m_form.pic_info);
    const QSignalBlocker quiet(m_intjyuflg);
    m_intjyuflg->setChecked(m_form.intjyuflg);
}

/// The installation's own picture where there is one, else the program's.
void info_page::show_page_picture() {
    const bool own = !m_form.page_picture.isEmpty();
    const QString path = own ? m_form.page_picture : frame::program_icon_path(m_session.settings);
    QPixmap picture =
        QPixmap::fromImage(read_news_picture(path, (own ? picture_room : icon_room) * devicePixelRatioF()));
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_page_picture->setPixmap(picture);
}

void info_page::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (std::exchange(m_painted, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_form.Shown();
        show_page_picture();
    });
}

void info_page::resizeEvent(QResizeEvent*) {
    const int content = qMin(width() - 2 * content_margin, content_width);
    m_content->setGeometry(
        (width() - content) / 2, content_margin, content, height() - 2 * content_margin + content_margin / 2);
}

} // namespace ui
