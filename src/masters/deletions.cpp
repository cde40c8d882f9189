#include "masters/deletions.h"

#include "base/literals.h"

namespace masters {

using namespace base;

namespace {

QString told(const Deletion& deletion) {
    const QString done = deletion.what + u" を削除しました"_s;
    return deletion.hanging.isEmpty() ? done : done + u'（' + deletion.hanging + u'）';
}

} // namespace

void Deletions::add(Deletion deletion) {
    deletion.rows.removeIf([](const TakenRows& rows) { return rows.values.isEmpty(); });
    if (deletion.rows.isEmpty())
        return;
    m_said.clear();
    m_all << std::move(deletion);
}

QString Deletions::line() const {
    QStringList parts{m_said, m_all.isEmpty() ? QString() : told(m_all.last())};
    parts.removeAll(QString());
    return parts.join(u'　');
}

bool Deletions::undo() {
    if (m_all.isEmpty())
        return false;
    const Deletion& last = m_all.last();
    QString why = last.obstacle ? last.obstacle() : QString();
    if (why.isEmpty() && !put_back(last.rows))
        why = last.what + u" はもう登録されています。"_s;
    if (!why.isEmpty()) {
        m_said = why + u"元に戻せません。"_s;
        return false;
    }
    m_said = m_all.takeLast().what + u" を元に戻しました。"_s;
    return true;
}

QString short_name(const QString& name) {
    constexpr qsizetype longest = 20;
    if (name.isEmpty())
        return u"（名前なし）"_s;
    return name.size() > longest ? name.first(longest) + u'…' : name;
}

QString hanging_on(qint64 number, store::Database& rovdata, std::string_view count, const QString& words) {
    auto query = rovdata.prepare(count);
    const qint64 hanging = query.bind(number).step() ? query.row().number(0) : 0;
    return hanging == 0 ? QString() : words.arg(hanging);
}

} // namespace masters
