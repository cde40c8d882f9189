#include "ui/intake/preview_model.h"

#include "base/literals.h"
#include "intake/report.h"
#include "ui/parts/colours.h"

#include <QColor>

namespace ui {

using namespace base;

namespace {

constexpr QRgb new_text = 0xff1b6e3c;

QRgb colour_of(intake::State state) {
    switch (state) {
    case intake::State::New:
        return new_text;
    case intake::State::Different:
        return colours::care_text;
    case intake::State::NotUnderstood:
        return colours::wrong_text;
    case intake::State::Same:
        return colours::quiet_text;
    }
    Q_UNREACHABLE();
}

} // namespace

void PreviewModel::show_state(std::optional<intake::State> state) {
    m_state = state;
    refresh();
}

void PreviewModel::refresh() {
    beginResetModel();
    m_lines.clear();
    for (int i = 0; i < m_form.preview.lines.size(); ++i)
        if (!m_state || m_form.preview.lines[i].state == *m_state)
            m_lines << i;
    endResetModel();
}

int PreviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int PreviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : column_count;
}

const intake::PreviewLine& PreviewModel::line(const QModelIndex& index) const {
    return m_form.preview.lines[m_lines[index.row()]];
}

QString PreviewModel::text(const intake::PreviewLine& line, int column) const {
    const auto outcome = m_form.taken.days.find(line.day);
    const bool come_to = outcome != m_form.taken.days.end();
    switch (column) {
    case Line:
        return QString::number(line.number);
    case Employee:
        return line.employee;
    case Date:
        return line.date;
    case Times:
        return line.times;
    case State:
        return come_to ? intake::outcome_words(outcome->became).toString() : intake::state_words(line.state).toString();
    case Clock: {
        if (line.day < 0 || m_form.preview.days[line.day].clock_in.isEmpty())
            return {};
        const intake::ImportDay& day = m_form.preview.days[line.day];
        return u"%1 %2～%3"_s.arg(day.date.toString(u"M/d"_s), day.clock_in, day.clock_out);
    }
    case Reason:
        return come_to && !outcome->reason.isEmpty() ? outcome->reason : line.reason;
    default:
        return {};
    }
}

QVariant PreviewModel::tick(const intake::PreviewLine& line) const {
    if (!m_form.may_choose(line.day))
        return {};
    return m_form.chosen.contains(line.day) ? Qt::Checked : Qt::Unchecked;
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const {
    const intake::PreviewLine& of = line(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return text(of, index.column());
    case Qt::CheckStateRole:
        return index.column() == Take ? tick(of) : QVariant();
    case Qt::ForegroundRole:
        return index.column() == State ? QColor::fromRgb(colour_of(of.state)) : QVariant();
    default:
        return {};
    }
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const QStringList headings{
        u"取込"_s, u"行"_s, u"社員"_s, u"日付"_s, u"ファイルの時刻"_s, u"結果"_s, u"入る日と時刻"_s, u"理由"_s};
    if (role == Qt::DisplayRole && orientation == Qt::Horizontal)
        return headings.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags PreviewModel::flags(const QModelIndex& index) const {
    const bool may_choose = index.column() == Take && m_form.may_choose(line(index).day);
    return QAbstractTableModel::flags(index) | (may_choose ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

/// A day of several lines is ticked in all of them.
bool PreviewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole)
        return false;
    Q_EMIT chosen(line(index).day, value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(this->index(0, Take), this->index(rowCount() - 1, Take));
    return true;
}

} // namespace ui
