#pragma once

// The one place where the SQL of the floors above becomes that of the server. What is written above is the common part
// of both engines; what differs in form alone is put right here:
//   ? and ?1                        // $1, counted through
//   order by a, b desc              // order by a nulls first, b desc nulls last: Null stands before all else
//   a cross join b on ...           // inner join
//   select *                        // the fields by their names, without the one that numbers the rows
//   insert into t values (...)      // t (its fields): the one that numbers the rows isn't meant
//   from (select ...)               // gets the name that the server wants for it
// A text or name in quotes stands as it is.

#include <QStringList>
#include <functional>
#include <string_view>

namespace store {

/// The fields of a table, for "*"; none if there is no such table, and the "*" stays then.
using FieldsOf = std::function<QStringList(const QString& table)>;

QByteArray server_sql(std::string_view sql, const FieldsOf& fields_of);

/// The statements of a text, which ";" parts; none of them is blank.
QList<QByteArray> statements_of(std::string_view sql);

/// Whether the statement changes something: it begins with another word than "select".
bool writes(std::string_view sql);

} // namespace store
