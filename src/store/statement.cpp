#include "store/engine.h"

#include <algorithm>
#include <limits>

namespace store {

qint64 Row::number(int column) const {
    return m_statement->number(column);
}

int Row::integer(int column) const {
    constexpr qint64 lowest = std::numeric_limits<int>::min();
    constexpr qint64 highest = std::numeric_limits<int>::max();
    return int(std::clamp(number(column), lowest, highest));
}

QString Row::text(int column) const {
    return QString::fromUtf8(utf8(column));
}

QByteArrayView Row::utf8(int column) const {
    return m_statement->utf8(column);
}

bool Row::is_null(int column) const {
    return m_statement->is_null(column);
}

int Row::columns() const {
    return m_statement->columns();
}

QString Row::name(int column) const {
    return m_statement->name(column);
}

Statement::Statement(std::unique_ptr<EngineStatement> statement) : m_statement(std::move(statement)) {}
Statement::Statement(Statement&&) noexcept = default;
Statement& Statement::operator=(Statement&&) noexcept = default;
Statement::~Statement() = default;

void Statement::bind_number(int place, qint64 value) {
    m_statement->bind_number(place, value);
}

void Statement::bind_at(int place, QStringView value) {
    bind_utf8(place, value.toUtf8());
}

void Statement::bind_utf8(int place, QByteArrayView value) {
    m_statement->bind_text(place, value);
}

void Statement::bind_null(int place) {
    m_statement->bind_null(place);
}

void Statement::ask() {
    m_statement->ask();
}

bool Statement::step() {
    return m_statement->step();
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() {
    m_statement->reset();
}

} // namespace store
