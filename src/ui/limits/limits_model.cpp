#include "ui/limits/limits_model.h"

#include "base/literals.h"
#include "limits/words.h"
#include "ui/parts/colours.h"

namespace ui {

using namespace base;
using limits::Measure;

namespace {

QColor colour_of(limits::Level level) {
    return QColor::fromRgb(level == limits::Level::Over ? colours::wrong_text : colours::care_text);
}

} // namespace

void LimitsModel::refresh() {
    beginResetModel();
    endResetModel();
}

int LimitsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_form.shown.size());
}

int LimitsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : column_count;
}

/// What the cell's bar is of; null where it has none.
const limits::Judged* LimitsModel::judged(const QModelIndex& index) const {
    const limits::Judgement& judgement = employee(index.row()).judgement;
    if (index.column() >= first_measure)
        return judgement.of(Measure(index.column() - first_measure));
    return index.column() == Nearest && judgement.nearest >= 0 ? &judgement.judged[judgement.nearest] : nullptr;
}

QString LimitsModel::text(const QModelIndex& index) const {
    const limits::Looked& of = employee(index.row());
    switch (index.column()) {
    case Number:
        return of.figures.number;
    case Name:
        return of.figures.name;
    case State:
        return limits::level_word(of.judgement.level).toString();
    case Nearest:
        return limits::nearest_text(of.judgement, m_form.look.span);
    default:
        return limits::figure_text(judged(index));
    }
}

QVariant LimitsModel::data(const QModelIndex& index, int role) const {
    const limits::Judged* bar = judged(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return text(index);
    case Qt::ForegroundRole:
        return index.column() == State ? colour_of(employee(index.row()).judgement.level) : QVariant();
    case Qt::TextAlignmentRole:
        return int((index.column() >= first_measure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Share:
        return bar ? (index.column() == Nearest ? bar->share : bar->reached()) : QVariant();
    case Level:
        return bar ? int(bar->level) : QVariant();
    default:
        return {};
    }
}

QVariant LimitsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    constexpr QStringView headings[]{u"社員番号", u"社員名", u"状態", u"いちばん近い上限"};
    return (section < first_measure ? headings[section] : caption_of(Measure(section - first_measure))).toString();
}

} // namespace ui
