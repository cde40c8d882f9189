#include "store/server_sql.h"

#include "base/literals.h"
#include "store/database.h"
#include "store/schema.h"

#include <QList>
#include <algorithm>
#include <array>
#include <optional>

namespace store {

using namespace base;

namespace {

/// A word, a number, a text or name in quotes, a run of blanks, or one other sign.
enum class Sort { Word, Quoted, Blank, Sign };

struct Token {
    Sort sort;
    QByteArray text;
    int depth; ///< how many parentheses stand around it; those of a pair count as outside

    bool is(const char* word) const { return sort != Sort::Quoted && text.compare(word, Qt::CaseInsensitive) == 0; }
};
using Tokens = QList<Token>;

bool in_word(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (c & 0x80) != 0;
}

bool is_blank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

size_t end_of_run(std::string_view sql, size_t start, bool (*belongs)(char)) {
    return size_t(std::find_if_not(sql.begin() + qsizetype(start), sql.end(), belongs) - sql.begin());
}

/// A quote within is written twice, and so reads as two texts side by side.
size_t end_of_quoted(std::string_view sql, size_t start) {
    const size_t end = sql.find(sql[start], start + 1);
    return end == std::string_view::npos ? sql.size() : end + 1;
}

std::pair<Sort, size_t> token_at(std::string_view sql, size_t start) {
    const char c = sql[start];
    if (c == '\'' || c == '"')
        return {Sort::Quoted, end_of_quoted(sql, start)};
    if (is_blank(c))
        return {Sort::Blank, end_of_run(sql, start, is_blank)};
    if (in_word(c))
        return {Sort::Word, end_of_run(sql, start, in_word)};
    if (c == '?')
        return {Sort::Sign, end_of_run(sql, start + 1, [](char digit) { return digit >= '0' && digit <= '9'; })};
    return {Sort::Sign, start + 1};
}

Tokens tokens_of(std::string_view sql) {
    Tokens tokens;
    int depth = 0;
    for (size_t start = 0; start < sql.size();) {
        const auto [sort, end] = token_at(sql, start);
        const QByteArray text(sql.data() + start, qsizetype(end - start));
        depth -= text == ")" ? 1 : 0;
        tokens << Token{sort, text, depth};
        depth += text == "(" ? 1 : 0;
        start = end;
    }
    return tokens;
}

/// The nearest token from there on, or back from there, that isn't blank; -1 if there is none.
qsizetype meant(const Tokens& tokens, qsizetype place, int direction) {
    while (place >= 0 && place < tokens.size() && tokens[place].sort == Sort::Blank)
        place += direction;
    return place < tokens.size() ? place : -1;
}
qsizetype after(const Tokens& tokens, qsizetype place) {
    return meant(tokens, place + 1, 1);
}
qsizetype before(const Tokens& tokens, qsizetype place) {
    return meant(tokens, place - 1, -1);
}

void number_places(Tokens& tokens) {
    int count = 0;
    for (Token& token : tokens)
        if (token.sort == Sort::Sign && token.text.startsWith('?'))
            token.text = '$' + (token.text.size() > 1 ? token.text.mid(1) : QByteArray::number(++count));
}

/// The file's engine is told so which table leads; the server chooses for itself, and takes no condition there.
void plain_joins(Tokens& tokens) {
    for (qsizetype i = 0; i < tokens.size(); ++i)
        if (const qsizetype next = after(tokens, i); next >= 0 && tokens[i].is("cross") && tokens[next].is("join"))
            tokens[i].text = "inner";
}

// --- Null before all else

QString name_of(const Token& token) {
    const QString text = QString::fromUtf8(token.text);
    return token.sort == Sort::Quoted ? text.mid(1, text.size() - 2) : text;
}

bool ends_ordering(const Token& token, int depth) {
    constexpr std::array words{"limit", "union", ";"};
    return token.depth < depth ||
           (token.depth == depth && std::ranges::any_of(words, [&](const char* word) { return token.is(word); }));
}

/// Says of the term that ends at this token where Null stands. Of a field that never is it says nothing: the key's
/// index serves such an order alone.
void finish_term(Tokens& tokens, qsizetype last) {
    Token& token = tokens[last];
    const qsizetype field = token.is("asc") || token.is("desc") ? before(tokens, last) : last;
    if (!never_null(name_of(tokens[field])))
        token.text += token.is("desc") ? " nulls last" : " nulls first";
}

void order_nulls(Tokens& tokens) {
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is("by") || !tokens[before(tokens, i)].is("order"))
            continue;
        const int depth = tokens[i].depth;
        for (++i; i < tokens.size() && !ends_ordering(tokens[i], depth); ++i)
            if (tokens[i].depth == depth && tokens[i].is(","))
                finish_term(tokens, before(tokens, i));
        finish_term(tokens, before(tokens, i));
        --i;
    }
}

// --- "*"

/// The token that names the table of the "*"; nothing where it multiplies, counts, or stands for a query in
/// parentheses.
std::optional<qsizetype> table_of_star(const Tokens& tokens, qsizetype star) {
    const qsizetype lead = before(tokens, star);
    if (lead >= 0 && tokens[lead].is("."))
        return before(tokens, lead);
    if (lead < 0 || !(tokens[lead].is("select") || tokens[lead].is(",") || tokens[lead].is("distinct")))
        return std::nullopt;
    for (qsizetype i = star; i < tokens.size() && tokens[i].depth >= tokens[star].depth; ++i)
        if (tokens[i].depth == tokens[star].depth && tokens[i].is("from"))
            return tokens[after(tokens, i)].is("(") ? std::nullopt : std::optional(after(tokens, i));
    return std::nullopt;
}

void spell_out(Tokens& tokens, const FieldsOf& fields_of) {
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        const std::optional<qsizetype> table = tokens[i].is("*") ? table_of_star(tokens, i) : std::nullopt;
        if (!table)
            continue;
        QStringList fields = fields_of(name_of(tokens[*table]));
        std::ranges::transform(fields, fields.begin(), quoted);
        // Behind "table." only the first field has it before it.
        const QString separator = *table < i ? u", %1."_s.arg(QString::fromUtf8(tokens[*table].text)) : u", "_s;
        if (!fields.isEmpty())
            tokens[i].text = fields.join(separator).toUtf8();
    }
}

/// "insert into table values": the values are those of all fields.
void name_fields(Tokens& tokens, const FieldsOf& fields_of) {
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        const qsizetype table = tokens[i].is("into") ? after(tokens, i) : -1;
        const qsizetype next = table < 0 ? -1 : after(tokens, table);
        if (next < 0 || tokens[next].is("("))
            continue;
        QStringList fields = fields_of(name_of(tokens[table]));
        std::ranges::transform(fields, fields.begin(), quoted);
        if (!fields.isEmpty())
            tokens[table].text += " (" + fields.join(u", ").toUtf8() + ')';
    }
}

// --- queries in parentheses

qsizetype closing(const Tokens& tokens, qsizetype opening) {
    qsizetype i = opening + 1;
    while (i < tokens.size() && tokens[i].depth > tokens[opening].depth)
        ++i;
    return i;
}

bool is_name(const Token& token) {
    constexpr std::array words{"where", "order", "group", "union", "limit", "on", "join", "except"};
    return token.sort == Sort::Quoted ||
           (token.sort == Sort::Word && std::ranges::none_of(words, [&](const char* word) { return token.is(word); }));
}

void name_queries(Tokens& tokens) {
    int count = 0;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is("from") && !tokens[i].is("join"))
            continue;
        const qsizetype opening = after(tokens, i);
        if (opening < 0 || !tokens[opening].is("("))
            continue;
        const qsizetype end = closing(tokens, opening);
        const qsizetype next = end < tokens.size() ? after(tokens, end) : -1;
        if (end < tokens.size() && (next < 0 || !is_name(tokens[next])))
            tokens[end].text += " as query_" + QByteArray::number(++count);
    }
}

} // namespace

QByteArray server_sql(std::string_view sql, const FieldsOf& fields_of) {
    Tokens tokens = tokens_of(sql);
    number_places(tokens);
    plain_joins(tokens);
    order_nulls(tokens);
    spell_out(tokens, fields_of);
    name_fields(tokens, fields_of);
    name_queries(tokens);
    QByteArray text;
    for (const Token& token : tokens)
        text += token.text;
    return text;
}

QList<QByteArray> statements_of(std::string_view sql) {
    QList<QByteArray> statements{QByteArray()};
    for (const Token& token : tokens_of(sql))
        if (token.is(";"))
            statements << QByteArray();
        else
            statements.back() += token.text;
    statements.removeIf([](const QByteArray& statement) { return statement.trimmed().isEmpty(); });
    return statements;
}

/// Queries with names may stand before what is done with them.
bool writes(std::string_view sql) {
    const Tokens tokens = tokens_of(sql);
    constexpr std::array acts{"select", "insert", "update", "delete"};
    const auto is_act = [&](const Token& token) {
        return token.depth == 0 && std::ranges::any_of(acts, [&](const char* act) { return token.is(act); });
    };
    const qsizetype first = meant(tokens, 0, 1);
    if (first < 0 || !tokens[first].is("with"))
        return first >= 0 && !tokens[first].is("select");
    const auto act = std::ranges::find_if(tokens, is_act);
    return act == tokens.end() || !act->is("select");
}

} // namespace store
