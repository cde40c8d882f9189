#include "common/ken_mst.h"

#include "base/columns.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/syllabary.h"
#include "store/database.h"
#include "store/files.h"

#include <algorithm>

namespace common {

using namespace base;

namespace {

constexpr SearchMode modes[] = {
    {search_employees, u"社員マスター", u"syain", u"システム番号", u"社員番号", u"社員名", u"フリガナ", u""},
};

constexpr base::Column columns[] = {{u"", 800, Alignment::Right}, {u"番　号", 2000}, {u"名　称", 8800}, {u"", 0}};

/// What was typed, ready to be compared. A number that is none is nobody's.
class Filter {
public:
    explicit Filter(const std::array<QString, 4>& kenatai) {
        for (int i = 0; i < int(kenatai.size()); ++i)
            m_texts[i] = folded(kenatai[i]);
        m_number = m_texts[ken_mst::number_box].trimmed().toLongLong(&m_numeric);
    }

    bool takes(const store::Row& row) const {
        return holds(row.text(1), ken_mst::name_box) && holds(row.text(2), ken_mst::reading_box) &&
               holds(row.text(3), ken_mst::spare_box) && is_numbered(row);
    }

private:
    bool holds(const QString& field, int box) const {
        return m_texts[box].isEmpty() || folded(field).contains(m_texts[box]);
    }
    /// A row without a number isn't number 0.
    bool is_numbered(const store::Row& row) const {
        return m_texts[ken_mst::number_box].isEmpty() ||
               (m_numeric && !Trim(row.text(0)).isEmpty() && row.number(0) == m_number);
    }

    std::array<QString, 4> m_texts;
    qint64 m_number = 0;
    bool m_numeric = false;
};

QString quoted(QStringView name) {
    return u"\"%1\""_s.arg(name);
}

/// Number, name, reading, spare field and key of each row, by number.
QString query_of(const SearchMode& mode) {
    const QString spare = mode.spare.isEmpty() ? u"''"_s : quoted(mode.spare);
    return u"select %1, %2, %3, %4, %5 from %6 order by %1, rowid"_s.arg(
        quoted(mode.number), quoted(mode.name), quoted(mode.reading), spare, quoted(mode.key), quoted(mode.table));
}

constexpr char16_t first_katakana = u'ァ', last_katakana = u'ヶ';
constexpr int katakana_to_hiragana = u'ァ' - u'ぁ';

} // namespace

const SearchMode* search_mode(int mode) {
    const auto at = std::ranges::find(modes, mode, &SearchMode::mode);
    return at == std::end(modes) ? nullptr : &*at;
}

QString folded(const QString& text) {
    QString one_form = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
    for (QChar& c : one_form)
        if (c >= first_katakana && c <= last_katakana)
            c = QChar(c.unicode() - katakana_to_hiragana);
    return one_form;
}

ken_mst::ken_mst(const base::Settings& settings, QString& mstkenflg, int mode)
    : m_settings(settings), m_mstkenflg(mstkenflg), m_mode(*search_mode(mode)) {
    m_mstkenflg = digits(mode);
}

ken_mst::~ken_mst() {
    m_mstkenflg.clear();
}

void ken_mst::書式設定_抽出リスト() {
    lay_out(hyou, columns, 1, 1);
}

void ken_mst::書式設定_五十音() {
    const SyllabaryPage& page = syllabary()[m_page];
    hyou_go.Clear();
    hyou_go.SetFixed(0, 0);
    for (int row = 0; row < hyou_go.Rows(); ++row)
        hyou_go.SetRowHeight(row, kana_row_height);
    for (int col = 0; col < hyou_go.Cols(); ++col) {
        hyou_go.SetColWidth(col, col < kana_a_line ? kana_col_width : 0);
        hyou_go.SetColAlignment(col, Alignment::Center);
        for (int row = 1; row < hyou_go.Rows(); ++row) {
            hyou_go(row, col) = page.head({row, col});
            hyou_go.SetCellBack(row, col, head_back);
        }
    }
    open_line({1, 0});
}

void ken_mst::抽出処理() {
    書式設定_抽出リスト();
    auto comsys = store::Database::open(store::comsys_path(m_settings), store::Kind::Comsys);
    auto query = comsys.prepare(query_of(m_mode).toStdString());
    const Filter filter(kenatai);
    int filled = 1;
    while (query.step()) {
        const store::Row row = query.row();
        if (!filter.takes(row))
            continue;
        if (filled == hyou.Rows())
            hyou.SetRows(2 * filled);
        hyou(filled, row_col) = digits(filled);
        hyou(filled, number_col) = row.text(0);
        hyou(filled, name_col) = row.text(1);
        hyou(filled, key_col) = row.text(4);
        ++filled;
    }
    hyou.SetRows(filled);
    hyou.SetCursor({filled > 1 ? 1 : 0, number_col});
    to_list();
}

void ken_mst::Form_Activate() {
    search_result.clear();
    書式設定_抽出リスト();
    書式設定_五十音();
    midasi = m_mode.title.toString();
    focus = Wish{SearchControl::Kenatai, name_box};
}

bool ken_mst::has_box(int element) const {
    return element != spare_box || !m_mode.spare.isEmpty();
}

QString ken_mst::page_name() const {
    return syllabary()[m_page].name.toString();
}

bool ken_mst::to_list() {
    if (hyou.Rows() > hyou.FixedRows())
        focus = Wish{SearchControl::Hyou};
    return hyou.Rows() > hyou.FixedRows();
}

bool ken_mst::to_next_box(int element) {
    int next = element + 1;
    while (next < int(kenatai.size()) && !has_box(next))
        ++next;
    if (next == int(kenatai.size()))
        return false;
    focus = Wish{SearchControl::Kenatai, next};
    return true;
}

bool ken_mst::kenatai_KeyDown(int element, int key_code) {
    if (key_code == key::down)
        return to_list();
    if (key_code != key::enter)
        return false;
    if (!to_next_box(element))
        抽出処理();
    return true;
}

void ken_mst::hyou_Click(int row) {
    if (row < hyou.FixedRows() || row >= hyou.Rows())
        return;
    search_result = Trim(hyou(row, number_col));
    chosen = true;
    end();
}

bool ken_mst::hyou_KeyDown(int key_code) {
    if (key_code != key::up || hyou.Row() > hyou.FixedRows())
        return false;
    focus = Wish{SearchControl::Kenatai, name_box};
    return true;
}

void ken_mst::hyou_go_Click(Cell cell) {
    if (cell.row > 0)
        return open_line(cell);
    const QString kana = hyou_go(0, cell.col);
    if (kana.isEmpty())
        return;
    kenatai[reading_box] += kana;
    抽出処理();
}

/// A head without a line leaves the open one as it is.
void ken_mst::open_line(Cell head) {
    const SyllabaryPage& page = syllabary()[m_page];
    if (page.head(head).isEmpty())
        return;
    for (int col = 0; col < kana_a_line; ++col)
        hyou_go(0, col) = page.kana(head, col);
}

void ken_mst::mojikirikae_Click() {
    m_page = (m_page + 1) % int(syllabary().size());
    書式設定_五十音();
}

void ken_mst::botan_Click(int element) {
    if (element == 1)
        return 抽出処理();
    search_result.clear();
    end();
}

void ken_mst::end() {
    m_mstkenflg.clear();
    ended = true;
}

} // namespace common
