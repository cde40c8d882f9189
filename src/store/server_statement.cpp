#include "base/literals.h"
#include "store/server_engine.h"
#include "store/server_sql.h"

#include <charconv>
#include <limits>

namespace store {

using namespace base;

namespace {

/// What leads the text as a number, as the file's engine reads it; held within the range.
qint64 leading_number(QByteArrayView text) {
    const char* start = text.data();
    const char* const end = start + text.size();
    while (start < end && (*start == ' ' || (*start >= '\t' && *start <= '\r')))
        ++start;
    if (end - start > 1 && *start == '+' && start[1] != '-')
        ++start;
    qint64 value = 0;
    if (std::from_chars(start, end, value).ec == std::errc::result_out_of_range)
        value = *start == '-' ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return value;
}

class ServerStatement final : public EngineStatement {
public:
    ServerStatement(ServerEngine& engine, const Prepared& prepared, std::string_view sql);

    void bind_number(int place, qint64 value) override { at(place) = QByteArray::number(value); }
    void bind_text(int place, QByteArrayView value) override;
    void bind_null(int place) override { at(place) = QByteArray(); }
    void ask() override;
    bool step() override;
    void reset() override;

    qint64 number(int column) const override { return leading_number(utf8(column)); }
    QByteArrayView utf8(int column) const override;
    bool is_null(int column) const override {
        return !holds(column) || PQgetisnull(m_result.get(), m_row, column) != 0;
    }
    int columns() const override { return int(m_prepared.columns.size()); }
    QString name(int column) const override { return m_prepared.columns.value(column); }

private:
    QByteArray& at(int place);
    QByteArray number_in(const QByteArray& text) const;
    QList<const char*> values() const;
    bool holds(int column) const { return m_result && column < PQnfields(m_result.get()); }

    ServerEngine& m_engine;
    const Prepared m_prepared;
    const bool m_writes;
    QList<QByteArray> m_values; ///< a null one is Null
    Awaited m_asked;
    Result m_result;
    int m_row = 0;
};

ServerStatement::ServerStatement(ServerEngine& engine, const Prepared& prepared, std::string_view sql)
    : m_engine(engine), m_prepared(prepared), m_writes(writes(sql)), m_values(prepared.numeric.size()) {}

QByteArray& ServerStatement::at(int place) {
    if (place < 1 || place > m_values.size())
        throw Error(Code::Misuse, m_engine.path, m_prepared.sql, {});
    return m_values[place - 1];
}

/// The server takes no letters where a number belongs. They equal no number, and can't be kept in a number's field.
QByteArray ServerStatement::number_in(const QByteArray& text) const {
    bool is_number = false;
    const QByteArray trimmed = text.trimmed();
    trimmed.toDouble(&is_number);
    if (is_number)
        return trimmed;
    if (m_writes && !trimmed.isEmpty())
        throw Error(Code::Misuse, m_engine.path, m_prepared.sql, u"数値の項目に文字は入りません。"_s);
    return {};
}

/// The server holds UTF-8 without a zero, and nothing else.
void ServerStatement::bind_text(int place, QByteArrayView value) {
    QByteArray text = value.isValidUtf8() ? value.toByteArray() : QString::fromUtf8(value).toUtf8();
    text.replace('\0', "");
    at(place) = m_prepared.numeric.value(place - 1) ? number_in(text) : text.isNull() ? QByteArray("") : text;
}

QList<const char*> ServerStatement::values() const {
    QList<const char*> values;
    for (const QByteArray& value : m_values)
        values << (value.isNull() ? nullptr : value.constData());
    return values;
}

void ServerStatement::ask() {
    if (!m_writes && !m_result)
        m_asked = m_engine.ask(m_prepared, values());
}

void ServerStatement::reset() {
    m_asked.reset();
    m_result.reset();
}

bool ServerStatement::step() {
    if (m_writes) {
        m_engine.write(m_prepared, values());
        return false;
    }
    if (m_result) {
        ++m_row;
    } else {
        m_result = m_engine.hear(m_asked ? m_asked : m_engine.ask(m_prepared, values()));
        m_asked.reset();
        m_row = 0;
    }
    if (m_row < PQntuples(m_result.get()))
        return true;
    m_result.reset();
    return false;
}

QByteArrayView ServerStatement::utf8(int column) const {
    constexpr Oid truth = 16; // as pg_type numbers it
    if (!holds(column))
        return {};
    if (PQftype(m_result.get(), column) == truth)
        return *PQgetvalue(m_result.get(), m_row, column) == 't' ? "1" : "0";
    return {PQgetvalue(m_result.get(), m_row, column), PQgetlength(m_result.get(), m_row, column)};
}

} // namespace

std::unique_ptr<EngineStatement> ServerEngine::prepare(std::string_view sql) {
    return std::make_unique<ServerStatement>(*this, m_link->prepared(sql), sql);
}

} // namespace store
