#include "tour.h"

#include "base/literals.h"

#include <QTest>

namespace tour {

using namespace base;
using e2e::demand;

Tour::Tour(Host& host, Boxes& boxes, Pictures& pictures, const QString& root)
    : m_host(host), m_boxes(boxes), m_pictures(pictures), m_root(root) {}

Tour::Tour(const Tour& of, const QString& root) : Tour(of.m_host, of.m_boxes, of.m_pictures, root) {
    company = of.company;
}

void Tour::start() {
    if (m_program)
        return;
    m_program.emplace(m_host, m_root);
    const int status = m_program->start();
    demand(status == 0 && m_program->running(), u"the program doesn't start: "_s + m_boxes.unexpected().join(u' '));
    if (!m_program->wizard())
        resize_window(usual_window);
}

void Tour::resize_window(QSize size) {
    m_program->window().showNormal();
    m_program->window().resize(size);
    QTest::qWait(0);
}

void Tour::picture_of(QWidget& window, const QString& name) {
    demand_none(m_boxes.unexpected(), u"a message that nobody awaited"_s);
    QTest::qWait(0);
    m_pictures.take(window, name);
}

QDate Tour::month() {
    const QDate today = m_host.now().date();
    return QDate(today.year(), today.month(), 1).addMonths(1);
}

void Tour::open_month() {
    e2e::Clerk at = clerk();
    at.press_button(u"出勤入力"_s);
    at.choose_month(month().year(), month().month());
    at.choose_employee(company.employee_row);
}

QMap<QString, QString> totals_of(const base::Sheet& hyou) {
    QMap<QString, QString> totals;
    for (int col = entry::col::break_time; col < hyou.Cols(); ++col)
        if (const QString& total = hyou(entry::row::total, col); !total.isEmpty())
            totals[hyou(entry::row::heading, col)] = total;
    return totals;
}

void demand_none(const QStringList& faults, const QString& what) {
    demand(faults.isEmpty(), what + u":\n  "_s + faults.join(u"\n  "_s));
}

} // namespace tour
